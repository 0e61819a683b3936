// The elements of an XML text and how they hang together. Plain data and pure functions; one thread
// at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Message.h"

namespace zelorgas {

// The finding about a document that has more than one element at its top.
inline constexpr FixedText kSecondRootFinding = FixedText::Of("Root element has sibling");

struct XmlIndex {
  using Position = std::uint32_t;  // an element's place in `elements`
  // Stands for no element; as a parent, for the document. Its record has the top-level elements as
  // children.
  static constexpr Position kNone = 0;

  struct Element {
    std::size_t offset = 0;            // of the start tag, in characters
    std::size_t start_tag_length = 0;  // "<" and ">" included
    std::size_t length = 0;            // up to and with the end tag
    std::size_t end_tag_length = 0;    // 0: an empty-element tag, or not ended
    Position parent = kNone;
    Position first_child = kNone;
    Position last_child = kNone;
    Position previous = kNone;  // on the same level
    Position next = kNone;
  };

  std::vector<Element> elements;
  std::vector<Message> findings;

  // Adds a record as the child of `parent` behind `behind`, or as its last child when that is none.
  Position Add(Position parent, Position behind);
  // The text of `inside` has become `growth` characters longer (shorter when negative) at `offset`:
  // `inside` and all around it grow, what begins there or later moves.
  void Grow(Position inside, std::size_t offset, std::ptrdiff_t growth);

 private:
  void Move(Position top, std::ptrdiff_t distance);
};

// Walks the text once. Never fails: what is wrong stands in the findings.
[[nodiscard]] XmlIndex IndexXml(std::string_view text);

}  // namespace zelorgas
