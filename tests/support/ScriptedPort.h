// A serial port whose other end says what the test tells it to: after each write it delivers given
// bytes at given times. Time is the virtual clock's, so a test with three time-outs takes none.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/PolledSerialDevice.h"
#include "support/VirtualClock.h"

namespace zelorgas {

inline std::vector<std::uint8_t> Bytes(std::string_view text) { return {text.begin(), text.end()}; }

// Something that happens on the line, so long after the request was written.
struct LineAction {
  enum class Kind : std::uint8_t { kBytes, kLineError, kUnplug };

  std::chrono::milliseconds after{0};
  std::vector<std::uint8_t> bytes;
  Kind kind = Kind::kBytes;
};

// What the line does after one request.
using LineScript = std::vector<LineAction>;

inline LineAction At(int ms, std::vector<std::uint8_t> bytes) {
  return {std::chrono::milliseconds{ms}, std::move(bytes)};
}
inline LineAction At(int ms, std::string_view text) { return At(ms, Bytes(text)); }
inline LineAction At(int ms, LineAction::Kind kind) {
  return {std::chrono::milliseconds{ms}, {}, kind};
}

class ScriptedPort {
 public:
  // What the test sets before an exchange.
  std::function<LineScript(std::span<const std::uint8_t> request)> on_request;
  // Runs on every request, without a script for it: what is written does not come back.
  bool fail_write = false;
  bool leave_output_queued = false;
  bool refuse_settings = false;
  bool refuse_timeouts = false;
  bool refuse_queue_sizes = false;
  bool present = true;
  // Called when a look at the input queue is made; for pulling the plug between two phases.
  std::function<void()> on_look;

  // What the test looks at afterwards.
  std::vector<std::vector<std::uint8_t>> written;
  std::vector<std::string> opened_names;
  LineSettings settings;
  PortTimeouts timeouts;
  int open_devices = 0;
  std::string operations;  // "queues 1024 1024, purge both, write"

  explicit ScriptedPort(VirtualClock& clock) : clock_(clock) {}

  // Opens any name, or only `accepted` when it is set.
  std::optional<std::string> accepted;
  SerialOpener Opener() {
    return [this](const std::string& name) -> std::unique_ptr<SerialDevice> {
      opened_names.push_back(name);
      if (!present || (accepted && name != *accepted)) return nullptr;
      return std::make_unique<Device>(*this);
    };
  }

  // Every request is followed by `script`, in ASCII framing after its echo.
  void Answer(LineScript script, bool echo = true) {
    on_request = [script = std::move(script), echo](std::span<const std::uint8_t> request) {
      LineScript all = script;
      if (echo) all.insert(all.begin(), At(0, {request.begin(), request.end()}));
      return all;
    };
  }
  void Unplug() { present = false; }

 private:
  class Device final : public PolledSerialDevice {
   public:
    explicit Device(ScriptedPort& port) : PolledSerialDevice(port.clock_), port_(port) {
      ++port_.open_devices;
    }
    ~Device() override { --port_.open_devices; }

    bool SetQueueSizes(std::size_t in, std::size_t out) override {
      Note("queues " + std::to_string(in) + " " + std::to_string(out));
      return !port_.refuse_queue_sizes;
    }
    bool Configure(const LineSettings& settings) override {
      port_.settings = settings;
      return !port_.refuse_settings;
    }
    bool SetTimeouts(const PortTimeouts& timeouts) override {
      port_.timeouts = timeouts;
      return !port_.refuse_timeouts && PolledSerialDevice::SetTimeouts(timeouts);
    }
    void Purge(PurgeScope scope) override {
      Note(scope == PurgeScope::kBoth ? "purge both" : "purge receive");
      Deliver(nullptr);
      DropReceived();
    }
    bool Write(std::span<const std::uint8_t> bytes) override {
      Note("write");
      if (port_.fail_write || !port_.present) return false;
      port_.written.emplace_back(bytes.begin(), bytes.end());
      if (!port_.on_request) return true;
      for (LineAction& action : port_.on_request(bytes)) {
        pending_.push_back({port_.clock_.Now() + action.after, std::move(action)});
      }
      std::ranges::stable_sort(pending_, {}, &Pending::when);
      return true;
    }
    std::optional<std::size_t> OutputQueueLength() override {
      if (!port_.present) return std::nullopt;
      return port_.leave_output_queued ? 1 : 0;
    }

   protected:
    Arrival Receive(std::vector<std::uint8_t>& received, Clock::TimePoint deadline) override {
      if (port_.on_look) port_.on_look();
      if (!port_.present) return Arrival::kGone;
      if (!pending_.empty() && pending_.front().when <= deadline) {
        port_.clock_.SleepUntil(pending_.front().when);
        return Deliver(&received);
      }
      port_.clock_.SleepUntil(deadline);
      return Arrival::kNothing;
    }

   private:
    void Note(const std::string& operation) {
      port_.operations += (port_.operations.empty() ? "" : ", ") + operation;
    }

    struct Pending {
      Clock::TimePoint when;
      LineAction action;
    };

    // Takes everything that is due; `received` null drops it, as a purge does.
    Arrival Deliver(std::vector<std::uint8_t>* received) {
      Arrival arrival = Arrival::kNothing;
      while (!pending_.empty() && pending_.front().when <= port_.clock_.Now()) {
        const LineAction action = std::move(pending_.front().action);
        pending_.pop_front();
        if (received == nullptr) continue;
        if (action.kind == LineAction::Kind::kUnplug) {
          port_.present = false;
          return Arrival::kGone;
        }
        if (action.kind == LineAction::Kind::kLineError) return Arrival::kLineError;
        received->insert(received->end(), action.bytes.begin(), action.bytes.end());
        arrival = Arrival::kBytes;
      }
      return arrival;
    }

    ScriptedPort& port_;
    std::deque<Pending> pending_;
  };

  VirtualClock& clock_;
};

}  // namespace zelorgas
