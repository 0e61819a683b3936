#include "ui/CErrSheet.h"

#include <QEvent>
#include <QStyle>
#include <QTabBar>

#include "ui/Colours.h"
#include "ui/Text.h"

namespace zelorgas {

CErrSheet::CErrSheet(ErrorLog& log, QWidget* parent) : QTabWidget(parent), log_(log) {
  setObjectName("error_sheet");
  setAccessibleName(tr("Stored errors"));
  for (const ErrorBank bank : {ErrorBank::kTemporary, ErrorBank::kPermanent}) {
    const QString title = TranslatedMessage(BankTitle(bank));
    auto* const page = new CErrorPage(log.Sheet().Page(bank), title, this);
    pages_[static_cast<std::size_t>(bank)] = page;
    addTab(page, title);
  }
}

void CErrSheet::ShowErrors() {
  for (CErrorPage* const page : pages_) {
    page->ShowEntries(log_.Known(page->Model().Bank()) ? tr("There are no errors.")
                                                       : tr("The errors have not been read."));
  }
  ShowHighlights();
}

void CErrSheet::ShowHighlights() {
  for (int tab = 0; tab < count(); ++tab) {
    const bool highlighted = pages_[static_cast<std::size_t>(tab)]->Model().Highlighted();
    tabBar()->setTabTextColor(tab, highlighted ? AlertColour(palette()) : QColor());
    setTabIcon(tab, highlighted ? style()->standardIcon(QStyle::SP_MessageBoxWarning) : QIcon());
    setTabToolTip(tab, highlighted ? tr("The ECU has stored errors of this kind.") : QString());
  }
}

void CErrSheet::changeEvent(QEvent* event) {
  QTabWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && pages_.back() != nullptr) ShowHighlights();
}

ErrorPage& CErrSheet::CurrentModel() {
  return pages_[static_cast<std::size_t>(currentIndex())]->Model();
}

void CErrSheet::AddToMenus(QAction* action) {
  for (CErrorPage* const page : pages_) page->List().addAction(action);
}

}  // namespace zelorgas
