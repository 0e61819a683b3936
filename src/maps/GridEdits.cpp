#include "maps/GridEdits.h"

#include <algorithm>
#include <cmath>

#include "maps/DecimalNumber.h"

namespace zelorgas {
namespace {

double At(const GridMatrix& matrix, GridCell cell) { return matrix[cell.row][cell.column]; }

C3Dpoint Point(GridCell cell, double value) { return {cell.row, cell.column, value}; }

double ByPercent(double old, double percent) { return old * (percent / 100 + 1.0); }

double Changed(double old, AreaChange change) {
  switch (change.mode) {
    case AreaMode::kPercentage:
      return ByPercent(old, change.value);
    case AreaMode::kLinear:
      return old + change.value;
    case AreaMode::kAbsolute:
      break;
  }
  return change.value;
}

template <typename NewValue>
CItemStepList ForEach(std::span<const GridCell> cells, NewValue new_value) {
  CItemStepList points;
  points.reserve(cells.size());
  for (const GridCell cell : cells) points.push_back(Point(cell, new_value(cell)));
  return points;
}

// The cells beside and across from `centre`, and itself, row by row.
std::vector<GridCell> BlockAround(GridCell centre) {
  const auto before = [](std::uint16_t i) { return i == 0 ? 0 : i - 1; };
  const auto after = [](std::uint16_t i) { return std::min<int>(i + 1, kGridSize - 1); };
  std::vector<GridCell> cells;
  for (int row = before(centre.row); row <= after(centre.row); ++row) {
    for (int column = before(centre.column); column <= after(centre.column); ++column) {
      cells.push_back({static_cast<std::uint16_t>(row), static_cast<std::uint16_t>(column)});
    }
  }
  return cells;
}

double Smoothed(const GridMatrix& matrix, GridCell centre) {
  double sum = 0;
  double weights = 0;
  for (const GridCell cell : BlockAround(centre)) {
    const double weight = (cell.row == centre.row ? 2 : 1) * (cell.column == centre.column ? 2 : 1);
    sum += weight * At(matrix, cell);
    weights += weight;
  }
  return sum / weights;
}

// How far `i` is on the way from `first` to `last`.
double Share(std::uint16_t i, std::uint16_t first, std::uint16_t last) {
  return first == last ? 0 : static_cast<double>(i - first) / (last - first);
}

}  // namespace

ClampedCoefficient ClampCoefficient(double coefficient) {
  // What is not a number at all takes the lower bound.
  if (!(coefficient >= kLeastCoefficient)) {
    return {kLeastCoefficient, !(coefficient > kLeastCoefficient - kRoundingLoss)};
  }
  return {std::min(coefficient, kLargestCoefficient),
          coefficient > kLargestCoefficient + kRoundingLoss};
}

std::vector<GridCell> ValidCells(std::span<const GridCell> cells) {
  std::vector<GridCell> valid;
  for (const GridCell cell : cells) {
    if (cell.InGrid() && std::ranges::find(valid, cell) == valid.end()) valid.push_back(cell);
  }
  return valid;
}

GridRectangle RectangleAround(std::span<const GridCell> cells) {
  const auto [top, bottom] = std::ranges::minmax(cells, {}, &GridCell::row);
  const auto [left, right] = std::ranges::minmax(cells, {}, &GridCell::column);
  return {{top.row, left.column}, {bottom.row, right.column}};
}

CItemStepList ChangeArea(const GridMatrix& matrix, std::span<const GridCell> cells,
                         AreaChange change) {
  return ForEach(cells, [&](GridCell cell) { return Changed(At(matrix, cell), change); });
}

CItemStepList NudgeAround(const GridMatrix& matrix, GridCell live, double percent) {
  return ForEach(BlockAround(live), [&](GridCell cell) {
    return ByPercent(At(matrix, cell), cell == live ? percent : percent / 2.0);
  });
}

CItemStepList InterpolateArea(const GridMatrix& matrix, std::span<const GridCell> cells) {
  if (cells.empty()) return {};
  const GridRectangle area = RectangleAround(cells);
  const GridCell top_right{area.first.row, area.last.column};
  const GridCell bottom_left{area.last.row, area.first.column};
  return ForEach(cells, [&](GridCell cell) {
    const double down = Share(cell.row, area.first.row, area.last.row);
    const double right = Share(cell.column, area.first.column, area.last.column);
    const double top = std::lerp(At(matrix, area.first), At(matrix, top_right), right);
    const double bottom = std::lerp(At(matrix, bottom_left), At(matrix, area.last), right);
    return std::lerp(top, bottom, down);
  });
}

CItemStepList SmoothArea(const GridMatrix& matrix, std::span<const GridCell> cells) {
  return ForEach(cells, [&](GridCell cell) { return Smoothed(matrix, cell); });
}

CItemStepList SetAreaEqual(const GridMatrix& matrix, std::span<const GridCell> cells,
                           GridCell source) {
  return ForEach(cells, [&](GridCell) { return At(matrix, source); });
}

CItemStepList StepArea(const GridMatrix& matrix, std::span<const GridCell> cells, int hundredths) {
  return ChangeArea(matrix, cells, {AreaMode::kLinear, hundredths / 100.0});
}

}  // namespace zelorgas
