#include "cli/JsonWriter.h"

#include <cstddef>

#include "cli/Text.h"

namespace zelorgas {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

unsigned ByteAt(std::string_view text, std::size_t index) {
  return static_cast<unsigned char>(text[index]);
}

// Length of the well-formed UTF-8 character that `text` begins with; 0 when there is none.
std::size_t Utf8Length(std::string_view text) {
  const unsigned lead = ByteAt(text, 0);
  const std::size_t length = lead < 0x80   ? 1
                             : lead < 0xC2 ? 0
                             : lead < 0xE0 ? 2
                             : lead < 0xF0 ? 3
                             : lead < 0xF5 ? 4
                                           : 0;
  if (length < 2) return length;
  if (text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((ByteAt(text, i) & 0xC0U) != 0x80U) return 0;
  }
  const unsigned second = ByteAt(text, 1);
  // Over-long forms, surrogates, and what lies beyond the last code point.
  const bool ill_formed = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                          (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
  return ill_formed ? 0 : length;
}

}  // namespace

JsonWriter& JsonWriter::Begin(char bracket) {
  Separate();
  text_ += bracket;
  first_ = true;
  return *this;
}

JsonWriter& JsonWriter::End(char bracket) {
  text_ += bracket;
  first_ = false;
  return *this;
}

void JsonWriter::Separate() {
  if (!first_) text_ += ',';
  first_ = false;
}

JsonWriter& JsonWriter::Key(std::string_view name) {
  Separate();
  AppendQuoted(name);
  text_ += ':';
  first_ = true;
  return *this;
}

JsonWriter& JsonWriter::String(std::string_view text) {
  Separate();
  AppendQuoted(text);
  return *this;
}

JsonWriter& JsonWriter::Number(std::uint32_t number) {
  Separate();
  text_ += std::to_string(number);
  return *this;
}

JsonWriter& JsonWriter::Decimal(double value, int decimals) {
  Separate();
  text_ += FormatFixed(value, decimals);
  return *this;
}

JsonWriter& JsonWriter::Bool(bool value) {
  Separate();
  text_ += value ? "true" : "false";
  return *this;
}

JsonWriter& JsonWriter::Null() {
  Separate();
  text_ += "null";
  return *this;
}

void JsonWriter::AppendQuoted(std::string_view text) {
  text_ += '"';
  while (!text.empty()) {
    const unsigned byte = ByteAt(text, 0);
    const std::size_t length = Utf8Length(text);
    if (byte == '"' || byte == '\\') {
      text_ += '\\';
      text_ += text.front();
    } else if (length == 0 || byte < 0x20 || byte == 0x7F) {
      text_ += "\\u00";
      text_ += kHexDigits[byte >> 4U];
      text_ += kHexDigits[byte & 0xFU];
    } else {
      text_ += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  text_ += '"';
}

}  // namespace zelorgas
