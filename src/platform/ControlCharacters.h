// Characters that command a terminal or a printer instead of showing something. Pure, safe from any
// thread.
#pragma once

namespace zelorgas {

// Of ASCII.
[[nodiscard]] constexpr bool IsControl(char c) {
  const auto code = static_cast<unsigned char>(c);
  return code < 0x20 || code == 0x7F;
}

}  // namespace zelorgas
