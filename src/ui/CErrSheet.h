// The sheet with the two pages of stored errors, the temporary ones first. The tab of a page stands
// out while the page has entries. User-interface thread.
#pragma once

#include <QTabWidget>
#include <array>

#include "errors/ErrorPage.h"
#include "ui/CErrorPage.h"

namespace zelorgas {

class CErrSheet final : public QTabWidget {
  Q_OBJECT

 public:
  // `sheet` outlives the widget.
  CErrSheet(ErrorSheet& sheet, QWidget* parent);

  // Shows what the model holds. `when_empty` stands in a list without entries.
  void ShowErrors(const QString& when_empty);

  // The page in front.
  [[nodiscard]] ErrorPage& CurrentModel();
  // Makes `action` an entry of both pages' context menus, with its shortcut.
  void AddToMenus(QAction* action);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void ShowHighlights();

  std::array<CErrorPage*, 2> pages_{};
};

}  // namespace zelorgas
