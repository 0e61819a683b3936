#include "maps/CUndoStack.h"

#include <utility>

namespace zelorgas {

void CUndoStack::Push(CItemStepList points, std::uint64_t action) {
  if (points.empty()) return;
  if (!steps_.empty() && steps_.front().action == action) {
    CItemStepList& known = steps_.front().points;
    known.insert(known.end(), points.begin(), points.end());
    return;
  }
  if (steps_.size() == kSteps) steps_.pop_back();
  steps_.push_front({std::move(points), action});
}

CUndoStack::Step CUndoStack::Pop() {
  if (steps_.empty()) return {};
  Step step = std::move(steps_.front());
  steps_.pop_front();
  return step;
}

}  // namespace zelorgas
