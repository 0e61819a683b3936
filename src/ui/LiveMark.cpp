#include "ui/LiveMark.h"

namespace zelorgas {
namespace {

const QColor kLiveRed(225, 20, 60);

}  // namespace

QColor LiveInk(const QPalette& palette) { return palette.color(QPalette::Active, QPalette::Text); }

void PaintLiveDot(QPainter& painter, QPointF centre, double diameter) {
  painter.setPen(QPen(Qt::black, 1));
  painter.setBrush(Qt::white);
  painter.drawEllipse(centre, diameter / 2, diameter / 2);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kLiveRed);
  painter.drawEllipse(centre, diameter / 3.2, diameter / 3.2);
}

void PaintTrailDot(QPainter& painter, const QPalette& palette, QPointF centre, double diameter,
                   double strength) {
  QColor ink = LiveInk(palette);
  ink.setAlphaF(static_cast<float>(0.55 * strength));
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawEllipse(centre, diameter / 2, diameter / 2);
}

}  // namespace zelorgas
