// Numbers in what the simulated ECU is told. Pure, safe from any thread.
#pragma once

#include <charconv>
#include <string_view>
#include <system_error>

namespace zelorgas {

// The whole of `text` as a number; false when it is none, or one that `Number` cannot hold.
template <typename Number>
[[nodiscard]] bool ParseWhole(std::string_view text, Number& number) {
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  return error == std::errc{} && stop == end;
}

}  // namespace zelorgas
