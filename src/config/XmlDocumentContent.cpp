// What stands between an element's tags: text, CDATA sections, comments and the rest.
#include "config/XmlDocument.h"

namespace zelorgas {
namespace {

XmlNode NodeOf(const XmlMarkup& markup, std::string_view text, std::size_t at) {
  const std::string_view content = text.substr(markup.content, markup.content_end - markup.content);
  switch (markup.kind) {
    case XmlMarkup::Kind::kCdata:
      return {"#cdata-section", std::string(content)};
    case XmlMarkup::Kind::kComment:
      return {"#comment", std::string(content)};
    default: {
      // "?xml" or "!DOCTYPE": no element can be called that.
      const std::size_t name_end = XmlNameEnd(text, at + 2);
      const std::string_view rest = text.substr(name_end, markup.content_end - name_end);
      return {std::string(text.substr(at + 1, name_end - at - 1)), std::string(TrimXmlSpace(rest))};
    }
  }
}

bool IsMarkup(XmlMarkup::Kind kind) {
  return kind != XmlMarkup::Kind::kIncorrectTag && kind != XmlMarkup::Kind::kIncorrectComment;
}

}  // namespace

std::vector<XmlNode> XmlDocument::NodesOf(Position element) const {
  std::vector<XmlNode> nodes;
  const std::string_view text = std::string_view(text_).substr(0, ContentEnd(element));
  std::size_t begin = ContentOffset(element);
  const auto add_text = [&](std::size_t end) {
    if (end > begin) nodes.push_back({"#text", Unescaped(text.substr(begin, end - begin))});
  };
  Position child = At(element).first_child;
  for (std::size_t at = text.find('<', begin); at != std::string_view::npos;
       at = text.find('<', at)) {
    if (child != XmlIndex::kNone && At(child).offset == at) {
      add_text(at);
      nodes.push_back({std::string(NameOf(child)), {}});
      begin = at = at + At(child).length;
      child = At(child).next;
      continue;
    }
    const bool other = at + 1 < text.size() && (text[at + 1] == '!' || text[at + 1] == '?');
    const XmlMarkup markup = other ? ReadXmlMarkup(text, at) : XmlMarkup{};
    // What is no markup, or an end tag of nothing, is left standing as text.
    if (!IsMarkup(markup.kind)) {
      ++at;
      continue;
    }
    add_text(at);
    nodes.push_back(NodeOf(markup, text, at));
    begin = at = markup.end;
  }
  add_text(text.size());
  return nodes;
}

std::vector<XmlNode> XmlDocument::Nodes() const {
  std::vector<XmlNode> nodes = NodesOf(main_);
  // White space between elements is the writer's, not the document's.
  std::erase_if(nodes, [](const XmlNode& node) {
    return node.name == "#text" && TrimXmlSpace(node.text).empty();
  });
  return nodes;
}

std::string XmlDocument::GetText() const { return TextOf(main_); }
std::string XmlDocument::GetChildText() const { return TextOf(child_); }

bool XmlDocument::SetText(std::string_view text, XmlTextForm form) {
  return PutText(main_, text, form);
}
bool XmlDocument::SetChildText(std::string_view text, XmlTextForm form) {
  return PutText(child_, text, form);
}

std::string XmlDocument::TextOf(Position element) const {
  std::string text;
  if (element == XmlIndex::kNone) return text;
  for (const XmlNode& node : NodesOf(element)) {
    if (node.name == "#text" || node.name == "#cdata-section") text += node.text;
  }
  return text;
}

bool XmlDocument::PutText(Position element, std::string_view text, XmlTextForm form) {
  if (element == XmlIndex::kNone || At(element).first_child != XmlIndex::kNone) return false;
  std::string written;
  if (form == XmlTextForm::kCdata) {
    AppendCdata(written, text);
  } else {
    AppendEscaped(written, text);
  }
  if (HasEmptyTag(element)) {
    GiveEndTag(element, written);
  } else {
    const std::size_t begin = ContentOffset(element);
    Replace(element, begin, ContentEnd(element) - begin, written);
  }
  return true;
}

}  // namespace zelorgas
