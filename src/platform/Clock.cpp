#include "platform/Clock.h"

#include <thread>

namespace zelorgas {
namespace {

class SteadyClock final : public Clock {
 public:
  TimePoint Now() const override { return std::chrono::steady_clock::now(); }
  void SleepUntil(TimePoint deadline) override { std::this_thread::sleep_until(deadline); }
};

}  // namespace

std::unique_ptr<Clock> MakeSteadyClock() { return std::make_unique<SteadyClock>(); }

}  // namespace zelorgas
