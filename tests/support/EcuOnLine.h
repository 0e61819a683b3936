// The simulated ECU at the end of a scripted line: it answers 40 ms after each request, and a test
// may speak in its place.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "link/AsciiFrame.h"
#include "sim/SimulatedEcu.h"
#include "support/ScriptedPort.h"

namespace zelorgas {

class EcuOnLine {
 public:
  using Unit = std::vector<std::uint8_t>;
  static constexpr std::chrono::milliseconds kAnswerTime{40};

  explicit EcuOnLine(VirtualClock& clock, SimulatedEcuOptions options = {})
      : ecu(clock, options), port(clock) {
    port.on_request = [this](std::span<const std::uint8_t> frame) { return Respond(frame); };
  }

  // Sees every request unit. A unit that it gives is answered instead of the ECU's own answer, an
  // empty one is silence; without one the ECU answers.
  std::function<std::optional<Unit>(const Unit& request)> instead;
  std::vector<Unit> requests;
  SimulatedEcu ecu;
  ScriptedPort port;

 private:
  LineScript Respond(std::span<const std::uint8_t> frame) {
    LineScript script{{{}, {frame.begin(), frame.end()}}};
    Unit request(frame.size());
    std::size_t length = 0;
    if (DecodeAsciiFrame(frame, request, length) != ModbusResult::kOk) return script;
    request.resize(length);
    requests.push_back(request);
    std::optional<Unit> answer = instead ? instead(request) : std::nullopt;
    if (!answer) answer = ecu.Answer(request);
    if (!answer || answer->empty()) return script;
    std::vector<std::uint8_t> answer_frame;
    EncodeAsciiFrame(*answer, answer_frame);
    script.push_back({kAnswerTime, answer_frame});
    return script;
  }
};

}  // namespace zelorgas
