// A manual-reset event: set stays set until somebody resets it. Any thread may call anything.
#pragma once

#include <condition_variable>
#include <mutex>

#include "platform/Clock.h"

namespace zelorgas {

class Event {
 public:
  void Set();
  void Reset();
  [[nodiscard]] bool IsSet() const;
  // Waits until the event is set, at most `timeout` of real time. True when it is set.
  bool Wait(Clock::Duration timeout) const;

 private:
  mutable std::mutex lock_;
  mutable std::condition_variable changed_;
  bool set_ = false;  // guarded by lock_
};

}  // namespace zelorgas
