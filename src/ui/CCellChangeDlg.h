// Asks how the selected cells of the correction grid are to change. User-interface thread.
#pragma once

#include <QButtonGroup>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <optional>

#include "maps/GridEdits.h"

namespace zelorgas {

class CCellChangeDlg final : public QDialog {
  Q_OBJECT

 public:
  // Opens with `last`, for an area of so many cells.
  CCellChangeDlg(AreaChange last, std::size_t cells, QWidget* parent);

  // What stands in the dialog; nothing while the value is no number.
  [[nodiscard]] std::optional<AreaChange> Change() const;

 private:
  void ShowMode();

  QButtonGroup* modes_;
  QLineEdit* value_;
  QLabel* meaning_;
  QPushButton* ok_ = nullptr;
};

}  // namespace zelorgas
