// Comparing words without regard to the case of their Latin letters. Pure, safe from any thread.
#pragma once

#include <algorithm>
#include <string_view>

namespace zelorgas {

[[nodiscard]] constexpr char ToLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, ToLower, ToLower);
}

}  // namespace zelorgas
