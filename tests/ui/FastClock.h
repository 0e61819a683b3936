// Real time that runs twenty times as fast, or as often as told: the window, the worker and their
// time-outs play together as they do for a person, and a test takes a twentieth of the time.
#pragma once

#include <thread>

#include "platform/Clock.h"

namespace zelorgas {

class FastClock final : public Clock {
 public:
  explicit FastClock(int speed = 20) : speed_(speed) {}

  TimePoint Now() const override { return start_ + (RealNow() - start_) * speed_; }
  void SleepUntil(TimePoint deadline) override {
    std::this_thread::sleep_until(start_ + (deadline - start_) / speed_);
  }

 private:
  static TimePoint RealNow() { return std::chrono::steady_clock::now(); }

  const int speed_;
  const TimePoint start_ = RealNow();
};

}  // namespace zelorgas
