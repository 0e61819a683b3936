// How good the line is: exchanges, failed ones, and how many polling rounds a second come through.
// Any thread.
#pragma once

#include <cstdint>
#include <deque>
#include <mutex>

#include "link/ModbusSerialPort.h"
#include "platform/Clock.h"

namespace zelorgas {

struct LineQuality {
  std::uint64_t transactions = 0;
  std::uint64_t failures = 0;
  double rounds_per_second = 0;
  bool answering = true;  // the latest exchange went through
};

class LinkCounters {
 public:
  // Rounds are averaged over this time.
  static constexpr std::chrono::seconds kWindow{4};

  // `clock` outlives the counters.
  explicit LinkCounters(Clock& clock) : clock_(clock) {}

  // Everything from 0; a new connection.
  void Reset();
  // For ModbusSerialPort::SetTraceSink: the received half of an exchange carries its result.
  void CountFrame(const FrameTrace& trace);
  // A round of polling has come through.
  void CountRound();

  [[nodiscard]] LineQuality Quality() const;

 private:
  Clock& clock_;

  mutable std::mutex lock_;
  std::uint64_t transactions_ = 0;  // guarded by lock_, as what follows
  std::uint64_t failures_ = 0;
  bool answering_ = true;
  Clock::TimePoint start_{};             // of the counting
  std::deque<Clock::TimePoint> rounds_;  // within the window of the latest
};

}  // namespace zelorgas
