#include "ui/CErrorPage.h"

#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <optional>

#include "errors/ErrorTexts.h"
#include "ui/CCaption.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr double kTextSize = 1.15;
constexpr qsizetype kCountColumn = 6;

// Paints the blanks of the count as wide as its figures, so that the names stand in one column.
class CountDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  [[nodiscard]] QString displayText(const QVariant& value, const QLocale&) const override {
    constexpr QChar kFigureSpace(0x2007);
    const QString text = value.toString();
    return text.left(kCountColumn).replace(' ', kFigureSpace) + text.mid(kCountColumn);
  }
};

// The model's text with the name in the person's language.
QString ListText(ErrorBank bank, const ErrorPage::Entry& entry) {
  const QString name = TranslatedMessage(ErrorText(FindErrorDefinition(bank, entry.Code())->name));
  return ToQString(entry.text).left(kCountColumn) + name;
}

}  // namespace

CErrorPage::CErrorPage(ErrorPage& page, const QString& title, QWidget* parent)
    : QWidget(parent), page_(page) {
  const QString bank = page.Bank() == ErrorBank::kTemporary ? "temporary" : "permanent";
  setObjectName(bank + "_errors");
  setAccessibleName(title);
  QFont larger = font();
  larger.setPointSizeF(larger.pointSizeF() * kTextSize);
  list_ = new QListWidget(this);
  list_->setObjectName(bank + "_error_list");
  list_->setAccessibleName(tr("%1 errors: how often each has occurred, and its name").arg(title));
  list_->setToolTip(
      tr("How often each error has occurred, and its name.\n"
         "Select one to read its description."));
  list_->setFont(larger);
  list_->setItemDelegate(new CountDelegate(list_));
  list_->setContextMenuPolicy(Qt::ActionsContextMenu);
  empty_ = new CCaption({}, list_);
  empty_->setObjectName(bank + "_errors_empty");
  empty_->setAlignment(Qt::AlignCenter);
  empty_->setWordWrap(true);
  empty_->setAttribute(Qt::WA_TransparentForMouseEvents);
  description_ = new QPlainTextEdit(this);
  description_->setObjectName(bank + "_error_description");
  description_->setAccessibleName(tr("Description of the selected error"));
  description_->setFont(larger);
  description_->document()->setDocumentMargin(fontMetrics().height() / 2.0);
  description_->setReadOnly(true);
  description_->setTabChangesFocus(true);
  connect(list_, &QListWidget::itemSelectionChanged, this, &CErrorPage::SelectInModel);
}

void CErrorPage::ShowEntries(const QString& when_empty) {
  QStringList texts;
  for (const ErrorPage::Entry& entry : page_.Entries()) texts += ListText(page_.Bank(), entry);
  QStringList shown;
  for (int row = 0; row < list_->count(); ++row) shown += list_->item(row)->text();
  const QSignalBlocker quiet(list_);
  if (texts != shown) {
    list_->clear();
    list_->addItems(texts);
    for (int row = 0; row < list_->count(); ++row) {
      list_->item(row)->setSizeHint({0, list_->fontMetrics().height() * 7 / 4});
    }
  }
  list_->clearSelection();
  if (const auto selected = page_.Selected()) list_->setCurrentRow(static_cast<int>(*selected));
  empty_->setText(texts.isEmpty() ? when_empty : QString());
  description_->setPlainText(TranslatedMessage(page_.Description()));
}

void CErrorPage::SelectInModel() {
  const QModelIndexList selected = list_->selectionModel()->selectedRows();
  page_.Select(selected.isEmpty()
                   ? std::nullopt
                   : std::optional(static_cast<std::size_t>(selected.front().row())));
  description_->setPlainText(TranslatedMessage(page_.Description()));
}

void CErrorPage::resizeEvent(QResizeEvent*) {
  list_->setGeometry(2, 2, width() * 3 / 5 - 4, height() - 10);
  description_->setGeometry(width() * 3 / 5, 2, width() * 2 / 5 - 6, height() - 10);
  empty_->setGeometry(list_->rect());
}

}  // namespace zelorgas
