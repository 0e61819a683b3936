// What each edit of the correction grid makes of the cells that it is for: pure functions from the
// coefficients as they are to those that the person wants, in the order in which they are written.
// The values are not limited yet; ClampCoefficient does that.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "maps/CUndoStack.h"
#include "maps/GridAxes.h"

namespace zelorgas {

inline constexpr double kLeastCoefficient = 0.70;
inline constexpr double kLargestCoefficient = 3.10;

struct ClampedCoefficient {
  double value;
  bool clamped;  // the coefficient was out of range
};
[[nodiscard]] ClampedCoefficient ClampCoefficient(double coefficient);

// The numbers that the dialog's radio buttons have.
enum class AreaMode : std::uint8_t { kPercentage = 0, kLinear = 1, kAbsolute = 2 };
struct AreaChange {
  AreaMode mode = AreaMode::kPercentage;
  double value = 0;
};

// The cells of a selection as the edits take it: in its order, each once, none outside the grid.
[[nodiscard]] std::vector<GridCell> ValidCells(std::span<const GridCell> cells);

// The rectangle around a selection; `cells` is not empty.
struct GridRectangle {
  GridCell first;  // the corner with the lowest row and column
  GridCell last;
};
[[nodiscard]] GridRectangle RectangleAround(std::span<const GridCell> cells);

// Each takes valid cells.
[[nodiscard]] CItemStepList ChangeArea(const GridMatrix& matrix, std::span<const GridCell> cells,
                                       AreaChange change);
// The live cell by `percent`, negative to decrease, its neighbours by half of that.
[[nodiscard]] CItemStepList NudgeAround(const GridMatrix& matrix, GridCell live, double percent);
// Evenly between the four corners of the rectangle around the cells, cell by cell; between two
// where it is a row or a column.
[[nodiscard]] CItemStepList InterpolateArea(const GridMatrix& matrix,
                                            std::span<const GridCell> cells);
// The mean of a cell, counted four times, its neighbours beside it, twice, and across, once.
// Neighbours need not be selected.
[[nodiscard]] CItemStepList SmoothArea(const GridMatrix& matrix, std::span<const GridCell> cells);
// The coefficient of `source` in all of them.
[[nodiscard]] CItemStepList SetAreaEqual(const GridMatrix& matrix, std::span<const GridCell> cells,
                                         GridCell source);
// By so many hundredths, up or down.
[[nodiscard]] CItemStepList StepArea(const GridMatrix& matrix, std::span<const GridCell> cells,
                                     int hundredths);

}  // namespace zelorgas
