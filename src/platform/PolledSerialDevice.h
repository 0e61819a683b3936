// The waiting half of a SerialDevice whose back end can only say "these bytes have come": it keeps
// the received bytes, applies the read time-outs, looks for the event character and cuts every wait
// into slices. The POSIX port and the simulated line derive from it and supply the bytes.
#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "platform/ReceiveQueue.h"
#include "platform/SerialDevice.h"

namespace zelorgas {

class PolledSerialDevice : public SerialDevice {
 public:
  explicit PolledSerialDevice(Clock& clock) : clock_(clock) {}

  void SetSliceHook(SliceHook hook) override { hook_ = std::move(hook); }
  std::optional<PortTimeouts> Timeouts() const override;
  bool SetTimeouts(const PortTimeouts& timeouts) override;
  std::optional<std::size_t> InputQueueLength() override;
  bool WaitForInput(std::size_t count, Clock::Duration timeout) override;
  std::optional<std::size_t> Read(std::span<std::uint8_t> into) override;
  LineEvent WaitForEvent(Clock::Duration timeout) override;
  void ClearError() override { line_error_ = false; }

 protected:
  // kLineError: a framing, overrun or parity error; bytes may have come with it.
  enum class Arrival : std::uint8_t { kBytes, kNothing, kLineError, kGone };

  // Appends to `received` what has come, waiting for the first byte until `deadline` at the latest
  // (a deadline in the past: only look). Never asked to wait longer than kWaitSlice.
  virtual Arrival Receive(std::vector<std::uint8_t>& received, Clock::TimePoint deadline) = 0;

  // True once the port has been found unplugged.
  [[nodiscard]] bool Gone() const { return gone_; }
  void MarkGone() { gone_ = true; }
  // Forgets what was received and not yet read, a line error included.
  void DropReceived();
  void SetEventCharacter(char character) {
    event_character_ = static_cast<std::uint8_t>(character);
  }
  void RunSliceHook() const;
  [[nodiscard]] Clock& DeviceClock() const { return clock_; }
  // The end of a Write of `count` bytes that take `wire_time` on the line, by the write time-outs.
  [[nodiscard]] Clock::TimePoint WriteDeadline(std::size_t count, Clock::Duration wire_time) const;

 private:
  // One look at the line, and one slice of waiting for it. Both keep a line error until ClearError
  // or a purge; a full queue is one, as it is for a driver.
  Arrival Look() { return Collect(clock_.Now()); }
  Arrival WaitSlice(Clock::TimePoint deadline);
  Arrival Collect(Clock::TimePoint deadline);
  void StartSlices() { slice_end_ = clock_.Now() + kWaitSlice; }

  Clock& clock_;
  SliceHook hook_;
  PortTimeouts timeouts_;
  std::uint8_t event_character_ = '\n';
  ReceiveQueue queue_;
  Clock::TimePoint slice_end_{};
  bool line_error_ = false;
  bool gone_ = false;
};

}  // namespace zelorgas
