// The numbers of recordings: written with two decimals, read as any decimal number. The point is
// the decimal sign whatever the locale. Pure functions, safe from any thread.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace zelorgas {

// The values as "%.2f" writes them, joined by ";": the exact binary value decides how a half is
// rounded.
[[nodiscard]] std::string JoinHundredths(const std::deque<double>& values);

// The number that `text` is as a whole, white space and a plus sign in front allowed; 0 when it is
// too small for a double. Nothing for anything else, "inf", "nan" and numbers too large for a
// double included.
[[nodiscard]] std::optional<double> ReadDecimal(std::string_view text);

}  // namespace zelorgas
