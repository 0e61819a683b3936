// The field that lies over a table's cell while a person types into it. It hands over what was
// typed and where the cursor is to go; Escape hands over nothing. User-interface thread.
#pragma once

#include <QLineEdit>
#include <cstdint>

namespace zelorgas {

class CCellEditor final : public QLineEdit {
  Q_OBJECT

 public:
  // How editing began: a key that replaces the cell's text, or a wish to change that text. Only
  // after the first the keys for left and right leave the cell.
  enum class Start : std::uint8_t { kTyped, kOpened };

  explicit CCellEditor(QWidget* parent);

  void Open(const QRect& cell, const QString& text, Start start);
  [[nodiscard]] bool IsOpen() const { return open_; }
  // The person has typed since it was opened.
  [[nodiscard]] bool Typed() const { return start_ == Start::kTyped || isModified(); }
  // Takes what was typed.
  void Commit(int row_step, int column_step);
  void Cancel();

 signals:
  // The field is closed; the cursor is to move by the steps.
  void Committed(const QString& text, int row_step, int column_step);
  void Closed();

 protected:
  // Tab belongs to the cells while one is edited.
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Close();

  bool open_ = false;
  Start start_ = Start::kTyped;
};

}  // namespace zelorgas
