// The correction grid as a heat map, with the cell in which the engine runs framed, a marker where
// in it, and a trail of the last seconds that fades. User-interface thread.
#pragma once

#include <optional>
#include <vector>

#include "maps/GridModel.h"
#include "ui/CCellTable.h"
#include "ui/HeatColours.h"

namespace zelorgas {

class CGridTable final : public CCellTable {
  Q_OBJECT

 public:
  // `model` outlives the table.
  explicit CGridTable(GridModel& model, QWidget* parent = nullptr);

  // What the model holds now: everything, one cell, or where the engine runs.
  void ShowGrid();
  void ShowCell(GridCell cell);
  void ShowLive();

  // Row by row.
  [[nodiscard]] std::vector<GridCell> SelectedCells() const;
  [[nodiscard]] GridCell CursorCell() const;

 protected:
  void PaintOver(QPainter& painter) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowCoefficient(TableCell cell);
  // What the marker and its trail cover.
  [[nodiscard]] QRegion LiveRegion() const;
  [[nodiscard]] QRectF DotAt(const GridPosition& position, double size) const;
  [[nodiscard]] double DotSize() const;

  GridModel& model_;
  HeatScale scale_;
  std::optional<GridPosition> live_;
  std::vector<TrailPoint> trail_;
};

}  // namespace zelorgas
