// A field for a register word, shown as it is or divided by a power of ten. What the person types
// counts once the field is left or Enter is pressed; Escape brings the old number back.
// User-interface thread.
#pragma once

#include <QLineEdit>
#include <cstdint>
#include <optional>

namespace zelorgas {

class CNumberField final : public QLineEdit {
  Q_OBJECT

 public:
  // With `decimals` 1 the word 11 is shown as 1.1.
  explicit CNumberField(int decimals, QWidget* parent = nullptr);

  // Not over a number that is being typed.
  void Show(std::uint16_t value);
  // A word instead of a number, over whatever stands there.
  void ShowInstead(const QString& text);
  // Paints the background light red.
  void Warn(bool warn);

 signals:
  // The person has entered this, the number on show perhaps: an earlier entry may still be on its
  // way.
  void Entered(std::uint16_t value);
  // The person has entered what is no number of the range; the old one is back.
  void Refused(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  [[nodiscard]] std::optional<std::uint16_t> Typed() const;
  void Commit();
  void Restore();

  const int decimals_;
  bool warned_ = false;
  QString shown_;  // without what the person has typed since
};

}  // namespace zelorgas
