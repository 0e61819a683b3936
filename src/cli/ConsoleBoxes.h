// Message boxes on the console: messages go to standard error, and the person at the terminal
// answers questions with y or n. Without a terminal every answer is No. Used by one thread.
#pragma once

#include "app/MessageBoxes.h"
#include "cli/CliSession.h"

namespace zelorgas {

class ConsoleBoxes final : public MessageBoxes {
 public:
  // `session` outlives the boxes.
  explicit ConsoleBoxes(CliSession& session) : session_(session) {}

  void Inform(const Message& text, MessageIcon icon) override;
  // Asks again until the answer is one; the end of the input is No.
  bool Ask(const Message& text) override;
  void Status(const Message& text) override;

 private:
  CliSession& session_;
};

// For commands whose questions --yes answers beforehand. kDone when it does, or when there is a
// person to ask; otherwise kWrongUsage after a message, which begins with `why_asked` where the
// command does not always ask.
ExitStatus CheckCanAsk(CliSession& session, std::string_view why_asked = {});
// Asks such a question: kDone when --yes or the person agrees, kRefused when the person does not,
// kWrongUsage as above.
ExitStatus Confirm(CliSession& session, FixedText question, std::string_view why_asked = {});

}  // namespace zelorgas
