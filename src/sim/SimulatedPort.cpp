#include "sim/SimulatedPort.h"

#include <algorithm>
#include <atomic>
#include <memory>

#include "platform/PolledSerialDevice.h"

namespace zelorgas {
namespace {

constexpr int kAsciiDataBits = 7;

class SimulatedDevice final : public PolledSerialDevice {
 public:
  SimulatedDevice(SimulatedLine& line, Clock& clock, std::shared_ptr<std::atomic<bool>> in_use)
      : PolledSerialDevice(clock), line_(line), in_use_(std::move(in_use)) {}
  ~SimulatedDevice() override { *in_use_ = false; }

  bool SetQueueSizes(std::size_t, std::size_t) override { return true; }

  bool Configure(const LineSettings& settings) override {
    SetEventCharacter(settings.event_character);
    burst_ = settings.data_bits == kAsciiDataBits ? Clock::Duration(kWaitSlice)
                                                  : Clock::Duration(SimulatedLine::kBurst);
    return line_.Plugged();
  }

  void Purge(PurgeScope) override {
    std::vector<std::uint8_t> dropped;
    line_.Collect(dropped);
    DropReceived();
  }

  bool Write(std::span<const std::uint8_t> bytes) override {
    if (Gone() || !line_.Plugged()) return false;
    const Clock::TimePoint sent = line_.Transmit(bytes);
    while (DeviceClock().Now() < sent) {
      DeviceClock().SleepUntil(std::min(sent, DeviceClock().Now() + kWaitSlice));
      RunSliceHook();
    }
    return true;
  }

  std::optional<std::size_t> OutputQueueLength() override {
    if (!line_.Plugged()) return std::nullopt;
    return 0;
  }

 protected:
  Arrival Receive(std::vector<std::uint8_t>& received, Clock::TimePoint deadline) override {
    if (!line_.Plugged()) return Arrival::kGone;
    if (line_.Collect(received) > 0) return Arrival::kBytes;
    const Clock::TimePoint arrival = line_.LastArrivalWithin(burst_).value_or(deadline);
    DeviceClock().SleepUntil(std::min(arrival, deadline));
    if (!line_.Plugged()) return Arrival::kGone;
    return line_.Collect(received) > 0 ? Arrival::kBytes : Arrival::kNothing;
  }

 private:
  SimulatedLine& line_;
  std::shared_ptr<std::atomic<bool>> in_use_;
  // An ASCII frame ends with a character, so no silence in it must be kept.
  Clock::Duration burst_ = SimulatedLine::kBurst;
};

}  // namespace

SerialOpener SimulatedPort(SimulatedLine& line, Clock& clock) {
  auto in_use = std::make_shared<std::atomic<bool>>(false);
  return [&line, &clock, in_use](const std::string&) -> std::unique_ptr<SerialDevice> {
    if (!line.Plugged() || in_use->exchange(true)) return nullptr;
    return std::make_unique<SimulatedDevice>(line, clock, in_use);
  };
}

}  // namespace zelorgas
