// The correction grid as a surface in space, turned and zoomed by mouse and keyboard, with the
// place where the engine runs and its trail on it. Painted anew only when it has changed; the live
// place moves over the finished picture. User-interface thread.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>
#include <vector>

#include "maps/GridModel.h"
#include "ui/SurfacePainting.h"
#include "ui/SurfaceProjection.h"

namespace zelorgas {

class CSurface final : public QWidget {
  Q_OBJECT

 public:
  // `model` outlives the surface.
  explicit CSurface(GridModel& model, QWidget* parent = nullptr);

  // What the model holds now: the grid, or where the engine runs.
  void ShowGrid();
  void ShowLive();

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void PaintAnew();
  void PaintPicture();
  [[nodiscard]] QPointF PlaceOf(const GridPosition& position) const;
  [[nodiscard]] double DotSize() const;
  [[nodiscard]] QRegion LiveRegion() const;

  GridModel& model_;
  SurfaceContent content_;
  SurfaceProjection projection_;
  QPixmap picture_;  // null: to be painted
  std::optional<GridPosition> live_;
  std::vector<TrailPoint> trail_;
  QPointF drag_from_;
};

}  // namespace zelorgas
