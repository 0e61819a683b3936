#include "ui/HeatColours.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "ui/Colours.h"

namespace zelorgas {
namespace {

constexpr double kNarrowest = 0.30;
// How much of the background is in a colour: so much that the same letters, dark on light or light
// on dark, read well on all of them.
constexpr double kMildnessLight = 0.42;
constexpr double kMildnessDark = 0.55;
const std::array<QColor, 5> kHeat{QColor(43, 108, 196), QColor(40, 160, 170), QColor(120, 185, 90),
                                  QColor(240, 180, 40), QColor(220, 70, 45)};

}  // namespace

HeatScale ScaleOf(const GridMatrix& matrix) {
  double low = matrix[0][0];
  double high = low;
  for (const auto& row : matrix) {
    const auto [least, largest] = std::ranges::minmax(row);
    low = std::min(low, least);
    high = std::max(high, largest);
  }
  const double widening = std::max(0.0, kNarrowest - (high - low)) / 2;
  return {low - widening, high + widening};
}

QColor HeatColour(double share, const QPalette& palette) {
  const double place = std::clamp(share, 0.0, 1.0) * static_cast<double>(kHeat.size() - 1);
  const auto below = std::min(static_cast<std::size_t>(place), kHeat.size() - 2);
  const QColor pure =
      Mixed(kHeat.at(below), kHeat.at(below + 1), place - static_cast<double>(below));
  const QColor background = CardColour(palette);
  const bool is_light = TextOn(background) == QColor(Qt::black);
  return Mixed(pure, background, is_light ? kMildnessLight : kMildnessDark);
}

}  // namespace zelorgas
