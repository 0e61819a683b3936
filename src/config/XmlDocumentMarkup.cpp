#include "config/XmlDocumentMarkup.h"

#include <algorithm>
#include <array>

namespace zelorgas {
namespace {

constexpr std::string_view kSpaces = " \t\n\r";
constexpr std::string_view kNameEnds = "<>=\\/?!";
constexpr std::string_view kCdataStart = "<![CDATA[";
constexpr std::string_view kCdataEnd = "]]>";

// What a character may mean, for one look-up a character.
enum CharacterClass : std::uint8_t { kOther = 0, kSpace = 1, kNameEnd = 2, kSpecial = 4 };

constexpr std::array<std::uint8_t, 256> kClasses = [] {
  std::array<std::uint8_t, 256> classes{};
  for (const char c : kSpaces) classes[static_cast<unsigned char>(c)] |= kSpace;
  for (const char c : kNameEnds) classes[static_cast<unsigned char>(c)] |= kNameEnd;
  for (const char c : std::string_view("<&>'\""))
    classes[static_cast<unsigned char>(c)] |= kSpecial;
  return classes;
}();

bool Is(char c, unsigned classes) {
  return (kClasses[static_cast<unsigned char>(c)] & classes) != 0;
}

struct Reference {
  char character;
  std::string_view text;
};
constexpr std::array<Reference, 5> kReferences{
    {{'<', "&lt;"}, {'&', "&amp;"}, {'>', "&gt;"}, {'\'', "&apos;"}, {'"', "&quot;"}}};

bool StartsAt(std::string_view text, std::size_t offset, std::string_view what) {
  return text.substr(offset, what.size()) == what;
}

// Markup up to the next `closing`.
XmlMarkup Delimited(XmlMarkup::Kind kind, std::string_view text, std::size_t content,
                    std::string_view closing) {
  const std::size_t found = text.find(closing, content);
  if (found == std::string_view::npos) {
    return {kind, content, text.size(), text.size(), false};
  }
  return {kind, content, found, found + closing.size(), true};
}

// A document type may hold declarations in brackets, and these quotations and comments in which a
// bracket is only a character.
XmlMarkup ReadDoctype(std::string_view text, std::size_t content) {
  constexpr std::string_view kCommentStart = "<!--";
  constexpr std::string_view kCommentEnd = "-->";
  const XmlMarkup unterminated{XmlMarkup::Kind::kDoctype, content, text.size(), text.size(), false};
  bool in_brackets = false;
  std::size_t at = content;
  while (at < text.size()) {
    const char c = text[at];
    if (c == '>' && !in_brackets) return {XmlMarkup::Kind::kDoctype, content, at, at + 1, true};
    if (c == '[') in_brackets = true;
    if (c == ']') in_brackets = false;
    std::size_t closing = at;
    if (c == '"' || c == '\'') {
      closing = text.find(c, at + 1);
    } else if (c == '<' && StartsAt(text, at, kCommentStart)) {
      closing = text.find(kCommentEnd, at + kCommentStart.size());
    }
    if (closing == std::string_view::npos) return unterminated;
    at = closing + 1;
  }
  return unterminated;
}

}  // namespace

bool IsXmlSpace(char c) { return Is(c, kSpace); }

std::string_view TrimXmlSpace(std::string_view text) {
  while (!text.empty() && IsXmlSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsXmlSpace(text.back())) text.remove_suffix(1);
  return text;
}

std::size_t XmlNameEnd(std::string_view text, std::size_t offset) {
  while (offset < text.size() && !Is(text[offset], kSpace | kNameEnd)) ++offset;
  return offset;
}

void AppendEscaped(std::string& out, std::string_view value) {
  // Long values are lists of numbers, which five quick searches settle.
  constexpr std::size_t kLong = 256;
  if (value.size() > kLong && std::ranges::all_of(kReferences, [&](const Reference& reference) {
        return value.find(reference.character) == std::string_view::npos;
      })) {
    out += value;
    return;
  }
  std::size_t done = 0;
  for (std::size_t at = 0; at < value.size(); ++at) {
    if (!Is(value[at], kSpecial)) continue;
    out.append(value, done, at - done);
    done = at + 1;
    for (const Reference& reference : kReferences) {
      if (reference.character == value[at]) out += reference.text;
    }
  }
  out.append(value, done, value.size() - done);
}

std::string Unescaped(std::string_view text) {
  std::string out;
  std::size_t at = text.find('&');
  if (at == std::string_view::npos) return std::string(text);
  out.reserve(text.size());
  std::size_t done = 0;
  for (; at != std::string_view::npos; at = text.find('&', at + 1)) {
    for (const Reference& reference : kReferences) {
      if (!StartsAt(text, at, reference.text)) continue;
      out.append(text, done, at - done);
      out += reference.character;
      done = at + reference.text.size();
      break;
    }
  }
  return out.append(text, done);
}

void AppendCdata(std::string& out, std::string_view text) {
  out += kCdataStart;
  for (std::size_t found = text.find(kCdataEnd); found != std::string_view::npos;
       found = text.find(kCdataEnd)) {
    // The two brackets end one section, the rest begins the next.
    const std::size_t kept = found + kCdataEnd.size() - 1;
    out.append(text, 0, kept).append(kCdataEnd).append(kCdataStart);
    text.remove_prefix(kept);
  }
  out.append(text).append(kCdataEnd);
}

XmlTagReader::Step XmlTagReader::Next(XmlAttribute& attribute) {
  while (offset_ < text_.size()) {
    const char c = text_[offset_];
    if (IsXmlSpace(c)) {
      ++offset_;
      continue;
    }
    if (c == '<') return Step::kUnterminated;
    if (c == '>') {
      ++offset_;
      return Step::kEnd;
    }
    if (c == '/' && StartsAt(text_, offset_, "/>")) {
      offset_ += 2;
      return Step::kEmptyEnd;
    }
    if (c != '=' && Is(c, kNameEnd)) {
      Incorrect(offset_++);
      continue;
    }
    return ReadAttribute(attribute) ? Step::kAttribute : Step::kUnterminated;
  }
  return Step::kUnterminated;
}

bool XmlTagReader::ReadAttribute(XmlAttribute& attribute) {
  attribute = {.name = offset_, .name_end = XmlNameEnd(text_, offset_)};
  offset_ = attribute.end = attribute.name_end;
  if (attribute.name == attribute.name_end) Incorrect(attribute.name);
  // A quotation mark without its partner shows up here.
  if (findings_ != nullptr) {
    const std::size_t mark =
        text_.substr(0, attribute.name_end).find_first_of("\"'", attribute.name);
    if (mark != std::string_view::npos) Incorrect(mark);
  }
  std::size_t at = attribute.name_end;
  while (at < text_.size() && IsXmlSpace(text_[at])) ++at;
  if (at == text_.size() || text_[at] != '=') return true;
  const std::size_t behind_equals = ++at;
  while (at < text_.size() && IsXmlSpace(text_[at])) ++at;
  attribute.has_value = true;
  const char quote = at < text_.size() ? text_[at] : '\0';
  if (quote != '"' && quote != '\'') {
    // Without quotes a value must follow at once: what comes later is the next attribute.
    at = attribute.value = behind_equals;
    constexpr std::string_view kEnds = "<>/";
    while (at < text_.size() && !IsXmlSpace(text_[at]) &&
           kEnds.find(text_[at]) == std::string_view::npos) {
      ++at;
    }
    offset_ = attribute.value_end = attribute.end = at;
    return true;
  }
  attribute.quoted = true;
  attribute.value = at + 1;
  attribute.value_end = text_.find(quote, at + 1);
  if (attribute.value_end == std::string_view::npos) {
    // The rest of the text is no value: reading goes on with the next markup.
    offset_ = std::min(text_.find('<', at), text_.size());
    return false;
  }
  offset_ = attribute.end = attribute.value_end + 1;
  return true;
}

void XmlTagReader::Incorrect(std::size_t offset) {
  if (findings_ != nullptr) findings_->Incorrect(FixedText::Of("name character"), offset);
}

FixedText XmlMarkup::Name() const {
  switch (kind) {
    case Kind::kComment:
      return FixedText::Of("Comment");
    case Kind::kCdata:
      return FixedText::Of("CDATA Section");
    case Kind::kInstruction:
      return FixedText::Of("Processing instruction");
    case Kind::kDoctype:
      return FixedText::Of("Doctype");
    default:
      return {};
  }
}

XmlMarkup ReadXmlMarkup(std::string_view text, std::size_t offset) {
  using Kind = XmlMarkup::Kind;
  constexpr std::string_view kDoctypeStart = "<!DOCTYPE";
  const auto starts = [&](std::string_view what) { return StartsAt(text, offset, what); };
  if (starts("<?")) return Delimited(Kind::kInstruction, text, offset + 2, "?>");
  if (starts("<!--")) return Delimited(Kind::kComment, text, offset + 4, "-->");
  if (starts(kCdataStart)) {
    return Delimited(Kind::kCdata, text, offset + kCdataStart.size(), kCdataEnd);
  }
  if (starts(kDoctypeStart)) return ReadDoctype(text, offset + kDoctypeStart.size());
  const Kind kind = starts("<!-") ? Kind::kIncorrectComment : Kind::kIncorrectTag;
  return {kind, offset, offset + 2, offset + 2, true};
}

}  // namespace zelorgas
