#include "config/Utf8Text.h"

#include <algorithm>

namespace zelorgas {
namespace {

unsigned ByteAt(std::string_view text, std::size_t index) {
  return static_cast<unsigned char>(text[index]);
}

// How many bytes a character has that begins with `lead`; 0 when none does.
std::size_t CharacterLength(unsigned lead) {
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  return lead >= 0xF0 && lead <= 0xF4 ? 4 : 0;
}

}  // namespace

std::size_t Utf8Length(std::string_view text) {
  if (text.empty()) return 0;
  const unsigned lead = ByteAt(text, 0);
  const std::size_t length = CharacterLength(lead);
  if (length < 2) return length;
  if (text.size() < length) return 0;
  const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  if (!std::ranges::all_of(text.substr(1, length - 1), continues)) return 0;
  const unsigned second = ByteAt(text, 1);
  // Forms that are too long, surrogates, and what lies past the last character.
  const bool ill_formed = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                          (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
  return ill_formed ? 0 : length;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string ValidUtf8(std::string text) {
  if (IsUtf8(text)) return text;
  std::string valid;
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t length = Utf8Length(rest);
    if (length > 0) {
      valid += rest.substr(0, length);
    } else {
      const unsigned byte = ByteAt(rest, 0);
      valid += static_cast<char>(0xC0U | byte >> 6U);
      valid += static_cast<char>(0x80U | (byte & 0x3FU));
    }
    rest.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return valid;
}

std::string Shortened(std::string_view text, std::size_t longest, std::size_t most_lines) {
  std::size_t end = std::min(text.size(), longest);
  // Not between the bytes of a character.
  while (end > 0 && end < text.size() && (ByteAt(text, end) & 0xC0U) == 0x80U) --end;
  std::size_t lines = 0;
  for (std::size_t i = 0; i < end; ++i) {
    if (text[i] == '\n' && ++lines == most_lines) end = i;
  }
  std::string shortened(text.substr(0, end));
  // A line break at the very end leaves nothing out.
  if (text.find_first_not_of("\r\n", end) != std::string_view::npos) shortened += "...";
  return shortened;
}

}  // namespace zelorgas
