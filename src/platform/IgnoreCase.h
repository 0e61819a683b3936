// Comparing words without regard to the case of their Latin letters. Pure, safe from any thread.
#pragma once

#include <algorithm>
#include <string_view>

namespace zelorgas {

[[nodiscard]] constexpr char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] constexpr char ToUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

[[nodiscard]] constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, ToLower, ToLower);
}

[[nodiscard]] constexpr bool EndsWithIgnoringCase(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && EqualIgnoringCase(text.substr(text.size() - end.size()), end);
}

}  // namespace zelorgas
