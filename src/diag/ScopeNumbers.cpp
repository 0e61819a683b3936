#include "diag/ScopeNumbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>

#include "config/XmlDocumentMarkup.h"

namespace zelorgas {
namespace {

// The longest text of a double with two decimals has 309 digits before the point.
constexpr std::size_t kLongestFixed = 320;

char Digit(std::uint32_t digit) { return static_cast<char>('0' + digit); }

std::size_t DigitCount(std::uint32_t number) {
  std::size_t count = 1;
  for (std::uint64_t limit = 10; limit <= number; limit *= 10) ++count;
  return count;
}

// Whether `value` x 100, which as a double is `product` and lies in the middle between two whole
// numbers, is to be rounded up to the next one behind `below`.
bool RoundsUp(double value, double product, std::uint32_t below) {
  // What rounding took away. Each of the two parts of the value is short enough for an exact
  // product.
  const auto high = static_cast<double>(static_cast<float>(value));
  const double lost = (high * 100 - product) + (value - high) * 100;
  return lost > 0 || (lost == 0 && below % 2 != 0);
}

// Gives the end of what it has written, at most kLongestFixed characters.
char* WriteHundredths(char* out, double value) {
  constexpr double kQuickBelow = 4e9;
  const double size = std::abs(value);
  const double hundredths = size * 100;
  if (!(hundredths < kQuickBelow)) {
    return std::to_chars(out, out + kLongestFixed, value, std::chars_format::fixed, 2).ptr;
  }
  auto digits = static_cast<std::uint32_t>(hundredths);
  const double rest = hundredths - digits;
  // The product is rounded itself, but never across the middle.
  digits +=
      static_cast<std::uint32_t>(rest > 0.5 || (rest == 0.5 && RoundsUp(size, hundredths, digits)));
  if (std::signbit(value)) *out++ = '-';
  std::uint32_t whole = digits / 100;
  const std::uint32_t decimals = digits % 100;
  char* const end = out + DigitCount(whole);
  char* at = end;
  do {
    *--at = Digit(whole % 10);
    whole /= 10;
  } while (whole != 0);
  end[0] = '.';
  end[1] = Digit(decimals / 10);
  end[2] = Digit(decimals % 10);
  return end + 3;
}

// Digits with at most two decimals, as this program writes them: their number of hundredths is
// exact, and so its hundredth part is the nearest double. False for any other text.
bool ReadHundredths(std::string_view text, double& value) {
  constexpr std::size_t kMostCharacters = 15;
  const bool negative = !text.empty() && text.front() == '-';
  if (negative) text.remove_prefix(1);
  const std::size_t point = text.size() < 4 ? std::string_view::npos : text.size() - 3;
  if (text.size() > kMostCharacters || point == std::string_view::npos || text[point] != '.') {
    return false;
  }
  std::int64_t hundredths = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (i == point) continue;
    const auto digit = static_cast<unsigned>(static_cast<unsigned char>(text[i]) - '0');
    if (digit > 9) return false;
    hundredths = hundredths * 10 + static_cast<std::int64_t>(digit);
  }
  value = static_cast<double>(hundredths) / 100;
  if (negative) value = -value;
  return true;
}

// Whether a decimal number, written without its sign, that is no double lies below the doubles
// rather than above them: the place of its first digit tells.
bool IsTooSmall(std::string_view number) {
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

}  // namespace

std::string JoinHundredths(const std::deque<double>& values) {
  constexpr std::size_t kBlock = 4096;
  std::array<char, kBlock + kLongestFixed + 1> block{};
  std::string text;
  char* at = block.data();
  for (const double value : values) {
    at = WriteHundredths(at, value);
    *at++ = ';';
    if (at < block.data() + kBlock) continue;
    text.append(block.data(), at);
    at = block.data();
  }
  text.append(block.data(), at);
  if (!text.empty()) text.pop_back();
  return text;
}

std::optional<double> ReadDecimal(std::string_view text) {
  double value = 0;
  if (ReadHundredths(text, value)) return value;
  while (!text.empty() && IsXmlSpace(text.front())) text.remove_prefix(1);
  if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (stop != end) return std::nullopt;
  if (error == std::errc::result_out_of_range) {
    const bool negative = text.starts_with('-');
    if (!IsTooSmall(text.substr(negative ? 1 : 0))) return std::nullopt;
    return negative ? -0.0 : 0.0;
  }
  if (error != std::errc() || !std::isfinite(value)) return std::nullopt;
  return value;
}

}  // namespace zelorgas
