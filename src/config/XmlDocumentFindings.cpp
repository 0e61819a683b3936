#include "config/XmlDocumentFindings.h"

#include "config/Utf8Text.h"

namespace zelorgas {
namespace {

// More than a person reads: a damaged text must not become a larger heap of findings.
constexpr std::size_t kEnoughFindings = 1000;

// Enough to find it again.
std::string Excerpt(std::string_view name) {
  constexpr std::size_t kLongestName = 80;
  return Shortened(name, kLongestName);
}

}  // namespace

template <typename... Values>
void XmlFindings::Add(FixedText text, const Values&... values) {
  if (found_.size() >= kEnoughFindings) return;
  found_.emplace_back(text, values...);
}

void XmlFindings::Unterminated(FixedText what, std::size_t offset) {
  Add(FixedText::Of("%1 at offset %2 unterminated"), what, offset);
}

void XmlFindings::Incorrect(FixedText what, std::size_t offset) {
  Add(FixedText::Of("Incorrect %1 at offset %2"), what, offset);
}

void XmlFindings::NoStartTag(std::string_view name, std::size_t offset) {
  Add(FixedText::Of("No start tag for end tag '%1' at offset %2"), Excerpt(name), offset);
}

void XmlFindings::Mismatch(std::string_view end_name, std::size_t end_offset,
                           std::string_view start_name, std::size_t start_offset) {
  Add(FixedText::Of("End tag '%1' at offset %2 does not match start tag '%3' at offset %4"),
      Excerpt(end_name), end_offset, Excerpt(start_name), start_offset);
}

void XmlFindings::NotEnded(std::string_view name, std::size_t offset) {
  Add(FixedText::Of("Element '%1' at offset %2 not ended"), Excerpt(name), offset);
}

}  // namespace zelorgas
