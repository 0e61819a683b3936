#include "platform/PolledSerialDevice.h"

#include <algorithm>

#include "platform/LineTiming.h"

namespace zelorgas {

using std::chrono::milliseconds;

std::optional<PortTimeouts> PolledSerialDevice::Timeouts() const {
  if (gone_) return std::nullopt;
  return timeouts_;
}

bool PolledSerialDevice::SetTimeouts(const PortTimeouts& timeouts) {
  if (gone_) return false;
  timeouts_ = timeouts;
  return true;
}

void PolledSerialDevice::RunSliceHook() const {
  if (hook_) hook_();
}

void PolledSerialDevice::DropReceived() {
  queue_.Clear();
  line_error_ = false;
}

Clock::TimePoint PolledSerialDevice::WriteDeadline(std::size_t count,
                                                   Clock::Duration wire_time) const {
  return clock_.Now() + WriteLimit(timeouts_, count, wire_time);
}

PolledSerialDevice::Arrival PolledSerialDevice::Collect(Clock::TimePoint deadline) {
  if (gone_) return Arrival::kGone;
  const Arrival arrival = queue_.Full() ? Arrival::kLineError : Receive(queue_.Tail(), deadline);
  if (arrival == Arrival::kGone) gone_ = true;
  if (arrival == Arrival::kLineError) line_error_ = true;
  return arrival;
}

PolledSerialDevice::Arrival PolledSerialDevice::WaitSlice(Clock::TimePoint deadline) {
  const Arrival arrival = Collect(std::min(deadline, slice_end_));
  // By time, not by "nothing came": on a busy line something comes in every slice.
  if (arrival != Arrival::kGone && clock_.Now() >= slice_end_) {
    RunSliceHook();
    StartSlices();
  }
  return arrival;
}

std::optional<std::size_t> PolledSerialDevice::InputQueueLength() {
  const Arrival arrival = Look();
  // What came before the plug was pulled can still be read.
  if (arrival == Arrival::kGone && queue_.Size() == 0) return std::nullopt;
  return queue_.Size();
}

bool PolledSerialDevice::WaitForInput(std::size_t count, Clock::Duration timeout) {
  if (queue_.Size() >= count) return true;
  if (count > ReceiveQueue::kCapacity) return false;
  const Clock::TimePoint deadline = clock_.Now() + timeout;
  StartSlices();
  // No look first: a wait on bytes that are there already returns at once, with the bytes.
  do {
    if (WaitSlice(deadline) == Arrival::kGone) break;
  } while (queue_.Size() < count && clock_.Now() < deadline);
  return queue_.Size() >= count;
}

std::optional<std::size_t> PolledSerialDevice::Read(std::span<std::uint8_t> into) {
  const std::size_t wanted = std::min(into.size(), ReceiveQueue::kCapacity);
  Arrival arrival = queue_.Size() < wanted ? Look() : Arrival::kNothing;
  const Clock::Duration total =
      TotalLimit(timeouts_.read_total_multiplier, timeouts_.read_total_constant, into.size());
  const bool limited = total > Clock::Duration{0};
  if (!timeouts_.ReadReturnsAtOnce()) {
    const milliseconds interval{timeouts_.read_interval};
    const Clock::TimePoint end = limited ? clock_.Now() + total : Clock::TimePoint::max();
    Clock::TimePoint quiet = clock_.Now() + interval;
    StartSlices();
    bool expired = false;
    while (queue_.Size() < wanted && arrival != Arrival::kGone && !expired) {
      const std::size_t before = queue_.Size();
      const bool interval_runs = interval > milliseconds{0} && before > 0;
      const Clock::TimePoint deadline = interval_runs ? std::min(end, quiet) : end;
      expired = clock_.Now() >= deadline;
      // The slice hook, or another program, may have taken longer than the interval: what came
      // meanwhile shows that the line was not quiet.
      arrival = expired ? Look() : WaitSlice(deadline);
      if (queue_.Size() > before) {
        quiet = clock_.Now() + interval;
        expired = clock_.Now() >= end;
      }
    }
  }
  if (arrival == Arrival::kGone && queue_.Size() == 0) return std::nullopt;
  return queue_.Take(into);
}

LineEvent PolledSerialDevice::WaitForEvent(Clock::Duration timeout) {
  const Clock::TimePoint deadline = clock_.Now() + timeout;
  std::size_t scanned = 0;
  StartSlices();
  // As in WaitForInput there is no look first; only what is kept already is searched at once.
  Arrival arrival = gone_ ? Arrival::kGone : Arrival::kNothing;
  for (bool waited = false;; waited = true) {
    if (queue_.Contains(event_character_, scanned)) return LineEvent::kEventCharacter;
    scanned = queue_.Size();
    if (line_error_) return LineEvent::kLineError;
    if (arrival == Arrival::kGone) return LineEvent::kFailed;
    if (waited && clock_.Now() >= deadline) return LineEvent::kTimeout;
    arrival = WaitSlice(deadline);
  }
}

}  // namespace zelorgas
