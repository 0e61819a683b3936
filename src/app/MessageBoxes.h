// How a procedure speaks to the person, without knowing the toolkit: message boxes in the window,
// lines on the console, a recorder in tests. Called on the thread that runs the procedure.
#pragma once

#include <cstdint>
#include <string_view>

namespace zelorgas {

enum class MessageIcon : std::uint8_t { kNone, kInformation, kExclamation, kError };

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  // Shows `text` until the person has seen it. Line breaks are "\n".
  virtual void Inform(std::string_view text, MessageIcon icon) = 0;
  // Asks with the question icon and Yes and No. Closing the box is No.
  [[nodiscard]] virtual bool Ask(std::string_view text) = 0;
  // Shows `text` in the status line and goes on.
  virtual void Status(std::string_view text) = 0;
};

}  // namespace zelorgas
