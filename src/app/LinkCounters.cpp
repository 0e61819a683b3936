#include "app/LinkCounters.h"

#include <algorithm>

namespace zelorgas {
namespace {

constexpr std::chrono::seconds kShortestSpan{1};  // a rate over less says nothing

}  // namespace

void LinkCounters::Reset() {
  const std::lock_guard guard(lock_);
  transactions_ = 0;
  failures_ = 0;
  answering_ = true;
  start_ = clock_.Now();
  rounds_.clear();
}

void LinkCounters::CountFrame(const FrameTrace& trace) {
  if (trace.direction != FrameTrace::Direction::kReceived) return;
  const std::lock_guard guard(lock_);
  ++transactions_;
  answering_ = trace.result == ModbusResult::kOk;
  if (!answering_) ++failures_;
}

void LinkCounters::CountRound() {
  const Clock::TimePoint now = clock_.Now();
  const std::lock_guard guard(lock_);
  rounds_.push_back(now);
  while (rounds_.front() <= now - kWindow) rounds_.pop_front();
}

LineQuality LinkCounters::Quality() const {
  const Clock::TimePoint now = clock_.Now();
  const std::lock_guard guard(lock_);
  const Clock::Duration span = std::clamp<Clock::Duration>(now - start_, kShortestSpan, kWindow);
  const auto recent =
      std::ranges::count_if(rounds_, [&](Clock::TimePoint round) { return round > now - kWindow; });
  return {transactions_, failures_,
          static_cast<double>(recent) / std::chrono::duration<double>(span).count(), answering_};
}

}  // namespace zelorgas
