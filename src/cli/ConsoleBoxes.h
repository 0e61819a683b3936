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

  void Inform(std::string_view text, MessageIcon icon) override;
  // Asks again until the answer is one; the end of the input is No.
  bool Ask(std::string_view text) override;
  void Status(std::string_view text) override;

 private:
  CliSession& session_;
};

}  // namespace zelorgas
