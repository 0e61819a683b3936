// How a procedure speaks to the person, without knowing the toolkit: message boxes in the window,
// lines on the console, a recorder in tests. Called on the thread that runs the procedure.
#pragma once

#include <cstdint>
#include <string>

#include "platform/Message.h"

namespace zelorgas {

enum class MessageIcon : std::uint8_t { kNone, kInformation, kExclamation, kError };

class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  // Shows `text` until the person has seen it. Line breaks are "\n".
  virtual void Inform(const Message& text, MessageIcon icon) = 0;
  // Asks with the question icon and Yes and No. Closing the box is No.
  [[nodiscard]] virtual bool Ask(const Message& text) = 0;
  // Shows `text` in the status line and goes on.
  virtual void Status(const Message& text) = 0;
  // The words in which `text` would be shown, for a place where the person reads them later.
  [[nodiscard]] virtual std::string WordsOf(const Message& text) const { return text.English(); }
};

}  // namespace zelorgas
