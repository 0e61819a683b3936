// Numbers as a person types and reads them, whatever the system's language: shown with a point,
// taken with a point or a comma, which the keypad of many keyboards has. Pure functions, for any
// thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zelorgas {

// Far above what the arithmetic of an edit loses or adds, far below a digit that anybody types.
inline constexpr double kRoundingLoss = 1e-9;

// The number that is the whole text; blanks before it and a sign are taken. Nothing for a text that
// is no number, goes on after it, or says "inf" or "nan". A number too large for a double is the
// largest one, one too small is 0.
[[nodiscard]] std::optional<double> ParseDecimal(std::string_view typed);

// Without the blanks at both ends.
[[nodiscard]] std::string_view Trimmed(std::string_view text);

// value x scale without its fraction, as a register word; 0 or 65535 for what no word holds. The
// decimal number counts, not its binary form: 1.15 x 100 is 115, though a hair less in binary, and
// so every word / scale gives that word again.
[[nodiscard]] std::uint16_t TruncatedWord(double value, double scale);

}  // namespace zelorgas
