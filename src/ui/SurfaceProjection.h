// From the space of the correction grid's surface to the screen: turned about the upright axis,
// tilted, and enlarged, without perspective. Plain arithmetic, for any thread.
#pragma once

#include <QPointF>
#include <QSizeF>
#include <utility>

#include "maps/GridAxes.h"

namespace zelorgas {

// The ground is the square from -1 to 1 on both axes: x by petrol injection time, y by engine
// speed. z goes from 0, the ground, to 1, the top of the axis.
struct SurfacePoint {
  double x = 0;
  double y = 0;
  double z = 0;
};

class SurfaceProjection {
 public:
  static constexpr double kFirstAzimuth = -35;
  static constexpr double kFirstElevation = 33;

  // Degrees; the elevation stays where both ground and heights can be seen.
  void Turn(double azimuth, double elevation);
  void Zoom(double factor);
  void Reset();
  // The picture's size, and the room at each side that it leaves for labels.
  void SetView(QSizeF size, QSizeF margin);
  [[nodiscard]] QSizeF View() const { return size_; }

  [[nodiscard]] QPointF Project(const SurfacePoint& point) const;
  // The side of the ground, -1 or 1, that is farther from the viewer.
  [[nodiscard]] double FarX() const;
  [[nodiscard]] double FarY() const;

  [[nodiscard]] double Azimuth() const { return azimuth_; }
  [[nodiscard]] double Elevation() const { return elevation_; }
  [[nodiscard]] double Enlargement() const { return zoom_; }

 private:
  void Prepare();

  double azimuth_ = kFirstAzimuth;
  double elevation_ = kFirstElevation;
  double zoom_ = 1;
  QSizeF size_{1, 1};
  QSizeF margin_{0, 0};
  // Worked out from the others.
  double sin_azimuth_ = 0;
  double cos_azimuth_ = 1;
  double sin_elevation_ = 0;
  double cos_elevation_ = 1;
  double scale_ = 1;
};

// The heights of the surface: coefficients from `low` to `high`, both multiples of a tenth.
struct SurfaceHeights {
  double low = 0;
  double high = 1;

  [[nodiscard]] double HeightOf(double coefficient) const {
    return (coefficient - low) / (high - low);
  }
};
[[nodiscard]] SurfaceHeights HeightsOf(const GridMatrix& matrix);

// Where the centre of row or column `index` lies on its axis of the ground; between the centres
// where it is not whole.
[[nodiscard]] double GroundPlace(double index);
// The point of the surface over the grid's position, on the edge where that is beyond the centres.
[[nodiscard]] SurfacePoint OnSurface(const GridMatrix& matrix, const SurfaceHeights& heights,
                                     const GridPosition& position);

}  // namespace zelorgas
