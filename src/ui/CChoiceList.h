// A drop-down list whose choice has consequences: the mouse wheel, meant for the page around it,
// passes by. User-interface thread.
#pragma once

#include <QComboBox>
#include <optional>

namespace zelorgas {

class CChoiceList : public QComboBox {
  Q_OBJECT

 public:
  explicit CChoiceList(QWidget* parent = nullptr);

  // Shows the entry, or `without` when `index` is -1; once the list is closed, while the person has
  // it open.
  void ShowEntry(int index, const QString& without);

 protected:
  void wheelEvent(QWheelEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Entry {
    int index;
    QString without;
  };
  std::optional<Entry> when_closed_;
};

}  // namespace zelorgas
