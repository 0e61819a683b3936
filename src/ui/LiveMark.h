// How the place where the engine runs looks, in the table and on the surface alike. User-interface
// thread.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QPointF>

namespace zelorgas {

// Of lines that belong to the live place.
[[nodiscard]] QColor LiveInk(const QPalette& palette);

// A dot that stands out from every colour of the map.
void PaintLiveDot(QPainter& painter, QPointF centre, double diameter);
// A dot of the trail; `strength` 1 is new, 0 gone.
void PaintTrailDot(QPainter& painter, const QPalette& palette, QPointF centre, double diameter,
                   double strength);

}  // namespace zelorgas
