#include "maps/CUndoStack.h"

#include <utility>

namespace zelorgas {

void CUndoStack::Push(CItemStepList step) {
  if (step.empty()) return;
  if (steps_.size() == kSteps) steps_.pop_back();
  steps_.push_front(std::move(step));
}

CItemStepList CUndoStack::Pop() {
  if (steps_.empty()) return {};
  CItemStepList step = std::move(steps_.front());
  steps_.pop_front();
  return step;
}

}  // namespace zelorgas
