#include "ui/SurfaceProjection.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zelorgas {
namespace {

constexpr double kFlattest = 8;
constexpr double kSteepest = 82;
constexpr double kSmallest = 0.6;
constexpr double kLargest = 4;
constexpr double kHeight = 1.05;                // of the axis; the ground is 2 wide
constexpr double kReach = std::numbers::sqrt2;  // of the ground's corners from its middle
constexpr double kFullTurn = 360;
constexpr double kTenths = 10;

double Radians(double degrees) { return degrees * std::numbers::pi / 180; }

}  // namespace

void SurfaceProjection::Turn(double azimuth, double elevation) {
  azimuth_ = std::remainder(azimuth_ + azimuth, kFullTurn);
  elevation_ = std::clamp(elevation_ + elevation, kFlattest, kSteepest);
  Prepare();
}

void SurfaceProjection::Zoom(double factor) {
  zoom_ = std::clamp(zoom_ * factor, kSmallest, kLargest);
  Prepare();
}

void SurfaceProjection::Reset() {
  azimuth_ = kFirstAzimuth;
  elevation_ = kFirstElevation;
  zoom_ = 1;
  Prepare();
}

void SurfaceProjection::SetView(QSizeF size, QSizeF margin) {
  size_ = size;
  margin_ = margin;
  Prepare();
}

void SurfaceProjection::Prepare() {
  sin_azimuth_ = std::sin(Radians(azimuth_));
  cos_azimuth_ = std::cos(Radians(azimuth_));
  sin_elevation_ = std::sin(Radians(elevation_));
  cos_elevation_ = std::cos(Radians(elevation_));
  // The same for every azimuth, so that turning does not make the surface swell and shrink.
  const double width = 2 * kReach;
  const double height = 2 * kReach * sin_elevation_ + kHeight * cos_elevation_;
  const QSizeF room = size_ - 2 * margin_;
  scale_ = zoom_ * std::max(1.0, std::min(room.width() / width, room.height() / height));
}

QPointF SurfaceProjection::Project(const SurfacePoint& point) const {
  const double right = point.x * cos_azimuth_ - point.y * sin_azimuth_;
  const double away = point.x * sin_azimuth_ + point.y * cos_azimuth_;
  const double up = (point.z - 0.5) * kHeight * cos_elevation_ + away * sin_elevation_;
  return {size_.width() / 2 + right * scale_, size_.height() / 2 - up * scale_};
}

double SurfaceProjection::FarX() const { return sin_azimuth_ > 0 ? 1 : -1; }
double SurfaceProjection::FarY() const { return cos_azimuth_ > 0 ? 1 : -1; }

SurfaceHeights HeightsOf(const GridMatrix& matrix) {
  double low = matrix[0][0];
  double high = low;
  for (const auto& row : matrix) {
    const auto [least, largest] = std::ranges::minmax(row);
    low = std::min(low, least);
    high = std::max(high, largest);
  }
  low = std::floor(low * kTenths) / kTenths;
  high = std::ceil(high * kTenths) / kTenths;
  // A map that is flat, or nearly, is shown in the middle of half a unit.
  const double missing = std::max(0.0, 5 - std::round((high - low) * kTenths));
  return {low - std::floor(missing / 2) / kTenths, high + std::ceil(missing / 2) / kTenths};
}

double GroundPlace(double index) { return 2 * index / (kGridSize - 1.0) - 1; }

SurfacePoint OnSurface(const GridMatrix& matrix, const SurfaceHeights& heights,
                       const GridPosition& position) {
  constexpr double kLastIndex = kGridSize - 1.0;
  const double row = std::clamp(position.row - 0.5, 0.0, kLastIndex);
  const double column = std::clamp(position.column - 0.5, 0.0, kLastIndex);
  const auto top = std::min(static_cast<std::size_t>(row), kGridSize - 2);
  const auto left = std::min(static_cast<std::size_t>(column), kGridSize - 2);
  const double down = row - static_cast<double>(top);
  const double right = column - static_cast<double>(left);
  const double above = std::lerp(matrix[top][left], matrix[top][left + 1], right);
  const double below = std::lerp(matrix[top + 1][left], matrix[top + 1][left + 1], right);
  return {GroundPlace(row), GroundPlace(column), heights.HeightOf(std::lerp(above, below, down))};
}

}  // namespace zelorgas
