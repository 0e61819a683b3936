// A clock that stands still until somebody sleeps: time-outs take no time, and tests say exactly
// when something happens. Safe to use from several threads, each of which moves the same time on.
#pragma once

#include <algorithm>
#include <mutex>

#include "platform/Clock.h"

namespace zelorgas {

class VirtualClock final : public Clock {
 public:
  TimePoint Now() const override {
    const std::lock_guard guard(lock_);
    return now_;
  }
  void SleepUntil(TimePoint deadline) override {
    const std::lock_guard guard(lock_);
    now_ = std::max(now_, deadline);
  }
  // Milliseconds since the clock was made.
  [[nodiscard]] double ElapsedMs() const {
    return std::chrono::duration<double, std::milli>(Now() - TimePoint{}).count();
  }

 private:
  mutable std::mutex lock_;
  TimePoint now_{};
};

}  // namespace zelorgas
