#include "cli/StatusQueue.h"

#include <utility>

namespace zelorgas {

void StatusQueue::Post(CommStatus status) {
  const std::lock_guard guard(lock_);
  if (!messages_.empty() && messages_.back() == status) return;
  messages_.push_back(status);
  posted_.notify_all();
}

void StatusQueue::Wait(Clock::Duration timeout) {
  std::unique_lock guard(lock_);
  posted_.wait_for(guard, timeout, [this] { return !messages_.empty(); });
}

std::vector<CommStatus> StatusQueue::TakeAll() {
  const std::lock_guard guard(lock_);
  return std::exchange(messages_, {});
}

}  // namespace zelorgas
