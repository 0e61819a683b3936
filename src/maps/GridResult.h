// Who watches a change of the correction grid, and what became of it. Used by the user-interface
// thread.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "maps/GridAxes.h"

namespace zelorgas {

// Who watches an action; either may be empty. They may let events run, but an action that they
// start meanwhile is refused.
struct GridWatch {
  // The ECU, the image and the model hold the cell's new coefficient now.
  std::function<void(GridCell)> cell_written;
  // Asked after each cell, `done` of `total` being behind; false leaves the rest as it is.
  std::function<bool(std::size_t done, std::size_t total)> keep_going;
};

struct GridResult {
  bool refused = false;  // nothing was sent: no number, no cell, no step, or another action runs
  std::size_t written = 0;
  std::vector<GridCell> failed{};  // the ECU has not taken these, or has not answered
  bool clamped = false;            // a value was out of range
  bool cancelled = false;
  bool another_ecu = false;  // it has answered instead, and the rest was left
};

}  // namespace zelorgas
