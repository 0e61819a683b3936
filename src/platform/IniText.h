// The text of an INI file: [section] lines, key=value lines, comments after ; or #. Changing a
// value leaves every other line as it was. Section and key names are found without regard to case.
// Pure; one thread at a time.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelorgas {

class IniText {
 public:
  IniText() = default;

  // Nothing when `text` is damaged: it has a control character, or a line of none of the kinds
  // above.
  [[nodiscard]] static std::optional<IniText> Parse(std::string_view text);

  // The first value of that name; nothing when there is none.
  [[nodiscard]] std::optional<std::string> Value(std::string_view section,
                                                 std::string_view key) const;

  // Replaces the value, or adds it at the end of its section. Any text can be a value. False, and
  // nothing changed, when the file could not hold such a section or key name.
  [[nodiscard]] bool SetValue(std::string_view section, std::string_view key,
                              std::string_view value);

  [[nodiscard]] std::string Text() const;

 private:
  struct Place {
    std::optional<std::size_t> line;  // of the value
    std::size_t section_end = 0;      // where a new line of the section goes; 0: no such section
  };
  [[nodiscard]] Place Find(std::string_view section, std::string_view key) const;

  std::vector<std::string> lines_;  // without their "\n"
};

}  // namespace zelorgas
