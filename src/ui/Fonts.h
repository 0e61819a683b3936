// The few sizes of letters: each further one costs the start of the program a font to load.
#pragma once

#include <QFont>

namespace zelorgas {

[[nodiscard]] inline QFont Scaled(QFont font, double factor) {
  font.setPointSizeF(font.pointSizeF() * factor);
  return font;
}

// For titles of cards, the one button that matters, and what a person reads from the engine bay.
[[nodiscard]] inline QFont Emphasized(const QFont& font) {
  constexpr double kSize = 1.3;
  QFont large = Scaled(font, kSize);
  large.setBold(true);
  return large;
}

}  // namespace zelorgas
