#include "ui/CDifferenceTable.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include "ui/Buttons.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

// With places for the names of both.
QString Heading(std::size_t differences) {
  if (differences == 0) return CDifferenceTable::tr("%1 and %2 agree.");
  if (differences == 1) return CDifferenceTable::tr("%1 and %2 differ in 1 value.");
  return CDifferenceTable::tr("%1 and %2 differ in %3 values.")
      .replace("%3", QString::number(differences));
}

}  // namespace

CDifferenceTable::CDifferenceTable(QWidget* parent) : QWidget(parent) {
  heading_ = new QLabel(this);
  heading_->setObjectName("difference_heading");
  heading_->setTextFormat(Qt::PlainText);
  heading_->setWordWrap(true);
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);
  QPushButton* const close = MakeButton("difference_close", tr("Cl&ose"), this);
  close->setToolTip(tr("Shows the notes again"));
  table_ = new QTreeWidget(this);
  table_->setObjectName("difference_table");
  table_->setAccessibleName(tr("Differences"));
  table_->setRootIsDecorated(false);
  table_->setUniformRowHeights(true);
  table_->setAlternatingRowColors(true);
  table_->setAllColumnsShowFocus(true);
  table_->setColumnCount(3);
  // The names of files, which may be long, share the room.
  table_->header()->setSectionResizeMode(QHeaderView::Stretch);
  table_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  table_->header()->setTextElideMode(Qt::ElideRight);
  auto* const top = new QHBoxLayout;
  top->addWidget(heading_, 1);
  top->addWidget(close);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(top);
  layout->addWidget(table_, 1);
  connect(close, &QPushButton::clicked, this, &CDifferenceTable::Closed);
}

void CDifferenceTable::Show(const QString& first, const QString& second,
                            const std::vector<BlockDifference>& differences) {
  heading_->setText(Heading(differences.size()).arg(first, second));
  table_->clear();
  table_->setHeaderLabels({tr("Value"), first, Capitalised(second)});
  for (const int column : {1, 2}) {
    QTreeWidgetItem* const header = table_->headerItem();
    header->setToolTip(column, header->text(column));
    header->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
  }
  const auto side = [](std::optional<std::uint16_t> raw, const std::string& text) {
    return raw ? ToQString(text) : TranslatedMessage(kMissingText);
  };
  for (const BlockDifference& difference : differences) {
    auto* const row =
        new QTreeWidgetItem(table_, {ToQString(difference.cell->Label()),
                                     side(difference.first_raw, difference.first_text),
                                     side(difference.second_raw, difference.second_text)});
    row->setToolTip(0, tr("Register %1").arg(RegisterOfWord(difference.cell->word)));
    row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    row->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
  }
}

}  // namespace zelorgas
