#include "ui/CSurface.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QtMath>
#include <cmath>

#include "ui/Colours.h"
#include "ui/LiveMark.h"

namespace zelorgas {
namespace {

constexpr double kDegreesAPixel = 0.4;
constexpr double kDegreesAKey = 5;
constexpr double kZoomStep = 1.1;
constexpr double kWheelNotch = 120;

}  // namespace

CSurface::CSurface(GridModel& model, QWidget* parent) : QWidget(parent), model_(model) {
  setObjectName("grid_surface");
  setAccessibleName(tr("Correction grid as a surface"));
  setToolTip(
      tr("Drag or arrow keys: turn. Wheel, + and -: zoom.\n"
         "Double click or Home: the first view."));
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  ShowGrid();
}

void CSurface::ShowGrid() {
  const bool same = content_.axes == model_.Axes() && content_.matrix == model_.Coefficients();
  if (same) return;
  content_ = {model_.Axes(), model_.Coefficients(), HeightsOf(model_.Coefficients())};
  PaintAnew();
}

void CSurface::ShowLive() {
  const QRegion before = LiveRegion();
  live_ = model_.Live().Position();
  trail_ = model_.Trail();
  update(before + LiveRegion());
}

QSize CSurface::sizeHint() const { return minimumSizeHint() * 2; }

QSize CSurface::minimumSizeHint() const {
  return {fontMetrics().height() * 12, fontMetrics().height() * 9};
}

void CSurface::PaintAnew() {
  picture_ = {};
  update();
}

void CSurface::PaintPicture() {
  const qreal ratio = devicePixelRatioF();
  picture_ = QPixmap(qCeil(width() * ratio), qCeil(height() * ratio));
  picture_.setDevicePixelRatio(ratio);
  picture_.fill(CardColour(palette()));
  QPainter painter(&picture_);
  painter.setFont(font());
  PaintSurface(painter, projection_, content_, palette());
}

double CSurface::DotSize() const { return fontMetrics().height() * 0.75; }

QPointF CSurface::PlaceOf(const GridPosition& position) const {
  return projection_.Project(OnSurface(content_.matrix, content_.heights, position));
}

QRegion CSurface::LiveRegion() const {
  QRegion region;
  const double reach = DotSize() / 2 + 2;
  const auto add = [&](const GridPosition& position) {
    const QPointF place = PlaceOf(position);
    region += QRectF(place - QPointF(reach, reach), place + QPointF(reach, reach)).toAlignedRect();
  };
  for (const TrailPoint& point : trail_) add(point.position);
  if (live_) add(*live_);
  return region;
}

void CSurface::paintEvent(QPaintEvent*) {
  if (picture_.isNull() || picture_.devicePixelRatio() != devicePixelRatioF()) PaintPicture();
  QPainter painter(this);
  painter.drawPixmap(0, 0, picture_);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const TrailPoint& point : trail_) {
    PaintTrailDot(painter, palette(), PlaceOf(point.position), DotSize() / 2, point.strength);
  }
  if (live_) PaintLiveDot(painter, PlaceOf(*live_), DotSize());
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 2)
                            : QPen(BorderColour(palette()), 1));
  const int inset = hasFocus() ? 1 : 0;
  painter.drawRect(rect().adjusted(inset, inset, -1 - inset, -1 - inset));
}

void CSurface::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  projection_.SetView(size(), LabelMargin(QFontMetricsF(font())));
  PaintAnew();
}

void CSurface::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  PaintAnew();
}

void CSurface::mousePressEvent(QMouseEvent* event) { drag_from_ = event->position(); }

void CSurface::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const QPointF moved = event->position() - drag_from_;
  drag_from_ = event->position();
  projection_.Turn(moved.x() * kDegreesAPixel, moved.y() * kDegreesAPixel);
  PaintAnew();
}

void CSurface::mouseDoubleClickEvent(QMouseEvent*) {
  projection_.Reset();
  PaintAnew();
}

void CSurface::wheelEvent(QWheelEvent* event) {
  projection_.Zoom(std::pow(kZoomStep, event->angleDelta().y() / kWheelNotch));
  PaintAnew();
}

void CSurface::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
      projection_.Turn(-kDegreesAKey, 0);
      break;
    case Qt::Key_Right:
      projection_.Turn(kDegreesAKey, 0);
      break;
    case Qt::Key_Up:
      projection_.Turn(0, kDegreesAKey);
      break;
    case Qt::Key_Down:
      projection_.Turn(0, -kDegreesAKey);
      break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      projection_.Zoom(kZoomStep);
      break;
    case Qt::Key_Minus:
      projection_.Zoom(1 / kZoomStep);
      break;
    case Qt::Key_Home:
      projection_.Reset();
      break;
    default:
      return QWidget::keyPressEvent(event);
  }
  PaintAnew();
}

void CSurface::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void CSurface::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace zelorgas
