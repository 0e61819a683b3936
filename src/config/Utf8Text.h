// Texts from files and from strangers, made fit for a person: valid UTF-8, and short enough for
// where they are shown. Pure functions, for any thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zelorgas {

// How many bytes the well-formed UTF-8 character has that `text` begins with; 0 when it begins with
// none.
[[nodiscard]] std::size_t Utf8Length(std::string_view text);

[[nodiscard]] bool IsUtf8(std::string_view text);

// `text` with each byte that is no UTF-8 taken for a character of Latin-1. A valid text stays.
[[nodiscard]] std::string ValidUtf8(std::string text);

// A person reads no more of a message or a tool tip, and it still fits a screen.
inline constexpr std::size_t kLongestMessage = 1500;  // bytes
inline constexpr std::size_t kMostMessageLines = 25;

// `text`; or its beginning with an ellipsis behind it when it has more than `longest` bytes or
// `most_lines` lines. No character is cut in two.
[[nodiscard]] std::string Shortened(std::string_view text, std::size_t longest = kLongestMessage,
                                    std::size_t most_lines = kMostMessageLines);

}  // namespace zelorgas
