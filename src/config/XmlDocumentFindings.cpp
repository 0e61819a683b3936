#include "config/XmlDocumentFindings.h"

namespace zelorgas {
namespace {

// More than a person reads: a damaged text must not become a larger heap of findings.
constexpr std::size_t kEnoughText = 65'536;

}  // namespace

void XmlFindings::Add(std::initializer_list<std::string_view> pieces) {
  if (text_.size() >= kEnoughText) return;
  if (!text_.empty()) text_ += '\n';
  for (const std::string_view piece : pieces) text_ += piece;
}

void XmlFindings::Unterminated(std::string_view what, std::size_t offset) {
  Add({what, " at offset ", std::to_string(offset), " unterminated"});
}

void XmlFindings::Incorrect(std::string_view what, std::size_t offset) {
  Add({"Incorrect ", what, " at offset ", std::to_string(offset)});
}

void XmlFindings::NoStartTag(std::string_view name, std::size_t offset) {
  Add({"No start tag for end tag '", name, "' at offset ", std::to_string(offset)});
}

void XmlFindings::Mismatch(std::string_view end_name, std::size_t end_offset,
                           std::string_view start_name, std::size_t start_offset) {
  Add({"End tag '", end_name, "' at offset ", std::to_string(end_offset),
       " does not match start tag '", start_name, "' at offset ", std::to_string(start_offset)});
}

void XmlFindings::NotEnded(std::string_view name, std::size_t offset) {
  Add({"Element '", name, "' at offset ", std::to_string(offset), " not ended"});
}

void XmlFindings::Whole(std::string_view finding) {
  if (!text_.empty()) text_ += '\n';
  text_ += finding;
}

}  // namespace zelorgas
