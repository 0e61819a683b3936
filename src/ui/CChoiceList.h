// A drop-down list whose choice has consequences: the mouse wheel, meant for the page around it,
// passes by. User-interface thread.
#pragma once

#include <QComboBox>

namespace zelorgas {

class CChoiceList : public QComboBox {
  Q_OBJECT

 public:
  using QComboBox::QComboBox;

  // Shows the entry, or `without` when `index` is -1. Nothing happens while the person has the list
  // open.
  void ShowEntry(int index, const QString& without);

 protected:
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace zelorgas
