#include "platform/LocalTime.h"

namespace zelorgas {

std::tm LocalTime(std::chrono::system_clock::time_point when) {
  const std::time_t seconds = std::chrono::system_clock::to_time_t(when);
  std::tm time{};
  if (::localtime_s(&time, &seconds) != 0) return {};
  return time;
}

}  // namespace zelorgas
