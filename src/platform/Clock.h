// The program's one source of time. Every time-out and pause goes through a Clock, so that a test
// can run three time-outs in no time at all. Safe to call from any thread.
#pragma once

#include <chrono>
#include <memory>

namespace zelorgas {

class Clock {
 public:
  using Duration = std::chrono::nanoseconds;
  using TimePoint = std::chrono::time_point<std::chrono::steady_clock, Duration>;

  virtual ~Clock() = default;

  // Monotonic; the origin has no meaning.
  [[nodiscard]] virtual TimePoint Now() const = 0;

  // Returns at `deadline` or a little later; at once when it has passed.
  virtual void SleepUntil(TimePoint deadline) = 0;

  void Sleep(Duration duration) { SleepUntil(Now() + duration); }
};

// The machine's steady clock.
[[nodiscard]] std::unique_ptr<Clock> MakeSteadyClock();

}  // namespace zelorgas
