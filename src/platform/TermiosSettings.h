// LineSettings in the words of a POSIX terminal driver. Pure functions, safe from any thread.
#pragma once

#include <termios.h>

#include <optional>

#include "platform/SerialDevice.h"

namespace zelorgas {

// `present` changed to `settings` on a raw line: no line editing, no translation, every byte as it
// came. Empty when a terminal driver has no word for the settings: an unknown baud rate, other than
// 5 to 8 data bits, one and a half stop bits with more than 5 data bits or two with 5, handshake
// over DSR and DTR.
[[nodiscard]] std::optional<termios> WithLineSettings(const termios& present,
                                                      const LineSettings& settings);

// True when `actual`, read back from the driver, is the line that `wanted` asked for. A pseudo
// terminal has no bits on a wire: it keeps 8 without parity, and only speed and rawness count.
[[nodiscard]] bool IsSameLine(const termios& wanted, const termios& actual, bool pseudo_terminal);

}  // namespace zelorgas
