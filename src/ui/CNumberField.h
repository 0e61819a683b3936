// A field for a register word, shown as it is or divided by a power of ten. What the person enters
// and is no number of the range is refused, and the old number comes back. User-interface thread.
#pragma once

#include <cstdint>
#include <optional>

#include "ui/CEntryField.h"

namespace zelorgas {

class CNumberField final : public CEntryField {
  Q_OBJECT

 public:
  // With `decimals` 1 the word 11 is shown as 1.1.
  explicit CNumberField(int decimals, QWidget* parent = nullptr);

  // Not over a number that is being typed.
  void ShowNumber(std::uint16_t value);
  // Paints the background light red.
  void Warn(bool warn);

 signals:
  // As Entered, when it is a number of the range.
  void NumberEntered(std::uint16_t value);
  void Refused(const QString& text);

 private:
  [[nodiscard]] std::optional<std::uint16_t> NumberOf(const QString& text) const;

  const int decimals_;
  bool warned_ = false;
};

}  // namespace zelorgas
