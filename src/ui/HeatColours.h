// The colours of a map: cold for its low coefficients, hot for its high ones, mild enough that
// figures on them read well, light or dark. Pure functions, user-interface thread.
#pragma once

#include <QColor>
#include <QPalette>

#include "maps/GridAxes.h"

namespace zelorgas {

// From the lowest to the highest coefficient, but never so narrow that a flat map looks hilly.
struct HeatScale {
  double low = 0;
  double high = 1;

  [[nodiscard]] double ShareOf(double coefficient) const {
    return (coefficient - low) / (high - low);
  }
  friend bool operator==(const HeatScale&, const HeatScale&) = default;
};
[[nodiscard]] HeatScale ScaleOf(const GridMatrix& matrix);

// `share` 0 is the coldest, 1 the hottest colour.
[[nodiscard]] QColor HeatColour(double share, const QPalette& palette);

}  // namespace zelorgas
