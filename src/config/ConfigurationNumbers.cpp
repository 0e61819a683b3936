#include "config/ConfigurationNumbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace zelorgas {
namespace {

// What stands in front of the digits.
struct Sign {
  bool minus = false;
};

// Takes the white space and the sign off the front of `text`.
Sign TakeSign(std::string_view& text) {
  constexpr std::string_view kSpace = " \t\n\v\f\r";
  text.remove_prefix(std::min(text.find_first_not_of(kSpace), text.size()));
  const Sign sign{text.starts_with('-')};
  if (sign.minus || text.starts_with('+')) text.remove_prefix(1);
  return sign;
}

// Digits and nothing else. More than 64 bits hold the largest number of 64 bits.
std::optional<std::uint64_t> ParseDigits(std::string_view text) {
  std::uint64_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error == std::errc::invalid_argument || stop != end) return std::nullopt;
  if (error == std::errc::result_out_of_range) return std::numeric_limits<std::uint64_t>::max();
  return number;
}

}  // namespace

std::optional<std::int32_t> ParseSigned(std::string_view text) {
  constexpr std::uint64_t kLargest = std::numeric_limits<std::int32_t>::max();
  const Sign sign = TakeSign(text);
  const auto digits = ParseDigits(text);
  if (!digits) return std::nullopt;
  const auto magnitude =
      static_cast<std::int64_t>(std::min(*digits, kLargest + (sign.minus ? 1U : 0U)));
  return static_cast<std::int32_t>(sign.minus ? -magnitude : magnitude);
}

std::optional<std::uint32_t> ParseUnsigned(std::string_view text) {
  constexpr std::uint32_t kLargest = std::numeric_limits<std::uint32_t>::max();
  const Sign sign = TakeSign(text);
  const auto digits = ParseDigits(text);
  if (!digits) return std::nullopt;
  if (*digits > kLargest) return kLargest;
  const auto magnitude = static_cast<std::uint32_t>(*digits);
  return sign.minus ? 0U - magnitude : magnitude;
}

std::optional<double> ParseFileDecimal(std::string_view text) {
  const Sign sign = TakeSign(text);
  // from_chars would take a second sign.
  if (text.starts_with('-')) return std::nullopt;
  double number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (stop != end) return std::nullopt;
  if (error == std::errc::result_out_of_range && IsBelowDoubles(text)) {
    number = 0;
  } else if (error != std::errc{} || !std::isfinite(number)) {
    return std::nullopt;
  }
  return sign.minus ? -number : number;
}

bool IsBelowDoubles(std::string_view number) {
  const std::size_t mantissa_end = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, mantissa_end);
  std::string_view exponent_text = number.substr(std::min(mantissa_end + 1, number.size()));
  if (exponent_text.starts_with('+')) exponent_text.remove_prefix(1);
  std::int64_t exponent = 0;
  const auto read =
      std::from_chars(exponent_text.data(), exponent_text.data() + exponent_text.size(), exponent);
  if (read.ec == std::errc::result_out_of_range) return exponent_text.starts_with('-');
  const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first_digit = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
  // Written so that an exponent near the end of its range does not overflow.
  return exponent < first_digit - point;
}

void AppendInteger(std::string& text, int number) {
  std::array<char, 16> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number);
  text.append(digits.data(), written.ptr);
}

void AppendFixed(std::string& text, double number, int decimals) {
  // The largest double has 309 digits before the point.
  std::array<char, 352> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                     std::chars_format::fixed, decimals);
  text.append(digits.data(), written.ptr);
}

std::string FormatFixed(double number, int decimals) {
  std::string text;
  AppendFixed(text, number, decimals);
  return text;
}

void AppendBits(std::string& text, unsigned bits, std::size_t count) {
  for (std::size_t bit = 0; bit < count; ++bit) {
    if (bit != 0) text += ';';
    text += ((bits >> bit) & 1U) == 0 ? '0' : '1';
  }
}

}  // namespace zelorgas
