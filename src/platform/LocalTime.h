// The time of day where the person is. Any thread may call it.
#pragma once

#include <chrono>
#include <ctime>

namespace zelorgas {

// `when` by the clock on the wall; all fields 0 when the system cannot tell.
[[nodiscard]] std::tm LocalTime(std::chrono::system_clock::time_point when);

}  // namespace zelorgas
