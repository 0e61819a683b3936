// What a walk over an XML text finds wrong, in words. One thread at a time.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Message.h"

namespace zelorgas {

// Collects findings. Offsets count characters from the text's start.
class XmlFindings {
 public:
  // "`what` at offset N unterminated"
  void Unterminated(FixedText what, std::size_t offset);
  // "Incorrect `what` at offset N"
  void Incorrect(FixedText what, std::size_t offset);
  void NoStartTag(std::string_view name, std::size_t offset);
  void Mismatch(std::string_view end_name, std::size_t end_offset, std::string_view start_name,
                std::size_t start_offset);
  void NotEnded(std::string_view name, std::size_t offset);
  // About the document as a whole; recorded however many there are before it.
  void Whole(FixedText finding) { found_.emplace_back(finding); }

  [[nodiscard]] std::vector<Message> Take() { return std::move(found_); }

 private:
  template <typename... Values>
  void Add(FixedText text, const Values&... values);

  std::vector<Message> found_;
};

}  // namespace zelorgas
