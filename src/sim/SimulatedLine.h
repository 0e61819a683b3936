// The serial line between the PC and the simulated ECU: echo, the pace of the baud rate, both
// framings (recognised by a frame's first byte), and faults. It knows when each character arrives;
// who carries the characters on (the port in this process, the pty server) asks it. Any thread may
// call anything.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <random>
#include <span>
#include <vector>

#include "platform/Clock.h"
#include "sim/LineFaults.h"
#include "sim/SimulatedEcu.h"

namespace zelorgas {

struct SimulatedLineOptions {
  bool echo = true;
  bool paced = true;                          // otherwise everything arrives at once
  std::uint32_t baud = 19200;                 // ten bit times a character
  std::chrono::milliseconds answer_delay{0};  // the ECU's own time between request and answer
  std::uint64_t seed = 1;
};

class SimulatedLine {
 public:
  // Who carries the characters on may hand them over in bursts of this length, as a driver does, so
  // that nobody wakes for each. It stays below the silence that ends an RTU frame.
  static constexpr std::chrono::milliseconds kBurst{1};

  // What the simulator's log and summary want to know of one request.
  struct RequestReport {
    std::uint64_t number;
    Clock::TimePoint when;                  // its last character
    std::span<const std::uint8_t> request;  // frame as received
    std::span<const std::uint8_t> answer;   // frame as sent, empty when none
    std::optional<Fault> fault;
  };
  using ReportSink = std::function<void(const RequestReport&)>;

  // `ecu` and `clock` outlive the line.
  SimulatedLine(SimulatedEcu& ecu, Clock& clock, SimulatedLineOptions options = {});

  // The PC sends `bytes` from now on. Gives the time at which the last one has gone out.
  Clock::TimePoint Transmit(std::span<const std::uint8_t> bytes);
  // How long the PC's characters that are already handed over will still take to go out.
  [[nodiscard]] Clock::Duration TransmitBacklog() const;
  // Appends to `received` what has arrived at the PC by now; gives how many bytes.
  std::size_t Collect(std::vector<std::uint8_t>& received);
  // When the next character arrives, and when the last of those that arrive within `window` of it
  // or belong to the same RTU answer (whose reader takes a gap for its end); empty while the line
  // is quiet.
  [[nodiscard]] std::optional<Clock::TimePoint> NextArrival() const;
  [[nodiscard]] std::optional<Clock::TimePoint> LastArrivalWithin(Clock::Duration window) const;

  // The adapter is pulled out, or put back. What was on its way is lost.
  void SetPlugged(bool plugged);
  [[nodiscard]] bool Plugged() const;

  // Faults by the number of the request, counted from 1.
  void WithFaults(const std::function<void(LineFaults&)>& change);
  // Arms one fault for the `ahead`-th request from now (1: the next one).
  void ArmFault(Fault fault, std::uint64_t ahead = 1);
  [[nodiscard]] std::uint64_t RequestCount() const;
  [[nodiscard]] std::uint64_t FaultCount() const;
  // `sink` runs under the line's lock and must not call the line.
  void SetReportSink(ReportSink sink);

 private:
  struct Arrival {
    Clock::TimePoint when{};
    std::uint8_t byte = 0;
    bool joined = false;  // to the one after it
  };
  using Frame = std::vector<std::uint8_t>;

  // All of these run under lock_.
  void TakeByte(std::uint8_t byte, Clock::TimePoint when);
  void BeginRequest();
  void Echo(std::uint8_t byte, Clock::TimePoint when);
  void FrameComplete(Clock::TimePoint when);
  [[nodiscard]] Frame Serve(std::span<const std::uint8_t> unit, bool ascii, Clock::TimePoint when);
  [[nodiscard]] std::optional<Frame> AnswerUnit(std::span<const std::uint8_t> unit,
                                                Clock::TimePoint when);
  void Send(std::span<const std::uint8_t> frame, Clock::TimePoint from, bool joined = false);
  void SendNoise(Clock::TimePoint from, std::chrono::milliseconds duration);
  [[nodiscard]] bool FaultIs(FaultKind kind) const { return fault_ && fault_->kind == kind; }

  SimulatedEcu& ecu_;
  Clock& clock_;
  const SimulatedLineOptions options_;
  const Clock::Duration character_time_;  // by the baud rate
  const Clock::Duration character_;       // what a character takes here: none when unpaced

  mutable std::mutex lock_;
  LineFaults faults_;
  std::minstd_rand noise_;
  ReportSink report_;
  Frame request_;                     // of the frame that is coming in
  Clock::TimePoint last_byte_{};      // of it
  Clock::TimePoint transmit_free_{};  // when the PC's side of the line is free
  Clock::TimePoint receive_free_{};   // when the ECU's side is
  Clock::TimePoint silent_until_{};
  std::deque<Arrival> arrivals_;  // in the order of time
  std::optional<Fault> fault_;    // of the request that is coming in
  std::uint64_t requests_ = 0;
  std::uint64_t fault_count_ = 0;
  bool plugged_ = true;
  bool unplug_when_quiet_ = false;
};

}  // namespace zelorgas
