// What a person has done to the correction grid, step by step, so that it can be taken back. One
// step is one action. Used by the user-interface thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

#include "maps/GridAxes.h"

namespace zelorgas {

// A cell and a coefficient of it; in a step, the one that it had before the action.
struct C3Dpoint {
  std::uint16_t row = 0;
  std::uint16_t column = 0;
  double value = 0;

  [[nodiscard]] GridCell Cell() const { return {row, column}; }
  friend bool operator==(const C3Dpoint&, const C3Dpoint&) = default;
};

using CItemStepList = std::vector<C3Dpoint>;

class CUndoStack {
 public:
  static constexpr std::size_t kSteps = 10;

  struct Step {
    CItemStepList points;
    std::uint64_t action = 0;  // its number
  };

  // Drops the oldest step when there are kSteps. A step without records is none, and one of the
  // newest step's action is a part of that: an action that was taken back in two goes, because some
  // cells failed, stays one.
  void Push(CItemStepList points, std::uint64_t action);
  // The newest step; without records when there is none.
  [[nodiscard]] Step Pop();
  [[nodiscard]] bool Empty() const { return steps_.empty(); }
  void Clear() { steps_.clear(); }

 private:
  std::deque<Step> steps_;  // the newest first
};

}  // namespace zelorgas
