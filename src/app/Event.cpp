#include "app/Event.h"

namespace zelorgas {

void Event::Set() {
  const std::lock_guard guard(lock_);
  set_ = true;
  changed_.notify_all();
}

void Event::Reset() {
  const std::lock_guard guard(lock_);
  set_ = false;
}

bool Event::IsSet() const {
  const std::lock_guard guard(lock_);
  return set_;
}

bool Event::Wait(Clock::Duration timeout) const {
  std::unique_lock guard(lock_);
  return changed_.wait_for(guard, timeout, [this] { return set_; });
}

}  // namespace zelorgas
