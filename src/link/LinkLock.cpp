#include "link/LinkLock.h"

#include "platform/SerialDevice.h"

namespace zelorgas {

void LinkLock::lock() {
  const std::thread::id self = std::this_thread::get_id();
  std::unique_lock guard(mutex_);
  while (depth_ > 0 && owner_ != self) {
    const bool released =
        released_.wait_for(guard, SerialDevice::kWaitSlice, [this] { return depth_ == 0; });
    if (released || !hook_) continue;
    guard.unlock();
    hook_();
    guard.lock();
  }
  owner_ = self;
  ++depth_;
}

void LinkLock::unlock() {
  const std::lock_guard guard(mutex_);
  if (--depth_ == 0) released_.notify_one();
}

}  // namespace zelorgas
