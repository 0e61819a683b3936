#include "cli/JsonWriter.h"

#include <cstddef>

#include "cli/Text.h"
#include "config/Utf8Text.h"
#include "platform/ControlCharacters.h"

namespace zelorgas {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

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
    const auto byte = static_cast<unsigned char>(text.front());
    const std::size_t length = Utf8Length(text);
    if (byte == '"' || byte == '\\') {
      text_ += '\\';
      text_ += text.front();
    } else if (length == 0 || IsControl(text.front())) {
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
