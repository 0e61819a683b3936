#include "maps/DecimalNumber.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

#include "config/ConfigurationNumbers.h"

namespace zelorgas {
namespace {

// What from_chars leaves to us when the number does not fit a double.
double OutOfRange(std::string_view number, bool negative) {
  if (IsBelowDoubles(number)) return 0;
  const double largest = std::numeric_limits<double>::max();
  return negative ? -largest : largest;
}

}  // namespace

std::optional<double> ParseDecimal(std::string_view typed) {
  std::string with_point(typed);
  std::ranges::replace(with_point, ',', '.');
  std::string_view text = with_point;
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  // from_chars also knows "inf" and "nan", and takes a sign of its own.
  if (text.find_first_not_of("0123456789.eE+-") != std::string_view::npos) return std::nullopt;
  if (text.starts_with('-')) return std::nullopt;
  double value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error == std::errc::invalid_argument || stop != end) return std::nullopt;
  if (error == std::errc::result_out_of_range) return OutOfRange(text, negative);
  return negative ? -value : value;
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

std::uint16_t TruncatedWord(double value, double scale) {
  const double scaled = value * scale + kRoundingLoss;
  if (!(scaled > 0)) return 0;
  constexpr std::uint16_t kLargest = std::numeric_limits<std::uint16_t>::max();
  return scaled >= kLargest ? kLargest : static_cast<std::uint16_t>(scaled);
}

}  // namespace zelorgas
