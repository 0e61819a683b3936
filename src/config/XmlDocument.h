// A small XML document for configuration files and recordings. The text is the document: a cursor
// moves through an index of its elements, and every change edits the text in place. It does not
// validate; what looks wrong is noted and the document stays usable. One thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/XmlDocumentIndex.h"
#include "config/XmlDocumentMarkup.h"
#include "platform/FileSystem.h"
#include "platform/Message.h"

namespace zelorgas {

// How text stands in the document: with its special characters as references, or in CDATA sections.
enum class XmlTextForm : std::uint8_t { kEscaped, kCdata };

// One piece of an element's content. `name` is the element's, "#text", "#cdata-section",
// "#comment", "!DOCTYPE", or "?" and the target of a processing instruction. `text` is what the
// piece says besides; empty for an element.
struct XmlNode {
  std::string name;
  std::string text;

  friend bool operator==(const XmlNode&, const XmlNode&) = default;
};

class XmlDocument {
 public:
  // An empty document, with the finding that says so.
  XmlDocument() { SetDocumentText({}); }

  // Replaces the whole document and indexes it; the cursor goes back to the start.
  void SetDocumentText(std::string text);
  // The document exactly as Save writes it.
  [[nodiscard]] const std::string& Text() const { return text_; }
  // What the last parse found wrong; empty when nothing. A text with very many faults is told by
  // the first of them.
  [[nodiscard]] const std::vector<Message>& Findings() const { return index_.findings; }
  // The same in English, one finding a line.
  [[nodiscard]] std::string ErrorText() const;

  // Reads and indexes a file. False when it cannot be opened or read; the document is then as it
  // was. Findings are no failure.
  [[nodiscard]] bool Load(const std::filesystem::path& path,
                          std::uintmax_t largest = kLargestWholeFile);
  // Writes the document; the file at `path` is then either the old or the new one, complete. False
  // when it could not be written.
  [[nodiscard]] bool Save(const std::filesystem::path& path);
  // The last Load or Save in one line that ends in the number of bytes: "Loaded 13027 bytes"; after
  // a failure "Cannot open PATH: REASON, 0 bytes".
  [[nodiscard]] const Message& Result() const { return result_; }

  // Parent, main and child position to none: the next search begins with the first top-level
  // element.
  void ResetPosition();
  // The next element of this name behind the main position on its level, or the first one when
  // there is no main position, becomes the main position. False, and the cursor stays, when there
  // is none.
  [[nodiscard]] bool FindElement(std::string_view name);
  // The same among the children of the main position, with the child position.
  [[nodiscard]] bool FindChildElement(std::string_view name);
  // The main position becomes the parent, the child position the main one. False without a main
  // position.
  bool EnterElement();
  // The reverse; the main position becomes the child. False at the top level.
  bool LeaveElement();

  // Inserts an element behind the main position, or as the last of the level when there is none,
  // and makes it the main position. `value` is its text.
  void AddElement(std::string_view name, std::optional<std::string_view> value = std::nullopt);
  // Inserts the last child of the main position and makes it the child position. False without a
  // main position.
  bool AddChildElement(std::string_view name, std::optional<std::string_view> value = std::nullopt);

  // Sets an attribute of the main or the child element: a new one goes to the end of the start tag,
  // its name written as passed, white space in front included; the value of an old one is replaced.
  // False when there is no such position.
  bool SetAttribute(std::string_view name, std::string_view value);
  bool SetAttribute(std::string_view name, int value);
  bool SetChildAttribute(std::string_view name, std::string_view value);
  bool SetChildAttribute(std::string_view name, int value);

  // The value of an attribute of the main or the child element, of the first where two have the
  // name; white space around `name` does not count. Empty when there is no such attribute or
  // position; Has... tells the difference.
  [[nodiscard]] std::string GetAttribute(std::string_view name) const;
  [[nodiscard]] std::string GetChildAttribute(std::string_view name) const;
  [[nodiscard]] bool HasAttribute(std::string_view name) const;
  [[nodiscard]] bool HasChildAttribute(std::string_view name) const;

  // The text that stands directly in the main or the child element, CDATA sections included; empty
  // when there is none or no such position.
  [[nodiscard]] std::string GetText() const;
  [[nodiscard]] std::string GetChildText() const;
  // Makes `text` the whole content of the element. False, and nothing changed, when it has child
  // elements or there is no such position.
  bool SetText(std::string_view text, XmlTextForm form = XmlTextForm::kEscaped);
  bool SetChildText(std::string_view text, XmlTextForm form = XmlTextForm::kEscaped);

  // The content of the main element in its order; without a main position the whole top level.
  [[nodiscard]] std::vector<XmlNode> Nodes() const;

 private:
  using Position = XmlIndex::Position;

  // The attributes of one element, found when the first of them is asked for. Their places count
  // from the element's start, so that changes elsewhere leave them right.
  struct AttributeList {
    Position element = XmlIndex::kNone;
    std::vector<XmlAttribute> attributes;
  };

  [[nodiscard]] XmlIndex::Element& At(Position element) { return index_.elements[element]; }
  [[nodiscard]] const XmlIndex::Element& At(Position element) const {
    return index_.elements[element];
  }
  // What stands between the tags; for no element, the whole text.
  [[nodiscard]] std::size_t ContentOffset(Position element) const;
  [[nodiscard]] std::size_t ContentEnd(Position element) const;
  [[nodiscard]] std::string_view NameOf(Position element) const;
  [[nodiscard]] bool HasEmptyTag(Position element) const;

  [[nodiscard]] Position FindFrom(Position element, std::string_view name) const;
  void ReadAttributes(Position element) const;
  [[nodiscard]] std::optional<std::size_t> FindAttribute(Position element,
                                                         std::string_view name) const;
  [[nodiscard]] std::string ValueOf(Position element, std::string_view name) const;
  bool PutAttribute(Position element, std::string_view name, std::string_view value);
  [[nodiscard]] std::vector<XmlNode> NodesOf(Position element) const;
  [[nodiscard]] std::string TextOf(Position element) const;
  bool PutText(Position element, std::string_view text, XmlTextForm form);

  // The new element; `behind` none: the last of its level.
  Position Insert(Position parent, Position behind, std::string_view name,
                  std::optional<std::string_view> value);
  // Gives an element that has only an empty-element tag an end tag, with `content` between the two.
  void GiveEndTag(Position element, std::string_view content);
  // Replaces text inside `element`, none for the document.
  void Replace(Position element, std::size_t offset, std::size_t length, std::string_view text);

  std::string text_;
  XmlIndex index_;
  Message result_;
  Position parent_ = XmlIndex::kNone;
  Position main_ = XmlIndex::kNone;
  Position child_ = XmlIndex::kNone;
  mutable AttributeList attributes_;
};

}  // namespace zelorgas
