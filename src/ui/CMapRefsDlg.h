// Asks for the centres of the correction grid's rows and columns. User-interface thread.
#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QLineEdit>
#include <array>
#include <cstdint>
#include <string>

#include "app/MessageBoxes.h"
#include "maps/GridAxes.h"

namespace zelorgas {

class CMapRefsDlg final : public QDialog {
  Q_OBJECT

 public:
  // Opens with `axes`; `boxes` outlive the dialog.
  CMapRefsDlg(const GridAxes& axes, MessageBoxes& boxes, QWidget* parent);

  // The centres that were accepted.
  [[nodiscard]] const GridAxes& Axes() const { return axes_; }

  // Stays open, and says why, while a field holds no number.
  void accept() override;

 private:
  using Fields = std::array<QLineEdit*, kGridSize>;
  using Texts = std::array<std::string, kGridSize>;

  struct Axis {
    QString title;
    QString object_name;
    QString parameter;
    std::uint16_t first_register;
    const AxisCentres& centres;
  };

  void AddColumn(QBoxLayout* columns, const Axis& axis, Fields& fields);
  [[nodiscard]] static Texts TextsOf(const Fields& fields);

  MessageBoxes& boxes_;
  GridAxes axes_;
  Fields speeds_{};
  Fields times_{};
};

}  // namespace zelorgas
