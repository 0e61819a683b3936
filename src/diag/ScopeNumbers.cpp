#include "diag/ScopeNumbers.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "config/ConfigurationNumbers.h"

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
  return ParseFileDecimal(text);
}

}  // namespace zelorgas
