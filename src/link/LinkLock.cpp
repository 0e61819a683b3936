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
  const std::uint64_t mine = next_turn_++;
  while (turn_ != mine) {
    const bool is_mine =
        released_.wait_for(guard, SerialDevice::kWaitSlice, [&] { return turn_ == mine; });
    if (is_mine || !hook_) continue;
    guard.unlock();
    hook_();
    guard.lock();
  }
  owner_ = self;
  depth_ = 1;
}

void LinkLock::unlock() {
  const std::lock_guard guard(mutex_);
  if (--depth_ > 0) return;
  ++turn_;
  released_.notify_all();
}

}  // namespace zelorgas
