#include "link/LinkLock.h"

#include "platform/SerialDevice.h"

namespace zelorgas {

void LinkLock::lock() {
  const std::thread::id self = std::this_thread::get_id();
  std::unique_lock guard(mutex_);
  if (depth_ > 0 && owner_ == self) {
    ++depth_;
    return;
  }
  const auto outer = waiting_.find(self);
  const bool waits_already = outer != waiting_.end();
  const std::uint64_t mine = waits_already ? outer->second : next_turn_++;
  if (!waits_already) waiting_.emplace(self, mine);
  while (turn_ != mine) {
    const bool is_mine =
        released_.wait_for(guard, SerialDevice::kWaitSlice, [&] { return turn_ == mine; });
    if (is_mine || !hook_) continue;
    guard.unlock();
    hook_();
    guard.lock();
  }
  if (!waits_already) waiting_.erase(self);
  taken_while_waiting_ = waits_already;
  owner_ = self;
  depth_ = 1;
}

void LinkLock::unlock() {
  const std::lock_guard guard(mutex_);
  if (--depth_ > 0 || std::exchange(taken_while_waiting_, false)) return;
  ++turn_;
  released_.notify_all();
}

}  // namespace zelorgas
