// Paints the correction grid as a surface in space, with its three axes. User-interface thread.
#pragma once

#include <QPainter>
#include <QPalette>

#include "maps/GridAxes.h"
#include "ui/SurfaceProjection.h"

namespace zelorgas {

// What there is to see.
struct SurfaceContent {
  GridAxes axes;
  GridMatrix matrix{};
  SurfaceHeights heights;
};

// The room that labels need at each side.
[[nodiscard]] QSizeF LabelMargin(const QFontMetricsF& metrics);

// Ground, walls and axis labels, then the surface, its far parts first. Labels have the painter's
// font.
void PaintSurface(QPainter& painter, const SurfaceProjection& projection,
                  const SurfaceContent& content, const QPalette& palette);

}  // namespace zelorgas
