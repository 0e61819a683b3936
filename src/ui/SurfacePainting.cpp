#include "ui/SurfacePainting.h"

#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "ui/Colours.h"
#include "ui/HeatColours.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kLast = static_cast<int>(kGridSize) - 1;
constexpr double kShadow = 0.28;     // what the steepest slope away from the light takes
constexpr double kEdgeShade = 0.35;  // of the lines between the cells
constexpr double kApart = 1.25;      // of its width, what a label keeps to the next
constexpr int kMostHeightMarks = 7;

struct Axis {
  std::function<SurfacePoint(double place, double distance)> at;
  QString title;
  std::vector<QString> labels;  // evenly from one end to the other
};

class SurfacePainter {
 public:
  SurfacePainter(QPainter& painter, const SurfaceProjection& projection,
                 const SurfaceContent& content, const QPalette& palette)
      : painter_(painter),
        projection_(projection),
        content_(content),
        palette_(palette),
        far_x_(projection.FarX()),
        far_y_(projection.FarY()) {}

  void PaintBox() {
    const QColor line = BorderColour(palette_);
    painter_.setPen(QPen(line, 1));
    painter_.setBrush(Mixed(CardColour(palette_), line, 0.15));
    Polygon({{{-1, -1, 0}, {1, -1, 0}, {1, 1, 0}, {-1, 1, 0}}});
    painter_.setBrush(Mixed(CardColour(palette_), line, 0.06));
    Polygon({{{far_x_, -1, 0}, {far_x_, 1, 0}, {far_x_, 1, 1}, {far_x_, -1, 1}}});
    Polygon({{{-1, far_y_, 0}, {1, far_y_, 0}, {1, far_y_, 1}, {-1, far_y_, 1}}});
    for (const double mark : HeightMarks()) {
      const double z = content_.heights.HeightOf(mark);
      Line({far_x_, -1, z}, {far_x_, 1, z});
      Line({-1, far_y_, z}, {1, far_y_, z});
    }
  }

  void PaintCells() {
    const HeatScale scale = ScaleOf(content_.matrix);
    // What is farther away is painted first.
    for (int i = 0; i < kLast; ++i) {
      const int row = far_x_ > 0 ? kLast - 1 - i : i;
      for (int j = 0; j < kLast; ++j) {
        PaintCell(row, far_y_ > 0 ? kLast - 1 - j : j, scale);
      }
    }
  }

  void PaintAxes() {
    painter_.setPen(palette_.color(QPalette::Active, QPalette::Text));
    const double near_y = -far_y_;
    const double near_x = -far_x_;
    Axis time{[near_y](double place, double distance) {
                return SurfacePoint{place, near_y * distance, 0};
              },
              TranslatedMessage(kSurfaceTimeAxis),
              {}};
    Axis speed{[near_x](double place, double distance) {
                 return SurfacePoint{near_x * distance, place, 0};
               },
               TranslatedMessage(kSurfaceSpeedAxis),
               {}};
    for (std::size_t i = 0; i < kGridSize; ++i) {
      time.labels.push_back(ToQString(TimeText(content_.axes.times_ms[i])));
      speed.labels.push_back(ToQString(SpeedText(content_.axes.speeds_rpm[i])));
    }
    PaintGroundAxis(time);
    PaintGroundAxis(speed);
    PaintHeightAxis();
  }

 private:
  [[nodiscard]] SurfacePoint Corner(int row, int column) const {
    const double coefficient =
        content_.matrix[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
    return {GroundPlace(row), GroundPlace(column), content_.heights.HeightOf(coefficient)};
  }

  // The coefficients at the marks of the upright axis: whole tenths, from the ground up.
  [[nodiscard]] std::vector<double> HeightMarks() const {
    const auto [low, high] = content_.heights;
    const int tenths = static_cast<int>(std::lround((high - low) * 10));
    const int step = (tenths + kMostHeightMarks - 1) / kMostHeightMarks;
    std::vector<double> marks;
    for (int i = 0; i <= tenths; i += step) marks.push_back(low + i / 10.0);
    return marks;
  }

  void Polygon(const std::array<SurfacePoint, 4>& corners) {
    std::array<QPointF, 4> points;
    std::ranges::transform(corners, points.begin(),
                           [this](const SurfacePoint& p) { return projection_.Project(p); });
    painter_.drawConvexPolygon(points.data(), static_cast<int>(points.size()));
  }

  void Line(const SurfacePoint& from, const SurfacePoint& to) {
    painter_.drawLine(projection_.Project(from), projection_.Project(to));
  }

  void PaintCell(int row, int column, const HeatScale& scale) {
    const std::array<SurfacePoint, 4> corners{Corner(row, column), Corner(row, column + 1),
                                              Corner(row + 1, column + 1), Corner(row + 1, column)};
    const double mean = (corners[0].z + corners[1].z + corners[2].z + corners[3].z) / 4;
    const double coefficient = std::lerp(content_.heights.low, content_.heights.high, mean);
    // The light comes from the side of low times and low speeds.
    const double slope = corners[2].z - corners[0].z;
    const double shade = std::clamp(slope, -1.0, 0.0) * -kShadow;
    const QColor colour = Mixed(HeatColour(scale.ShareOf(coefficient), palette_), Qt::black, shade);
    painter_.setBrush(colour);
    painter_.setPen(QPen(Mixed(colour, Qt::black, kEdgeShade), 1));
    Polygon(corners);
  }

  void Label(QPointF centre, const QString& text) {
    const QFontMetricsF metrics(painter_.font());
    QRectF room(0, 0, metrics.horizontalAdvance(text) + 2, metrics.height());
    room.moveCenter(centre);
    // A label that would be cut off moves in.
    const QRectF view({}, projection_.View());
    room.moveLeft(std::max(std::min(room.left(), view.right() - room.width()), view.left()));
    room.moveTop(std::max(std::min(room.top(), view.bottom() - room.height()), view.top()));
    // Where the axes meet only one of two labels has room.
    const auto covers = [&room](const QRectF& other) { return other.intersects(room); };
    if (std::ranges::any_of(labels_, covers)) return;
    labels_.push_back(room);
    painter_.drawText(room, Qt::AlignCenter | Qt::TextSingleLine, text);
  }

  void PaintGroundAxis(const Axis& axis) {
    const QFontMetricsF metrics(painter_.font());
    const QPointF length = projection_.Project(axis.at(1, 1)) - projection_.Project(axis.at(-1, 1));
    // How far apart two labels have to be on this line so as not to touch.
    double widest = 0;
    for (const QString& label : axis.labels) {
      widest = std::max(widest, metrics.horizontalAdvance(label));
    }
    const double across = std::max(std::abs(length.x()) / kLast, 0.01);
    const double along = std::max(std::abs(length.y()) / kLast, 0.01);
    const double wanted = std::min(kApart * widest / across, metrics.height() / along);
    const int step = std::clamp(static_cast<int>(std::ceil(wanted)), 1, kLast);
    const QPointF outward = Outward(axis);
    const double tick = metrics.height() / 3;
    for (int i = 0; i <= kLast; i += step) {
      const QPointF edge = projection_.Project(axis.at(GroundPlace(i), 1));
      painter_.drawLine(edge, edge + outward * tick);
      LabelBeyond(edge + outward * tick, outward, axis.labels[static_cast<std::size_t>(i)]);
    }
    const double labels = std::abs(outward.x()) * widest + std::abs(outward.y()) * metrics.height();
    LabelBeyond(projection_.Project(axis.at(0, 1)) + outward * (1.5 * tick + labels), outward,
                axis.title);
  }

  // The direction on the screen, one pixel long, that leads away from the ground.
  [[nodiscard]] QPointF Outward(const Axis& axis) const {
    const QPointF away = projection_.Project(axis.at(0, 2)) - projection_.Project(axis.at(0, 1));
    const double length = std::hypot(away.x(), away.y());
    return length > 0 ? away / length : QPointF(0, 1);
  }

  // `text` next to the place, on the side to which `direction` points.
  void LabelBeyond(QPointF place, QPointF direction, const QString& text) {
    const QFontMetricsF metrics(painter_.font());
    const double reach = std::abs(direction.x()) * metrics.horizontalAdvance(text) / 2 +
                         std::abs(direction.y()) * metrics.height() / 2;
    Label(place + direction * (reach + 1), text);
  }

  // On the upright edge at the left.
  void PaintHeightAxis() {
    const QFontMetricsF metrics(painter_.font());
    SurfacePoint foot{far_x_, -far_y_, 0};
    const SurfacePoint other{-far_x_, far_y_, 0};
    if (projection_.Project(other).x() < projection_.Project(foot).x()) foot = other;
    const double tick = metrics.height() / 3;
    for (const double mark : HeightMarks()) {
      foot.z = content_.heights.HeightOf(mark);
      const QString label = ToQString(CoefficientText(mark));
      const QPointF place = projection_.Project(foot);
      painter_.drawLine(place, place - QPointF(tick, 0));
      Label(place - QPointF(2 * tick + metrics.horizontalAdvance(label) / 2, 0), label);
    }
    foot.z = 1;
    Label(projection_.Project(foot) - QPointF(0, metrics.height()),
          TranslatedMessage(kSurfaceCoefficientAxis));
  }

  QPainter& painter_;
  const SurfaceProjection& projection_;
  const SurfaceContent& content_;
  const QPalette& palette_;
  const double far_x_;
  const double far_y_;
  std::vector<QRectF> labels_;  // where some are already
};

}  // namespace

QSizeF LabelMargin(const QFontMetricsF& metrics) {
  return {metrics.horizontalAdvance("0.00 ") + metrics.height(), metrics.height() * 2.6};
}

void PaintSurface(QPainter& painter, const SurfaceProjection& projection,
                  const SurfaceContent& content, const QPalette& palette) {
  painter.setRenderHint(QPainter::Antialiasing);
  SurfacePainter surface(painter, projection, content, palette);
  surface.PaintBox();
  surface.PaintCells();
  surface.PaintAxes();
}

}  // namespace zelorgas
