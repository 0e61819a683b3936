// The trace file: a line for every frame sent and received, written under the link lock.
#pragma once

#include <fstream>
#include <string>

#include "link/ModbusSerialPort.h"

namespace zelorgas {

class FrameLog {
 public:
  // Replaces the file; times count from now. False when it cannot be written.
  [[nodiscard]] bool Open(const std::string& path, Clock::TimePoint start);
  [[nodiscard]] bool IsOpen() const { return file_.is_open(); }

  // Writes `41.250 received ":0B...\r\n" Ok`: milliseconds since Open, direction, the frame as
  // PrintableText, and for a received one `result_text`.
  void Write(const FrameTrace& trace, const std::string& result_text);

  // Closes the file. False when a line has not reached it.
  [[nodiscard]] bool Close();

 private:
  std::ofstream file_;
  Clock::TimePoint start_{};
};

}  // namespace zelorgas
