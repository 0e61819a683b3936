#include "ui/CGridTable.h"

#include <QEvent>
#include <QPainter>
#include <algorithm>

#include "ui/LiveMark.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kSize = static_cast<int>(kGridSize);

TableCell ToTable(GridCell cell) { return {cell.row, cell.column}; }

GridCell ToGrid(TableCell cell) {
  return {static_cast<std::uint16_t>(cell.row), static_cast<std::uint16_t>(cell.column)};
}

}  // namespace

CGridTable::CGridTable(GridModel& model, QWidget* parent)
    : CCellTable("grid_table", tr("Correction grid"), {kSize, kSize, "0.00 ", "0123456789.,"},
                 parent),
      model_(model) {
  SetCorner(TranslatedMessage(kGridCornerText));
  ShowGrid();
}

void CGridTable::ShowGrid() {
  scale_ = ScaleOf(model_.Coefficients());
  for (int i = 0; i < kSize; ++i) {
    SetRowHeader(i, ToQString(model_.RowHeader(static_cast<std::size_t>(i))));
    SetColumnHeader(i, ToQString(model_.ColumnHeader(static_cast<std::size_t>(i))));
  }
  for (int row = 0; row < kSize; ++row) {
    for (int column = 0; column < kSize; ++column) {
      ShowCoefficient({row, column});
      SetTip({row, column},
             tr("%1 ms, %2 1/min\nGridRow[%3], register %4")
                 .arg(ToQString(model_.RowHeader(static_cast<std::size_t>(row))),
                      ToQString(model_.ColumnHeader(static_cast<std::size_t>(column))))
                 .arg(row)
                 .arg(ToGrid({row, column}).Register()));
    }
  }
}

void CGridTable::ShowCell(GridCell cell) {
  // Another highest or lowest coefficient gives all cells other colours.
  if (ScaleOf(model_.Coefficients()) != scale_) {
    ShowGrid();
  } else {
    ShowCoefficient(ToTable(cell));
  }
}

void CGridTable::ShowCoefficient(TableCell cell) {
  const GridCell grid_cell = ToGrid(cell);
  const double coefficient = model_.Coefficients()[grid_cell.row][grid_cell.column];
  SetCell(cell, ToQString(model_.CellText(grid_cell)),
          HeatColour(scale_.ShareOf(coefficient), palette()));
}

std::vector<GridCell> CGridTable::SelectedCells() const {
  std::vector<GridCell> cells;
  for (const TableCell cell : Selection().Cells()) cells.push_back(ToGrid(cell));
  return cells;
}

GridCell CGridTable::CursorCell() const { return ToGrid(Selection().Cursor()); }

void CGridTable::ShowLive() {
  const QRegion before = LiveRegion();
  live_ = model_.Live().Position();
  trail_ = model_.Trail();
  update(before + LiveRegion());
}

void CGridTable::changeEvent(QEvent* event) {
  CCellTable::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ShowGrid();
}

double CGridTable::DotSize() const {
  const QRect cell = CellRect({0, 0});
  return std::max(4.0, std::min(cell.width(), cell.height()) * 0.42);
}

QRectF CGridTable::DotAt(const GridPosition& position, double size) const {
  QRectF dot(0, 0, size, size);
  dot.moveCenter(PlaceAt(position.row, position.column));
  return dot;
}

QRegion CGridTable::LiveRegion() const {
  constexpr double kPenWidth = 3;
  QRegion region;
  const auto add = [&region](const QRectF& rect) {
    region += rect.adjusted(-kPenWidth, -kPenWidth, kPenWidth, kPenWidth).toAlignedRect();
  };
  for (const TrailPoint& point : trail_) add(DotAt(point.position, DotSize() / 2));
  if (live_) {
    add(DotAt(*live_, DotSize()));
    add(CellRect(ToTable(live_->cell)));
  }
  return region;
}

void CGridTable::PaintOver(QPainter& painter) {
  if (!live_) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(CellArea());
  const QRectF cell = QRectF(CellRect(ToTable(live_->cell))).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(LiveInk(palette()), 2));
  painter.drawRect(cell);
  for (const TrailPoint& point : trail_) {
    PaintTrailDot(painter, palette(), PlaceAt(point.position.row, point.position.column),
                  DotSize() / 2.5, point.strength);
  }
  PaintLiveDot(painter, PlaceAt(live_->row, live_->column), DotSize());
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setClipping(false);
}

}  // namespace zelorgas
