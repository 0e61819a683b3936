#include "cli/Text.h"

#include <charconv>
#include <limits>
#include <system_error>

#include "platform/ControlCharacters.h"

namespace zelorgas {
namespace {

constexpr std::string_view kHexDigits = "0123456789ABCDEF";

constexpr double kShortestSeconds = 0.001;
constexpr double kLongestSeconds = 10'000'000;  // four months

}  // namespace

std::optional<std::uint32_t> ParseNumber(std::string_view text) {
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    base = 16;
    text.remove_prefix(2);
  }
  std::uint32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, base);
  if (stop != end || error == std::errc::invalid_argument) return std::nullopt;
  if (error == std::errc::result_out_of_range) return std::numeric_limits<std::uint32_t>::max();
  return number;
}

std::optional<std::uint16_t> ReadNumber(const NumberArgument& argument, std::string_view text,
                                        std::string& problem) {
  const std::optional<std::uint32_t> number = ParseNumber(text);
  if (number && *number >= argument.smallest && *number <= argument.largest) {
    return static_cast<std::uint16_t>(*number);
  }
  problem = std::string(argument.name) + " takes a number from " +
            std::to_string(argument.smallest) + " to " + std::to_string(argument.largest) +
            ", not \"" + std::string(text) + "\"";
  return std::nullopt;
}

std::optional<Clock::Duration> ReadSeconds(std::string_view option, std::string_view text,
                                           std::string& problem) {
  double seconds = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, seconds, std::chars_format::fixed);
  // What is no number compares false.
  if (error == std::errc() && stop == end && seconds >= kShortestSeconds &&
      seconds <= kLongestSeconds) {
    return std::chrono::duration_cast<Clock::Duration>(std::chrono::duration<double>(seconds));
  }
  problem = std::string(option) + " takes a number of seconds from 0.001 to 10000000, not \"" +
            std::string(text) + "\"";
  return std::nullopt;
}

std::string FormatHexWord(std::uint16_t word) {
  std::string text = "0x";
  for (unsigned shift = 16; shift > 0; shift -= 4) {
    text += kHexDigits[(word >> (shift - 4U)) & 0xFU];
  }
  return text;
}

std::string PrintableText(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\r') {
      text += "\\r";
    } else if (c == '\n') {
      text += "\\n";
    } else if (c == '"' || c == '\\') {
      text += '\\';
      text += c;
    } else if (byte < 0x20 || byte > 0x7E) {
      text += "\\x";
      text += kHexDigits[byte >> 4U];
      text += kHexDigits[byte & 0xFU];
    } else {
      text += c;
    }
  }
  return text;
}

std::string EscapeControls(std::string_view text, std::string_view kept) {
  std::string escaped;
  for (const char& c : text) {
    const bool control = IsControl(c) && kept.find(c) == std::string_view::npos;
    escaped += control ? PrintableText({&c, 1}) : std::string(1, c);
  }
  return escaped;
}

}  // namespace zelorgas
