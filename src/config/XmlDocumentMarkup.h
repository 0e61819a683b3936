// The pieces of an XML text: where one begins and ends, names and attributes, and the five
// character references. Pure functions, safe from any thread; none recurses, each looks at a
// character a bounded number of times.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "config/XmlDocumentFindings.h"
#include "platform/Message.h"

namespace zelorgas {

// Blank, tab, line feed or carriage return.
[[nodiscard]] bool IsXmlSpace(char c);
// `text` without the white space at its two ends.
[[nodiscard]] std::string_view TrimXmlSpace(std::string_view text);
// Where the name that begins at `offset` ends: at white space, one of <>=\/?! or the text's end.
[[nodiscard]] std::size_t XmlNameEnd(std::string_view text, std::size_t offset);

// With the five special characters as references, and with those five references replaced back. Any
// other reference stays as it is.
void AppendEscaped(std::string& out, std::string_view value);
[[nodiscard]] std::string Unescaped(std::string_view text);
// As one CDATA section, or as several where `text` holds "]]>".
void AppendCdata(std::string& out, std::string_view text);

// An attribute in its start tag; places are relative to the text it was read from.
struct XmlAttribute {
  std::size_t name = 0;
  std::size_t name_end = 0;
  std::size_t value = 0;  // without the quotes
  std::size_t value_end = 0;
  std::size_t end = 0;     // behind the attribute, its closing quote included
  bool has_value = false;  // there is a "="
  bool quoted = false;
};

// Reads the attributes of a start tag one after the other.
class XmlTagReader {
 public:
  enum class Step : std::uint8_t { kAttribute, kEnd, kEmptyEnd, kUnterminated };

  // `offset`: behind the element's name. `findings` may be null.
  XmlTagReader(std::string_view text, std::size_t offset, XmlFindings* findings)
      : text_(text), offset_(offset), findings_(findings) {}

  // kAttribute: `attribute` is the next one. kEnd, kEmptyEnd: the tag ends with ">" or "/>", and
  // Offset is behind it. kUnterminated: it does not end; Offset is where other markup or the end of
  // the text cuts it off.
  Step Next(XmlAttribute& attribute);
  [[nodiscard]] std::size_t Offset() const { return offset_; }

 private:
  // False when its value does not end.
  bool ReadAttribute(XmlAttribute& attribute);
  void Incorrect(std::size_t offset);

  std::string_view text_;
  std::size_t offset_;
  XmlFindings* findings_;
};

// A piece of markup that is no element's tag.
struct XmlMarkup {
  enum class Kind : std::uint8_t {
    kComment,
    kCdata,
    kInstruction,
    kDoctype,
    kIncorrectTag,
    kIncorrectComment,
  };
  Kind kind = Kind::kIncorrectTag;
  std::size_t content = 0;  // between the delimiters
  std::size_t content_end = 0;
  std::size_t end = 0;  // behind it
  bool terminated = true;

  // As findings call it: "Comment", "CDATA Section", ...
  [[nodiscard]] FixedText Name() const;
};

// The markup that begins at `offset` with "<!" or "<?".
[[nodiscard]] XmlMarkup ReadXmlMarkup(std::string_view text, std::size_t offset);

}  // namespace zelorgas
