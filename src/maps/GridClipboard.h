// Blocks of coefficients as spreadsheets exchange them: a line a row, tabs between the cells. Pure
// functions, for any thread.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "maps/CUndoStack.h"
#include "maps/GridAxes.h"
#include "platform/Message.h"

namespace zelorgas {

// The rectangle around the valid cells, each coefficient as the table shows it; empty for none.
[[nodiscard]] std::string CopyBlock(const GridMatrix& matrix, std::span<const GridCell> cells);

// What pasting `text` makes of the grid: the block from the first row and column of the valid cells
// on, or, when it is a single number, that in all of them. Nothing, and `message` for the person,
// when there is no text or no cell, a field is no number, the rows differ in length, or the block
// does not fit.
[[nodiscard]] std::optional<CItemStepList> PlaceBlock(std::string_view text,
                                                      std::span<const GridCell> cells,
                                                      Message& message);

}  // namespace zelorgas
