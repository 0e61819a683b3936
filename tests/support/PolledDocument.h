// A connected document whose polling the test turns by hand, with message boxes: for procedures
// that hold the polling, write to the ECU and let the polling go on.
#pragma once

#include <string>
#include <utility>

#include "app/CommWorker.h"
#include "support/ConnectedDocument.h"
#include "support/ScriptedBoxes.h"

namespace zelorgas {

struct PolledDocument : ConnectedDocument {
  explicit PolledDocument(std::uint8_t software_minor = 39) : ConnectedDocument(software_minor) {
    if (document.PrepareWorker()) worker.RunRound();
    document.Link().SetTraceSink([this](const FrameTrace& trace) {
      if (trace.direction == FrameTrace::Direction::kSent) Note(trace.frame);
    });
  }

  // True when the worker's next turn polls as it did.
  bool Polls() {
    const std::uint64_t before = line.RequestCount();
    return worker.RunRound() && line.RequestCount() > before && document.Link().AttemptCount() == 1;
  }

  // The `ahead`-th request from now does not reach the ECU, however often it is tried.
  void LoseRequest(std::uint64_t ahead) {
    for (std::uint64_t i = 0; i < 3; ++i) line.ArmFault({FaultKind::kDropRequest}, ahead + i);
  }

  // The registers and coils written since the last call, in their order: "271=10000 61=off".
  std::string TakeWrites() { return std::exchange(writes_, {}); }

  CommWorker worker{document};
  ScriptedBoxes boxes;

 private:
  void Note(std::span<const std::uint8_t> frame) {
    const std::string text(frame.begin(), frame.end());
    const std::string function = text.substr(3, 2);
    if (function != "06" && function != "05") return;
    const std::string value = std::to_string(std::stoi(text.substr(9, 4), nullptr, 16));
    if (!writes_.empty()) writes_ += ' ';
    writes_ += std::to_string(std::stoi(text.substr(5, 4), nullptr, 16)) + '=';
    writes_ += function == "06" ? value : value == "0" ? "off" : "on";
  }

  std::string writes_;
};

}  // namespace zelorgas
