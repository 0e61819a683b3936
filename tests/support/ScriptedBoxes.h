// Message boxes that answer as the test says and remember what was said.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/MessageBoxes.h"

namespace zelorgas {

class ScriptedBoxes final : public MessageBoxes {
 public:
  bool answer = false;
  std::string declined;                // a question with these words gets No all the same
  std::function<void()> while_asking;  // runs as long as a question is open
  std::vector<std::string> said;       // "error: ...", "note: ...", "question: ..."
  std::vector<std::string> informed;   // the messages alone
  std::vector<std::string> statuses;   // the status line

  void Inform(const Message& message, MessageIcon icon) override {
    const std::string text = message.English();
    said.push_back((icon == MessageIcon::kError ? "error: " : "note: ") + std::string(text));
    informed.emplace_back(text);
  }
  bool Ask(const Message& message) override {
    const std::string text = message.English();
    said.push_back("question: " + std::string(text));
    if (while_asking) while_asking();
    return answer && (declined.empty() || text.find(declined) == std::string_view::npos);
  }
  void Status(const Message& text) override { statuses.push_back(text.English()); }

  [[nodiscard]] bool HasStatus(std::string_view text) const {
    return std::ranges::find(statuses, text) != statuses.end();
  }
};

}  // namespace zelorgas
