#include "platform/IniText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>

#include "platform/ControlCharacters.h"
#include "platform/IgnoreCase.h"

namespace zelorgas {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kCommentMarks = ";#";
constexpr char kQuote = '"';
constexpr int kHex = 16;

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

enum class LineKind : std::uint8_t { kBlank, kComment, kSection, kValue, kUnknown };

struct Line {
  LineKind kind = LineKind::kUnknown;
  std::string_view name;   // of the section or key
  std::string_view value;  // as written
};

Line Understand(std::string_view raw) {
  const std::string_view text = Trim(raw);
  if (text.empty()) return {LineKind::kBlank, {}, {}};
  if (kCommentMarks.find(text.front()) != std::string_view::npos) {
    return {LineKind::kComment, {}, {}};
  }
  if (text.front() == '[') {
    if (text.back() != ']') return {};
    return {LineKind::kSection, Trim(text.substr(1, text.size() - 2)), {}};
  }
  const std::size_t equals = text.find('=');
  if (equals == 0 || equals == std::string_view::npos) return {};
  return {LineKind::kValue, Trim(text.substr(0, equals)), Trim(text.substr(equals + 1))};
}

bool IsDamaged(std::string_view raw) {
  const std::string_view text = Trim(raw);
  const bool control = std::ranges::any_of(text, [](char c) { return IsControl(c) && c != '\t'; });
  return control || Understand(text).kind == LineKind::kUnknown;
}

bool CanBeName(std::string_view name, std::string_view forbidden) {
  return !name.empty() && Trim(name) == name && std::ranges::none_of(name, IsControl) &&
         name.find_first_of(forbidden) == std::string_view::npos;
}

// Plain where a plain value reads back the same; else in quotes, with escapes.
std::string WriteValue(std::string_view value) {
  const bool plain =
      Trim(value) == value && !value.starts_with(kQuote) && std::ranges::none_of(value, IsControl);
  if (plain) return std::string(value);
  std::string written(1, kQuote);
  for (const char c : value) {
    if (IsControl(c)) {
      std::array<char, 5> escape{};
      std::snprintf(escape.data(), escape.size(), "\\x%02x", static_cast<unsigned>(c));
      written += escape.data();
    } else {
      if (c == kQuote || c == '\\') written += '\\';
      written += c;
    }
  }
  return written + kQuote;
}

// Takes one character of a quoted value off the front of `text`. Nothing when the quoting is wrong.
std::optional<char> TakeQuoted(std::string_view& text) {
  const char first = text.front();
  text.remove_prefix(1);
  if (first == kQuote) return std::nullopt;
  if (first != '\\') return first;
  if (text.empty()) return std::nullopt;
  const char escaped = text.front();
  text.remove_prefix(1);
  if (escaped == kQuote || escaped == '\\') return escaped;
  if (escaped != 'x' || text.size() < 2) return std::nullopt;
  unsigned char code = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + 2, code, kHex);
  if (error != std::errc() || end != text.data() + 2) return std::nullopt;
  text.remove_prefix(2);
  return static_cast<char>(code);
}

// What WriteValue wrote. A value with wrong quoting, which a person wrote, is taken as it stands.
std::string ReadValue(std::string_view written) {
  const bool quoted = written.size() >= 2 && written.front() == kQuote && written.back() == kQuote;
  if (!quoted) return std::string(written);
  std::string value;
  for (std::string_view rest = written.substr(1, written.size() - 2); !rest.empty();) {
    const std::optional<char> c = TakeQuoted(rest);
    if (!c) return std::string(written);
    value += *c;
  }
  return value;
}

}  // namespace

std::optional<IniText> IniText::Parse(std::string_view text) {
  // Editors of some systems put it in front of everything.
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  IniText ini;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    if (IsDamaged(line)) return std::nullopt;
    ini.lines_.emplace_back(line);
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  return ini;
}

IniText::Place IniText::Find(std::string_view section, std::string_view key) const {
  Place place;
  bool inside = false;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Line line = Understand(lines_[i]);
    if (line.kind == LineKind::kSection) inside = EqualIgnoringCase(line.name, section);
    if (!inside || line.kind == LineKind::kBlank) continue;
    place.section_end = i + 1;
    if (line.kind == LineKind::kValue && !place.line && EqualIgnoringCase(line.name, key)) {
      place.line = i;
    }
  }
  return place;
}

std::optional<std::string> IniText::Value(std::string_view section, std::string_view key) const {
  const Place place = Find(section, key);
  if (!place.line) return std::nullopt;
  return ReadValue(Understand(lines_[*place.line]).value);
}

bool IniText::SetValue(std::string_view section, std::string_view key, std::string_view value) {
  if (!CanBeName(section, "[]") || !CanBeName(key, "=[;#")) return false;
  Place place = Find(section, key);
  const std::string line = std::string(key) + "=" + WriteValue(value);
  if (place.line) {
    lines_[*place.line] = line;
    return true;
  }
  if (place.section_end == 0) {
    if (!lines_.empty() && !Trim(lines_.back()).empty()) lines_.emplace_back();
    lines_.push_back("[" + std::string(section) + "]");
    place.section_end = lines_.size();
  }
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place.section_end), line);
  return true;
}

std::string IniText::Text() const {
  std::string text;
  for (const std::string& line : lines_) text += line + "\n";
  return text;
}

}  // namespace zelorgas
