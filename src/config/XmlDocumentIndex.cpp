#include "config/XmlDocumentIndex.h"

#include <utility>

#include "config/XmlDocumentFindings.h"
#include "config/XmlDocumentMarkup.h"

namespace zelorgas {
namespace {

class Indexer {
 public:
  explicit Indexer(std::string_view text) : text_(text) { index_.elements.emplace_back(); }

  XmlIndex Run() {
    for (std::size_t at = text_.find('<'); at != std::string_view::npos; at = text_.find('<', at)) {
      at = ReadMarkup(at);
    }
    for (; open_ != XmlIndex::kNone; open_ = Leave(text_.size())) {
      findings_.NotEnded(NameOf(open_), Open().offset);
    }
    JudgeRoot();
    index_.findings = findings_.Take();
    return std::move(index_);
  }

 private:
  using Element = XmlIndex::Element;

  [[nodiscard]] Element& Open() { return index_.elements[open_]; }

  [[nodiscard]] std::string_view NameAt(std::size_t offset) const {
    return text_.substr(offset, XmlNameEnd(text_, offset) - offset);
  }
  [[nodiscard]] std::string_view NameOf(XmlIndex::Position element) const {
    return NameAt(index_.elements[element].offset + 1);
  }
  // Looks at no more of the text than `name` is long.
  [[nodiscard]] bool HasName(XmlIndex::Position element, std::string_view name) const {
    const std::size_t start = index_.elements[element].offset + 1;
    return text_.substr(start, name.size()) == name &&
           XmlNameEnd(text_, start + name.size()) == start + name.size();
  }

  // Gives the offset behind what begins at `at` with "<".
  std::size_t ReadMarkup(std::size_t at) {
    const char next = at + 1 < text_.size() ? text_[at + 1] : '\0';
    if (next == '/') return ReadEndTag(at);
    if (next == '!' || next == '?') return ReadOther(at);
    return ReadStartTag(at);
  }

  std::size_t ReadStartTag(std::size_t at) {
    const std::size_t name_end = XmlNameEnd(text_, at + 1);
    if (name_end == at + 1 && name_end < text_.size()) {
      findings_.Incorrect(FixedText::Of("name character"), name_end);
      return name_end;
    }
    XmlTagReader reader(text_, name_end, &findings_);
    XmlAttribute attribute;
    auto step = XmlTagReader::Step::kAttribute;
    while (step == XmlTagReader::Step::kAttribute) step = reader.Next(attribute);
    if (step == XmlTagReader::Step::kUnterminated) {
      findings_.Unterminated(FixedText::Of("Element tag"), at);
      return reader.Offset();
    }
    const XmlIndex::Position element = index_.Add(open_, XmlIndex::kNone);
    Element& record = index_.elements[element];
    record.offset = at;
    record.start_tag_length = record.length = reader.Offset() - at;
    if (step == XmlTagReader::Step::kEnd) open_ = element;
    return reader.Offset();
  }

  std::size_t ReadEndTag(std::size_t at) {
    const std::string_view name = NameAt(at + 2);
    std::size_t end = at + 2 + name.size();
    if (name.empty() && end < text_.size()) {
      findings_.Incorrect(FixedText::Of("name character"), end);
      return end;
    }
    while (end < text_.size() && IsXmlSpace(text_[end])) ++end;
    if (end < text_.size() && text_[end] != '>' && text_[end] != '<') {
      findings_.Incorrect(FixedText::Of("name character"), end);
      while (end < text_.size() && text_[end] != '>' && text_[end] != '<') ++end;
    }
    if (end == text_.size() || text_[end] == '<') {
      findings_.Unterminated(FixedText::Of("Element end tag"), at);
      return end;
    }
    CloseElement(name, at, end + 1);
    return end + 1;
  }

  void CloseElement(std::string_view name, std::size_t at, std::size_t end) {
    if (open_ == XmlIndex::kNone) {
      findings_.NoStartTag(name, at);
      return;
    }
    if (const std::string_view start_name = NameOf(open_); start_name != name) {
      findings_.Mismatch(name, at, start_name, Open().offset);
      // An end tag has been left out, or it is this one, with its name spelled wrong.
      const XmlIndex::Position around = Open().parent;
      if (around != XmlIndex::kNone && HasName(around, name)) open_ = Leave(at);
    }
    Open().end_tag_length = end - at;
    open_ = Leave(end);
  }

  // Ends the open element's text at `end` and gives the one around it.
  [[nodiscard]] XmlIndex::Position Leave(std::size_t end) {
    Open().length = end - Open().offset;
    return Open().parent;
  }

  std::size_t ReadOther(std::size_t at) {
    const XmlMarkup markup = ReadXmlMarkup(text_, at);
    switch (markup.kind) {
      case XmlMarkup::Kind::kIncorrectTag:
        findings_.Incorrect(FixedText::Of("! tag"), at);
        break;
      case XmlMarkup::Kind::kIncorrectComment:
        findings_.Incorrect(FixedText::Of("comment tag"), at);
        break;
      default:
        if (!markup.terminated) findings_.Unterminated(markup.Name(), at);
    }
    return markup.end;
  }

  void JudgeRoot() {
    const XmlIndex::Position root = index_.elements[XmlIndex::kNone].first_child;
    if (root == XmlIndex::kNone) {
      findings_.Whole(text_.empty() ? FixedText::Of("Empty document")
                                    : FixedText::Of("No root element"));
    } else if (index_.elements[root].next != XmlIndex::kNone) {
      findings_.Whole(kSecondRootFinding);
    }
  }

  std::string_view text_;
  XmlIndex index_;
  XmlFindings findings_;
  XmlIndex::Position open_ = XmlIndex::kNone;  // the innermost element that has not ended
};

}  // namespace

XmlIndex::Position XmlIndex::Add(Position parent, Position behind) {
  const auto added = static_cast<Position>(elements.size());
  elements.emplace_back();
  if (behind == kNone) behind = elements[parent].last_child;
  Element& element = elements.back();
  element.parent = parent;
  element.previous = behind;
  if (behind == kNone) {
    elements[parent].first_child = added;
  } else {
    element.next = std::exchange(elements[behind].next, added);
  }
  if (element.next == kNone) {
    elements[parent].last_child = added;
  } else {
    elements[element.next].previous = added;
  }
  return added;
}

void XmlIndex::Grow(Position inside, std::size_t offset, std::ptrdiff_t growth) {
  for (Position child = elements[inside].last_child;
       child != kNone && elements[child].offset >= offset; child = elements[child].previous) {
    Move(child, growth);
  }
  for (Position around = inside; around != kNone; around = elements[around].parent) {
    elements[around].length += static_cast<std::size_t>(growth);
    for (Position behind = elements[around].next; behind != kNone; behind = elements[behind].next) {
      Move(behind, growth);
    }
  }
}

// Without recursion: a document may be as deep as it is long.
void XmlIndex::Move(Position top, std::ptrdiff_t distance) {
  Position at = top;
  for (;;) {
    elements[at].offset += static_cast<std::size_t>(distance);
    if (elements[at].first_child != kNone) {
      at = elements[at].first_child;
      continue;
    }
    while (at != top && elements[at].next == kNone) at = elements[at].parent;
    if (at == top) return;
    at = elements[at].next;
  }
}

XmlIndex IndexXml(std::string_view text) { return Indexer(text).Run(); }

}  // namespace zelorgas
