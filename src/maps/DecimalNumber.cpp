#include "maps/DecimalNumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

namespace zelorgas {
namespace {

// Far above what the arithmetic of an edit loses, far below a digit that anybody types.
constexpr double kRoundingLoss = 1e-9;

// Of the first digit that counts, in powers of ten: 2 for "0123.4", -3 for "0.001".
std::int64_t DecimalOrder(std::string_view number) {
  const std::size_t mantissa_end = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, mantissa_end);
  const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
  const std::int64_t order = first < point ? point - first - 1 : point - first;
  std::string_view typed = number.substr(std::min(mantissa_end + 1, number.size()));
  if (typed.starts_with('+')) typed.remove_prefix(1);
  std::int64_t exponent = 0;
  if (std::from_chars(typed.data(), typed.data() + typed.size(), exponent).ec ==
      std::errc::result_out_of_range) {
    return typed.starts_with('-') ? -1 : 1;
  }
  // No mantissa is so long that it would make up for more.
  constexpr std::int64_t kMuch = std::int64_t{1} << 60;
  return order + std::clamp(exponent, -kMuch, kMuch);
}

// What from_chars leaves to us when the number does not fit a double.
double OutOfRange(std::string_view number, bool negative) {
  if (DecimalOrder(number) < 0) return 0;
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

std::string FormatFixed(double value, int decimals) {
  // The longest double has 309 digits before its point.
  std::array<char, 352> text{};
  const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value,
                                          std::chars_format::fixed, decimals);
  return error == std::errc() ? std::string(text.data(), end) : std::string();
}

std::uint16_t TruncatedWord(double value, double scale) {
  const double scaled = value * scale + kRoundingLoss;
  if (!(scaled > 0)) return 0;
  constexpr std::uint16_t kLargest = std::numeric_limits<std::uint16_t>::max();
  return scaled >= kLargest ? kLargest : static_cast<std::uint16_t>(scaled);
}

}  // namespace zelorgas
