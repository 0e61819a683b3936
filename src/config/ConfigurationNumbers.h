// Numbers as configuration files hold them and the program shows them, whatever the system's
// language: the point is ".", and digits are not grouped. Pure functions, for any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zelorgas {

// The whole number to the base 10 that is the whole text; white space before it and a sign are
// taken. Nothing for any other text. A number that 32 bits cannot hold gives the nearest one that
// they can.
[[nodiscard]] std::optional<std::int32_t> ParseSigned(std::string_view text);
// The same as an unsigned number; a negative one counts back from 2^32.
[[nodiscard]] std::optional<std::uint32_t> ParseUnsigned(std::string_view text);

// The decimal number that is the whole text, "1.25", "-3" or "4e2", as a double; 0 when it is
// too small for one. White space and a sign in front are taken. Nothing for a decimal comma, for
// "inf" and "nan", and for what is too large for a double.
[[nodiscard]] std::optional<double> ParseFileDecimal(std::string_view text);

// Whether a decimal number, written without its sign, that is no double lies below the doubles
// rather than above them: the place of its first digit tells.
[[nodiscard]] bool IsBelowDoubles(std::string_view number);

// As "%d".
void AppendInteger(std::string& text, int number);
// As "%.2f" for `decimals` 2, of which there are at most 40.
void AppendFixed(std::string& text, double number, int decimals);
[[nodiscard]] std::string FormatFixed(double number, int decimals);
// The low `count` bits of `bits`, bit 0 first: "1;0;0".
void AppendBits(std::string& text, unsigned bits, std::size_t count);

}  // namespace zelorgas
