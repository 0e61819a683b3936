// The sheet with the two pages of stored errors, the temporary ones first. The tab of a page stands
// out while the page has entries. User-interface thread.
#pragma once

#include <QTabWidget>
#include <array>

#include "errors/ErrorLog.h"
#include "ui/CErrorPage.h"

namespace zelorgas {

class CErrSheet final : public QTabWidget {
  Q_OBJECT

 public:
  // `log` outlives the widget.
  CErrSheet(ErrorLog& log, QWidget* parent);

  // Shows what the log holds.
  void ShowErrors();

  // The page in front.
  [[nodiscard]] ErrorPage& CurrentModel();
  // Makes `action` an entry of both pages' context menus, with its shortcut.
  void AddToMenus(QAction* action);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ShowHighlights();

  const ErrorLog& log_;
  std::array<CErrorPage*, 2> pages_{};
};

}  // namespace zelorgas
