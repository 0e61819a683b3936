// Numbers and texts between the command line and a person. Pure functions; no locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/ConfigurationNumbers.h"  // FormatFixed
#include "platform/Clock.h"

namespace zelorgas {

// Decimal ("583") or hexadecimal ("0x247") digits and nothing else. A number that 32 bits cannot
// hold gives their largest value, so that a range check refuses it.
[[nodiscard]] std::optional<std::uint32_t> ParseNumber(std::string_view text);

// A number that a command asks for.
struct NumberArgument {
  std::string_view name;
  std::uint32_t smallest = 0;
  std::uint32_t largest = 0xFFFF;
};

// The number in `text`; otherwise nothing, and `problem` says what the argument takes.
[[nodiscard]] std::optional<std::uint16_t> ReadNumber(const NumberArgument& argument,
                                                      std::string_view text, std::string& problem);

// The time that `option` gives in seconds ("90", "0.5"); otherwise nothing, and `problem` says what
// the option takes.
[[nodiscard]] std::optional<Clock::Duration> ReadSeconds(std::string_view option,
                                                         std::string_view text,
                                                         std::string& problem);

// "0x4000": four hexadecimal digits.
[[nodiscard]] std::string FormatHexWord(std::uint16_t word);

// `bytes` with everything that is not printable ASCII written as "\r", "\n" or "\x1B", and with
// '"' and '\' escaped.
[[nodiscard]] std::string PrintableText(std::string_view bytes);

// `text` with its control characters, all but those in `kept`, written as PrintableText writes
// them; for messages that quote what a person has typed.
[[nodiscard]] std::string EscapeControls(std::string_view text, std::string_view kept = {});

}  // namespace zelorgas
