#include "config/XmlDocument.h"

#include <utility>

#include "platform/FileSystem.h"

namespace zelorgas {
namespace {

constexpr std::string_view kLineBreak = "\r\n";
constexpr std::string_view kEmptyTagEnd = "/>";

}  // namespace

void XmlDocument::SetDocumentText(std::string text) {
  text_ = std::move(text);
  index_ = IndexXml(text_);
  attributes_ = {};
  ResetPosition();
}

std::string XmlDocument::ErrorText() const {
  Message lines;
  for (const Message& finding : Findings()) lines.Append("\n", finding);
  return lines.English();
}

bool XmlDocument::Load(const std::filesystem::path& path, std::uintmax_t largest) {
  std::string text;
  Message reason;
  if (!ReadWholeFile(path, text, reason, largest)) {
    result_ = {FixedText::Of("Cannot open %1: %2, 0 bytes"), PathText(path), reason};
    return false;
  }
  SetDocumentText(std::move(text));
  result_ = {FixedText::Of("Loaded %1 bytes"), text_.size()};
  return true;
}

bool XmlDocument::Save(const std::filesystem::path& path) {
  Message reason;
  const bool saved = WriteWholeFile(path, text_, reason);
  result_ = saved ? Message(FixedText::Of("Saved %1 bytes"), text_.size())
                  : Message(FixedText::Of("Cannot write %1: %2, 0 bytes"), PathText(path), reason);
  return saved;
}

void XmlDocument::ResetPosition() { parent_ = main_ = child_ = XmlIndex::kNone; }

bool XmlDocument::FindElement(std::string_view name) {
  const Position first = main_ == XmlIndex::kNone ? At(parent_).first_child : At(main_).next;
  const Position found = FindFrom(first, name);
  if (found == XmlIndex::kNone) return false;
  main_ = found;
  child_ = XmlIndex::kNone;
  return true;
}

bool XmlDocument::FindChildElement(std::string_view name) {
  if (main_ == XmlIndex::kNone) return false;
  const Position first = child_ == XmlIndex::kNone ? At(main_).first_child : At(child_).next;
  const Position found = FindFrom(first, name);
  if (found == XmlIndex::kNone) return false;
  child_ = found;
  return true;
}

bool XmlDocument::EnterElement() {
  if (main_ == XmlIndex::kNone) return false;
  parent_ = std::exchange(main_, std::exchange(child_, XmlIndex::kNone));
  return true;
}

bool XmlDocument::LeaveElement() {
  if (parent_ == XmlIndex::kNone) return false;
  child_ = std::exchange(main_, parent_);
  parent_ = At(main_).parent;
  return true;
}

void XmlDocument::AddElement(std::string_view name, std::optional<std::string_view> value) {
  main_ = Insert(parent_, main_, name, value);
  child_ = XmlIndex::kNone;
}

bool XmlDocument::AddChildElement(std::string_view name, std::optional<std::string_view> value) {
  if (main_ == XmlIndex::kNone) return false;
  child_ = Insert(main_, XmlIndex::kNone, name, value);
  return true;
}

bool XmlDocument::SetAttribute(std::string_view name, std::string_view value) {
  return PutAttribute(main_, name, value);
}
bool XmlDocument::SetAttribute(std::string_view name, int value) {
  return PutAttribute(main_, name, std::to_string(value));
}
bool XmlDocument::SetChildAttribute(std::string_view name, std::string_view value) {
  return PutAttribute(child_, name, value);
}
bool XmlDocument::SetChildAttribute(std::string_view name, int value) {
  return PutAttribute(child_, name, std::to_string(value));
}

std::string XmlDocument::GetAttribute(std::string_view name) const { return ValueOf(main_, name); }
std::string XmlDocument::GetChildAttribute(std::string_view name) const {
  return ValueOf(child_, name);
}
bool XmlDocument::HasAttribute(std::string_view name) const {
  return FindAttribute(main_, name).has_value();
}
bool XmlDocument::HasChildAttribute(std::string_view name) const {
  return FindAttribute(child_, name).has_value();
}

std::size_t XmlDocument::ContentOffset(Position element) const {
  return element == XmlIndex::kNone ? 0 : At(element).offset + At(element).start_tag_length;
}

std::size_t XmlDocument::ContentEnd(Position element) const {
  if (element == XmlIndex::kNone) return text_.size();
  return At(element).offset + At(element).length - At(element).end_tag_length;
}

std::string_view XmlDocument::NameOf(Position element) const {
  const std::size_t begin = At(element).offset + 1;
  return std::string_view(text_).substr(begin, XmlNameEnd(text_, begin) - begin);
}

bool XmlDocument::HasEmptyTag(Position element) const {
  const std::size_t end = ContentOffset(element);
  return text_.compare(end - kEmptyTagEnd.size(), kEmptyTagEnd.size(), kEmptyTagEnd) == 0;
}

XmlDocument::Position XmlDocument::FindFrom(Position element, std::string_view name) const {
  while (element != XmlIndex::kNone && NameOf(element) != name) element = At(element).next;
  return element;
}

void XmlDocument::ReadAttributes(Position element) const {
  if (attributes_.element == element) return;
  attributes_.element = element;
  attributes_.attributes.clear();
  const std::string_view tag =
      std::string_view(text_).substr(At(element).offset, At(element).start_tag_length);
  XmlTagReader reader(tag, XmlNameEnd(tag, 1), nullptr);
  XmlAttribute attribute;
  while (reader.Next(attribute) == XmlTagReader::Step::kAttribute) {
    attributes_.attributes.push_back(attribute);
  }
}

std::optional<std::size_t> XmlDocument::FindAttribute(Position element,
                                                      std::string_view name) const {
  if (element == XmlIndex::kNone) return std::nullopt;
  ReadAttributes(element);
  name = TrimXmlSpace(name);
  const char* const tag = text_.data() + At(element).offset;
  const std::vector<XmlAttribute>& attributes = attributes_.attributes;
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    const std::size_t length = attributes[i].name_end - attributes[i].name;
    // Names that differ do so in their ends more often than in their beginnings.
    if (length == name.size() && (length == 0 || tag[attributes[i].name_end - 1] == name.back()) &&
        name == std::string_view(tag + attributes[i].name, length)) {
      return i;
    }
  }
  return std::nullopt;
}

std::string XmlDocument::ValueOf(Position element, std::string_view name) const {
  const std::optional<std::size_t> found = FindAttribute(element, name);
  if (!found) return {};
  const XmlAttribute& attribute = attributes_.attributes[*found];
  return Unescaped(std::string_view(text_).substr(At(element).offset + attribute.value,
                                                  attribute.value_end - attribute.value));
}

bool XmlDocument::PutAttribute(Position element, std::string_view name, std::string_view value) {
  if (element == XmlIndex::kNone) return false;
  const std::optional<std::size_t> found = FindAttribute(element, name);
  std::string written;
  written.reserve(name.size() + value.size() + value.size() / 8);
  std::size_t begin = At(element).start_tag_length - (HasEmptyTag(element) ? 2 : 1);
  std::size_t length = 0;
  XmlAttribute attribute{.has_value = true, .quoted = true};
  if (found) {
    attribute = attributes_.attributes[*found];
    begin = attribute.name_end;
    length = attribute.end - begin;
  } else {
    written += ' ';
    written += name;
    attribute.name = begin + 1;
    attribute.name_end = begin + written.size();
  }
  written += "=\"";
  AppendEscaped(written, value);
  written += '"';
  // Found anew when next asked for, unless it is known where everything stands.
  if (found) attributes_ = {};
  const auto growth = static_cast<std::ptrdiff_t>(written.size() - length);
  Replace(element, At(element).offset + begin, length, written);
  At(element).start_tag_length += static_cast<std::size_t>(growth);
  if (found) return true;
  const std::string_view tag = std::string_view(text_).substr(At(element).offset);
  attribute.end = begin + written.size();
  attribute.value = attribute.name_end + 2;
  while (attribute.name < attribute.name_end && IsXmlSpace(tag[attribute.name])) ++attribute.name;
  while (attribute.name < attribute.name_end && IsXmlSpace(tag[attribute.name_end - 1])) {
    --attribute.name_end;
  }
  attribute.value_end = attribute.end - 1;
  attributes_.attributes.push_back(attribute);
  return true;
}

XmlDocument::Position XmlDocument::Insert(Position parent, Position behind, std::string_view name,
                                          std::optional<std::string_view> value) {
  if (parent != XmlIndex::kNone && HasEmptyTag(parent)) GiveEndTag(parent, kLineBreak);
  std::size_t offset = ContentEnd(parent);
  if (behind != XmlIndex::kNone) {
    offset = At(behind).offset + At(behind).length;
    if (text_.compare(offset, kLineBreak.size(), kLineBreak) == 0) offset += kLineBreak.size();
  }
  std::string written = "<";
  written += name;
  XmlIndex::Element record{.offset = offset};
  if (value) {
    written += '>';
    record.start_tag_length = written.size();
    AppendEscaped(written, *value);
    const std::size_t end_tag = written.size();
    written.append("</").append(name) += '>';
    record.end_tag_length = written.size() - end_tag;
  } else {
    written += kEmptyTagEnd;
    record.start_tag_length = written.size();
  }
  record.length = written.size();
  written += kLineBreak;
  Replace(parent, offset, 0, written);
  const Position added = index_.Add(parent, behind);
  XmlIndex::Element& element = At(added);
  element.offset = record.offset;
  element.start_tag_length = record.start_tag_length;
  element.length = record.length;
  element.end_tag_length = record.end_tag_length;
  return added;
}

void XmlDocument::GiveEndTag(Position element, std::string_view content) {
  std::string written = ">";
  written += content;
  const std::size_t end_tag = written.size();
  written.append("</").append(NameOf(element)) += '>';
  const std::size_t tag_end = ContentOffset(element);
  Replace(element, tag_end - kEmptyTagEnd.size(), kEmptyTagEnd.size(), written);
  At(element).start_tag_length -= 1;
  At(element).end_tag_length = written.size() - end_tag;
}

void XmlDocument::Replace(Position element, std::size_t offset, std::size_t length,
                          std::string_view text) {
  text_.replace(offset, length, text);
  index_.Grow(element, offset + length, static_cast<std::ptrdiff_t>(text.size() - length));
}

}  // namespace zelorgas
