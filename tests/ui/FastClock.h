// Real time that runs twenty times as fast: the window, the worker and their time-outs play
// together as they do for a person, and a test takes a twentieth of the time.
#pragma once

#include <thread>

#include "platform/Clock.h"

namespace zelorgas {

class FastClock final : public Clock {
 public:
  static constexpr int kSpeed = 20;

  TimePoint Now() const override { return start_ + (RealNow() - start_) * kSpeed; }
  void SleepUntil(TimePoint deadline) override {
    std::this_thread::sleep_until(start_ + (deadline - start_) / kSpeed);
  }

 private:
  static TimePoint RealNow() { return std::chrono::steady_clock::now(); }

  const TimePoint start_ = RealNow();
};

}  // namespace zelorgas
