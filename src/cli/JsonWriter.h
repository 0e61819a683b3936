// Builds one JSON document on one line. The caller keeps the order: inside an object every value
// follows its Key, and what was begun is ended. Used by one thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zelorgas {

class JsonWriter {
 public:
  JsonWriter& BeginObject() { return Begin('{'); }
  JsonWriter& EndObject() { return End('}'); }
  JsonWriter& BeginArray() { return Begin('['); }
  JsonWriter& EndArray() { return End(']'); }

  JsonWriter& Key(std::string_view name);
  // UTF-8 passes through; a byte that is not part of any becomes the character of its number, so
  // that the document stays valid whatever came from the line.
  JsonWriter& String(std::string_view text);
  JsonWriter& Number(std::uint32_t number);
  // With `decimals` digits behind the point.
  JsonWriter& Decimal(double value, int decimals);
  JsonWriter& Bool(bool value);
  JsonWriter& Null();

  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  JsonWriter& Begin(char bracket);
  JsonWriter& End(char bracket);
  void Separate();
  void AppendQuoted(std::string_view text);

  std::string text_;
  bool first_ = true;  // nothing stands before the next value in its array or object
};

}  // namespace zelorgas
