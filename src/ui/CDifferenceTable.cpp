#include "ui/CDifferenceTable.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/Text.h"

namespace zelorgas {

CDifferenceTable::CDifferenceTable(QWidget* parent) : QWidget(parent) {
  heading_ = new QLabel(this);
  heading_->setObjectName("difference_heading");
  heading_->setTextFormat(Qt::PlainText);
  heading_->setWordWrap(true);
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);
  auto* const close = new QPushButton(tr("&Close"), this);
  close->setObjectName("difference_close");
  close->setToolTip(tr("Shows the notes again"));
  table_ = new QTreeWidget(this);
  table_->setObjectName("difference_table");
  table_->setAccessibleName(tr("Differences"));
  table_->setRootIsDecorated(false);
  table_->setUniformRowHeights(true);
  table_->setAlternatingRowColors(true);
  table_->setAllColumnsShowFocus(true);
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
  heading_->setText(differences.empty() ? tr("%1 and %2 agree.").arg(first, second)
                                        : tr("%1 and %2 differ in %n value(s).", nullptr,
                                             static_cast<int>(differences.size()))
                                              .arg(first, second));
  table_->clear();
  table_->setHeaderLabels({tr("Value"), first, second});
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
  const int width = fontMetrics().averageCharWidth();
  table_->setColumnWidth(0, width * 34);
  table_->setColumnWidth(1, width * 26);
  table_->setColumnWidth(2, width * 26);
  table_->header()->setStretchLastSection(false);
}

}  // namespace zelorgas
