#include "cli/FrameLog.h"

#include "cli/Text.h"

namespace zelorgas {
namespace {

// "12.345": milliseconds with three digits behind the point.
std::string FormatMilliseconds(Clock::Duration time) {
  const auto microseconds = std::chrono::duration_cast<std::chrono::microseconds>(time).count();
  std::string fraction = std::to_string(microseconds % 1000);
  fraction.insert(0, 3 - fraction.size(), '0');
  return std::to_string(microseconds / 1000) + "." + fraction;
}

}  // namespace

bool FrameLog::Open(const std::string& path, Clock::TimePoint start) {
  start_ = start;
  file_.open(path, std::ios::binary | std::ios::trunc);
  return file_.is_open();
}

void FrameLog::Write(const FrameTrace& trace, const std::string& result_text) {
  const bool sent = trace.direction == FrameTrace::Direction::kSent;
  const std::string frame(trace.frame.begin(), trace.frame.end());
  file_ << FormatMilliseconds(trace.time - start_) << (sent ? " sent \"" : " received \"")
        << PrintableText(frame) << '"';
  if (!sent) file_ << ' ' << result_text;
  // Whoever follows the file, or stops the program, has every exchange so far.
  file_ << '\n' << std::flush;
}

bool FrameLog::Close() {
  file_.close();
  return !file_.fail();
}

}  // namespace zelorgas
