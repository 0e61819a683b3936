#include "ui/CPlot.h"

#include <qcustomplot.h>

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QVBoxLayout>
#include <QVarLengthArray>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/Colours.h"

namespace zelorgas {
namespace {

constexpr double kZoomedSpan = 0.8;  // of the range, one step nearer
constexpr double kMoveStep = 0.1;    // of the range
constexpr double kManySteps = 10;
constexpr double kPictureScale = 2;
constexpr int kPdfResolution = 96;
constexpr const char* kCurveLayer = "main";
constexpr double kLegendSize = 0.85;
constexpr double kLegendStretch = 0.001;  // the line takes no more than it needs
constexpr double kMarkRoom = 1.5;         // of a line's height, from one mark to the next
constexpr int kLeastMarks = 2;
constexpr int kMostMarks = 6;

// Marks at fixed steps.
class DivisionTicker final : public QCPAxisTickerFixed {
 public:
  DivisionTicker(double major, double minor) : between_(static_cast<int>(major / minor) - 1) {
    setTickStep(major);
    setScaleStrategy(ssNone);
  }

 protected:
  int getSubTickCount(double) override { return between_; }

 private:
  const int between_;
};

// No more marks than are wanted, at steps of 1, 2 or 5, or those ten times as large and so on.
class PlainTicker final : public QCPAxisTicker {
 protected:
  double getTickStep(const QCPRange& range) override {
    double magnitude = 1;
    const double mantissa = getMantissa(range.size() / tickCount(), &magnitude);
    return (mantissa <= 1 ? 1 : mantissa <= 2 ? 2 : mantissa <= 5 ? 5 : 10) * magnitude;
  }
};

// A curve of which all lines are drawn by one call and with the painter's cheapest pen, one pixel
// of the screen wide. Where pixels are small each line has a second one beside it: a wider pen
// costs many times as much.
class ThinCurve final : public QCPGraph {
 public:
  using QCPGraph::QCPGraph;

 protected:
  void drawLinePlot(QCPPainter* painter, const QVector<QPointF>& points) const override {
    const double ratio = painter->device()->devicePixelRatioF();
    const bool small_pixels = ratio >= kSmallPixels;
    const bool for_file = painter->modes() != QCPPainter::pmDefault;
    if (for_file || painter->pen().style() != Qt::SolidLine) {
      QPen pen = painter->pen();
      if (small_pixels && !for_file) pen.setWidthF(kNotThinnest);
      painter->setPen(pen);
      return QCPGraph::drawLinePlot(painter, points);
    }
    applyDefaultAntialiasingHint(painter);
    painter->setPen(QPen(painter->pen().color(), 0));
    QVarLengthArray<QLineF, kUsualLines> lines;
    for (qsizetype i = 1; i < points.size(); ++i) {
      const QLineF line(points[i - 1], points[i]);
      lines.append(line);
      if (!small_pixels) continue;
      const bool flat = std::abs(line.dx()) >= std::abs(line.dy());
      lines.append(flat ? line.translated(0, 1 / ratio) : line.translated(1 / ratio, 0));
    }
    painter->drawLines(lines.constData(), static_cast<int>(lines.size()));
  }

 private:
  static constexpr qsizetype kUsualLines = 1000;
  static constexpr double kSmallPixels = 1.5;   // to the pixel of an ordinary screen
  static constexpr double kNotThinnest = 1.01;  // 1 is a pixel of the screen, on every screen
};

}  // namespace

CPlot::CPlot(const QString& object_name, const QString& accessible_name, QWidget* parent)
    : QWidget(parent) {
  setObjectName(object_name);
  setAccessibleName(accessible_name);
  plot_ = new QCustomPlot(this);
  plot_->setObjectName(object_name + "_canvas");
  // A live plot of many points: speed before smoothness.
  plot_->setNotAntialiasedElements(QCP::aeAll);
  plot_->setNoAntialiasingOnDrag(true);
  plot_->setPlottingHint(QCP::phImmediateRefresh, false);
  // The curves have a picture of their own, so that new points leave the axes as they are drawn. It
  // is the topmost: what is above would need a third.
  for (const char* const layer : {"axes", "legend", "overlay"}) {
    plot_->moveLayer(plot_->layer(layer), plot_->layer(kCurveLayer), QCustomPlot::limBelow);
  }
  plot_->layer("overlay")->setMode(QCPLayer::lmLogical);
  plot_->layer(kCurveLayer)->setMode(QCPLayer::lmBuffered);
  plot_->axisRect()->setRangeDrag(Qt::Horizontal);
  plot_->axisRect()->setRangeZoom(Qt::Horizontal);
  cursor_ = new QCPItemStraightLine(plot_);
  cursor_->setVisible(false);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(plot_);
  connect(plot_->xAxis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this,
          &CPlot::KeepWithinRange);
  connect(plot_, &QCustomPlot::mouseMove, this, [this](QMouseEvent* event) {
    if (plot_->axisRect()->rect().contains(event->pos())) {
      emit PointedAt(plot_->xAxis->pixelToCoord(event->pos().x()));
    }
  });
  connect(plot_, &QCustomPlot::mousePress, this, [this] {
    if (interactive_) setFocus(Qt::MouseFocusReason);
  });
  connect(plot_, &QCustomPlot::mouseDoubleClick, this, [this] { ResetRange(); });
  plot_->yAxis->setTicker(QSharedPointer<PlainTicker>::create());
  connect(plot_, &QCustomPlot::afterLayout, this, &CPlot::FitMarks);
  ResetRange();
  FollowPalette();
}

// In a low plot the vertical axis has fewer marks, so that their numbers keep apart.
void CPlot::FitMarks() {
  const double room = plot_->axisRect()->height() / (fontMetrics().height() * kMarkRoom);
  const int marks = std::clamp(static_cast<int>(room), kLeastMarks, kMostMarks);
  if (marks == plot_->yAxis->ticker()->tickCount()) return;
  plot_->yAxis->ticker()->setTickCount(marks);
  RedrawAll();
}

void CPlot::SetAxisTitles(const QString& horizontal, const QString& vertical) {
  plot_->xAxis->setLabel(horizontal);
  plot_->yAxis->setLabel(vertical);
}

void CPlot::SetRange(double left, double right, double bottom, double top) {
  const bool same_span = left == left_ && right == right_;
  if (same_span && bottom == bottom_ && top == top_) return Redraw();
  left_ = left;
  right_ = right;
  bottom_ = bottom;
  top_ = top;
  // What the person has zoomed to stays.
  if (!interactive_ || !same_span) return ResetRange();
  plot_->yAxis->setRange(bottom_, top_);
  RedrawAll();
}

void CPlot::SetDivisions(double major, double minor) {
  major_ = major;
  minor_ = minor;
  divided_ = false;
  ShowDivisions();
  RedrawAll();
}

bool CPlot::Zoomed() const {
  constexpr double kWholeRange = 0.999;
  return plot_->xAxis->range().size() < kWholeRange * (right_ - left_);
}

void CPlot::ShowDivisions() {
  // Zoomed in, fixed marks would lie too far apart.
  const bool divided = major_ != 0 && !Zoomed();
  if (divided == divided_) return;
  divided_ = divided;
  if (divided) {
    plot_->xAxis->setTicker(QSharedPointer<DivisionTicker>::create(major_, minor_));
  } else {
    plot_->xAxis->setTicker(QSharedPointer<QCPAxisTicker>::create());
  }
}

// Beside it there is nothing to see.
void CPlot::KeepWithinRange() {
  plot_->xAxis->setRange(plot_->xAxis->range().bounded(left_, right_));
  ShowDivisions();
}

void CPlot::ShowLegend() {
  // The names stand in a line of their own; within the plot they would hide curves.
  QCPLegend* const legend = plot_->legend;
  plot_->plotLayout()->insertRow(0);
  plot_->plotLayout()->addElement(0, 0, legend);
  plot_->plotLayout()->setRowStretchFactor(0, kLegendStretch);
  legend->setFillOrder(QCPLegend::foColumnsFirst);
  legend->setBorderPen(Qt::NoPen);
  legend->setIconSize(fontMetrics().height(), fontMetrics().height() / 2);
  const int space = fontMetrics().height() / 3;
  legend->setMargins({space, 0, space, space});
  QFont small = font();
  small.setPointSizeF(small.pointSizeF() * kLegendSize);
  legend->setFont(small);
  // Without it the foot of an underscore is cut off.
  const int foot = fontMetrics().descent() / 2;
  for (int i = 0; i < legend->itemCount(); ++i) legend->item(i)->setMargins({0, 0, 0, foot});
  legend->setVisible(true);
  // The names may stand in several lines.
  plot_->setMinimumWidth(1);
  FitLegend();
}

void CPlot::FitLegend() {
  QCPLegend* const legend = plot_->legend;
  if (!legend->visible() || legend->itemCount() == 0) return;
  int widest = 1;
  int together = 0;
  for (int i = 0; i < legend->itemCount(); ++i) {
    const int item = legend->item(i)->minimumOuterSizeHint().width() + legend->columnSpacing();
    widest = std::max(widest, item);
    together += item;
  }
  const int room = width() - legend->margins().left() - legend->margins().right();
  // One line, or several of the same length.
  int columns = legend->itemCount();
  if (together > room) columns /= 2;
  while (columns > 1 && columns * widest > room) columns /= 2;
  if (columns == legend->wrap()) return;
  legend->setWrap(columns);
  legend->setFillOrder(QCPLegend::foColumnsFirst, true);
}

void CPlot::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  FitLegend();
}

std::size_t CPlot::AddCurve(const QString& name, const QColor& colour, bool dashed) {
  auto* const curve = new ThinCurve(plot_->xAxis, plot_->yAxis);
  curve->setName(name);
  curve->setPen(QPen(colour, 1, dashed ? Qt::DashLine : Qt::SolidLine));
  curves_.push_back(curve);
  return curves_.size() - 1;
}

void CPlot::SetPoints(std::size_t curve, const QVector<double>& x, const QVector<double>& y) {
  curves_[curve]->setData(x, y, true);
}

void CPlot::ShowCurve(std::size_t curve, bool show) {
  if (curves_[curve]->visible() == show) return;
  curves_[curve]->setVisible(show);
  Redraw();
}

void CPlot::SetCursor(std::optional<double> x) {
  cursor_->setVisible(x.has_value());
  if (x) {
    cursor_->point1->setCoords(*x, 0);
    cursor_->point2->setCoords(*x, 1);
  }
  Redraw();
}

void CPlot::SetInteractive(bool on) {
  if (interactive_ == on) return;
  interactive_ = on;
  plot_->setInteraction(QCP::iRangeDrag, on);
  plot_->setInteraction(QCP::iRangeZoom, on);
  setFocusPolicy(on ? Qt::StrongFocus : Qt::NoFocus);
  if (!on) ResetRange();
}

void CPlot::Redraw() {
  if (!isVisible()) {
    dirty_ = true;
  } else if (!std::exchange(curves_due_, true)) {
    QMetaObject::invokeMethod(this, &CPlot::DrawCurves, Qt::QueuedConnection);
  }
}

void CPlot::DrawCurves() {
  curves_due_ = false;
  plot_->layer(kCurveLayer)->replot();
}

void CPlot::RedrawAll() {
  dirty_ = !isVisible();
  if (!dirty_) plot_->replot(QCustomPlot::rpQueuedReplot);
}

QByteArray CPlot::Picture(const QString& format) {
  QBuffer file;
  file.open(QIODevice::WriteOnly);
  if (format != "pdf") {
    const QPixmap picture = plot_->toPixmap(0, 0, kPictureScale);
    return picture.save(&file, format.toLatin1()) ? file.data() : QByteArray();
  }
  QPdfWriter writer(&file);
  writer.setResolution(kPdfResolution);
  writer.setPageSize(
      QPageSize(QSizeF(plot_->width(), plot_->height()) * 72 / kPdfResolution, QPageSize::Point));
  writer.setPageMargins({});
  QCPPainter painter;
  if (!painter.begin(&writer)) return {};
  painter.setMode(QCPPainter::pmVectorized);
  painter.setMode(QCPPainter::pmNoCaching);
  plot_->toPainter(&painter, plot_->width(), plot_->height());
  return painter.end() ? file.data() : QByteArray();
}

void CPlot::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) FollowPalette();
}

void CPlot::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (dirty_) RedrawAll();
}

void CPlot::keyPressEvent(QKeyEvent* event) {
  if (!interactive_) return QWidget::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      return Zoom(kZoomedSpan);
    case Qt::Key_Minus:
      return Zoom(1 / kZoomedSpan);
    case Qt::Key_Left:
    case Qt::Key_Right: {
      const double direction = event->key() == Qt::Key_Left ? -1 : 1;
      if (cursor_step_ == 0 || event->modifiers().testFlag(Qt::ControlModifier)) {
        return Move(direction * kMoveStep);
      }
      const bool leap = event->modifiers().testFlag(Qt::ShiftModifier);
      return MoveCursor(direction * cursor_step_ * (leap ? kManySteps : 1));
    }
    case Qt::Key_Home:
      return ResetRange();
    default:
      QWidget::keyPressEvent(event);
  }
}

void CPlot::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  FollowPalette();
}

void CPlot::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  FollowPalette();
}

void CPlot::FollowPalette() {
  const QColor axes = palette().color(hasFocus() ? QPalette::Highlight : QPalette::WindowText);
  const QColor text = palette().color(QPalette::WindowText);
  const QColor line = BorderColour(palette());
  plot_->setBackground(CardColour(palette()));
  for (QCPAxis* const axis : {plot_->xAxis, plot_->yAxis}) {
    axis->setBasePen(QPen(axes));
    axis->setTickPen(QPen(text));
    axis->setSubTickPen(QPen(line));
    axis->setLabelColor(text);
    axis->setTickLabelColor(text);
    axis->grid()->setPen(QPen(line, 0, Qt::DotLine));
    axis->grid()->setZeroLinePen(QPen(line));
    axis->setLabelFont(font());
    axis->setTickLabelFont(font());
  }
  plot_->legend->setBrush(CardColour(palette()));
  plot_->legend->setTextColor(text);
  cursor_->setPen(QPen(text));
  RedrawAll();
}

void CPlot::ResetRange() {
  plot_->xAxis->setRange(left_, right_);
  plot_->yAxis->setRange(bottom_, top_);
  ShowDivisions();
  RedrawAll();
}

void CPlot::Zoom(double factor) {
  const QCPRange shown = plot_->xAxis->range();
  const double cursor = cursor_->point1->key();
  const bool at_cursor = cursor_->visible() && shown.contains(cursor);
  plot_->xAxis->scaleRange(factor, at_cursor ? cursor : shown.center());
  RedrawAll();
}

void CPlot::MoveCursor(double distance) {
  const QCPRange shown = plot_->xAxis->range();
  const double from = cursor_->visible() ? cursor_->point1->key() : shown.lower - distance;
  const double to = std::clamp(from + distance, left_, right_);
  if (!shown.contains(to)) {
    plot_->xAxis->moveRange(to < shown.lower ? to - shown.lower : to - shown.upper);
    RedrawAll();
  }
  emit PointedAt(to);
}

void CPlot::Move(double share_of_range) {
  plot_->xAxis->moveRange(share_of_range * plot_->xAxis->range().size());
  RedrawAll();
}

}  // namespace zelorgas
