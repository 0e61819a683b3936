#include <algorithm>
#include <array>
#include <atomic>

#include "sim/LineServer.h"

namespace zelorgas {
namespace {

class SerialLineServer final : public LineServer {
 public:
  SerialLineServer(SimulatedLine& line, Clock& clock, std::unique_ptr<SerialDevice> device,
                   std::string name)
      : line_(line), clock_(clock), device_(std::move(device)), name_(std::move(name)) {}

  const std::string& Path() const override { return name_; }
  void Stop() override { stop_ = true; }

  void Serve() override {
    std::array<std::uint8_t, 1024> bytes{};
    std::vector<std::uint8_t> due;
    while (!stop_ && device_->InputQueueLength()) {
      if (device_->WaitForInput(1, UntilNextArrival())) {
        const std::optional<std::size_t> count = device_->Read(bytes);
        if (!count) return;
        line_.Transmit(std::span(bytes).first(*count));
      }
      due.clear();
      if (line_.Collect(due) > 0 && !device_->Write(due)) device_->ClearError();
    }
  }

 private:
  // At most a slice, so that Stop is seen.
  [[nodiscard]] Clock::Duration UntilNextArrival() const {
    const Clock::Duration slice = SerialDevice::kWaitSlice;
    const std::optional<Clock::TimePoint> next = line_.LastArrivalWithin(SimulatedLine::kBurst);
    return next ? std::clamp(*next - clock_.Now(), Clock::Duration{0}, slice) : slice;
  }

  SimulatedLine& line_;
  Clock& clock_;
  std::unique_ptr<SerialDevice> device_;
  std::string name_;
  std::atomic<bool> stop_{false};
};

}  // namespace

std::unique_ptr<LineServer> ServeSerialDevice(SimulatedLine& line, Clock& clock,
                                              std::unique_ptr<SerialDevice> device,
                                              std::string name) {
  return std::make_unique<SerialLineServer>(line, clock, std::move(device), std::move(name));
}

}  // namespace zelorgas
