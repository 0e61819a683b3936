// What a walk over an XML text finds wrong, in words. One thread at a time.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace zelorgas {

// Collects findings, one a line. Offsets count characters from the text's start.
class XmlFindings {
 public:
  // "`what` at offset N unterminated"
  void Unterminated(std::string_view what, std::size_t offset);
  // "Incorrect `what` at offset N"
  void Incorrect(std::string_view what, std::size_t offset);
  void NoStartTag(std::string_view name, std::size_t offset);
  void Mismatch(std::string_view end_name, std::size_t end_offset, std::string_view start_name,
                std::size_t start_offset);
  void NotEnded(std::string_view name, std::size_t offset);
  // About the document as a whole; recorded however many there are before it.
  void Whole(std::string_view finding);

  [[nodiscard]] std::string Take() { return std::move(text_); }

 private:
  void Add(std::initializer_list<std::string_view> pieces);

  std::string text_;
};

}  // namespace zelorgas
