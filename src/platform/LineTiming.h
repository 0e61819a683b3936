// How long things take on a serial line, and how long its time-outs allow them to take. Pure
// functions, safe from any thread.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/Clock.h"
#include "platform/SerialDevice.h"

namespace zelorgas {

// One character on the line: start bit, data bits, parity bit and stop bits. 0 for a baud rate of
// 0.
[[nodiscard]] Clock::Duration CharacterTime(const LineSettings& settings);

// What a total time-out allows an operation on `count` bytes: multiplier * count + constant in
// milliseconds, never more than a year. 0 means that the rule is off.
[[nodiscard]] Clock::Duration TotalLimit(std::uint32_t multiplier, std::uint32_t constant,
                                         std::size_t count);

// How long a write of `count` bytes that take `wire_time` may last.
[[nodiscard]] Clock::Duration WriteLimit(const PortTimeouts& timeouts, std::size_t count,
                                         Clock::Duration wire_time);

}  // namespace zelorgas
