#include "cli/ConsoleBoxes.h"

#include <array>
#include <string>

namespace zelorgas {
namespace {

constexpr std::array<std::string_view, 3> kYes = {"y", "Y", "yes"};
constexpr std::array<std::string_view, 3> kNo = {"n", "N", "no"};

bool IsOneOf(const std::array<std::string_view, 3>& words, std::string_view answer) {
  for (const std::string_view word : words) {
    if (answer == word) return true;
  }
  return false;
}

}  // namespace

void ConsoleBoxes::Inform(const Message& text, MessageIcon) { session_.Message(text.English()); }

void ConsoleBoxes::Status(const Message& text) { session_.Message(text.English()); }

bool ConsoleBoxes::Ask(const Message& text) {
  CliEnvironment& environment = session_.Environment();
  session_.Message(text.English());
  if (!environment.in_is_terminal) {
    environment.err << "[y/n] n (there is no terminal to answer on)\n";
    return false;
  }
  std::string answer;
  do {
    environment.err << "[y/n] " << std::flush;
    if (!std::getline(environment.in, answer)) {
      environment.err << '\n';
      return false;
    }
    if (!answer.empty() && answer.back() == '\r') answer.pop_back();
  } while (!IsOneOf(kYes, answer) && !IsOneOf(kNo, answer));
  return IsOneOf(kYes, answer);
}

ExitStatus CheckCanAsk(CliSession& session, std::string_view why_asked) {
  if (session.Option("--yes") || session.Environment().in_is_terminal) return ExitStatus::kDone;
  return session.UsageError(std::string(why_asked) +
                            "without a terminal to ask on, --yes is needed");
}

ExitStatus Confirm(CliSession& session, FixedText question, std::string_view why_asked) {
  if (const ExitStatus status = CheckCanAsk(session, why_asked); status != ExitStatus::kDone) {
    return status;
  }
  const bool agreed = session.Option("--yes") || ConsoleBoxes(session).Ask(question);
  return agreed ? ExitStatus::kDone : ExitStatus::kRefused;
}

}  // namespace zelorgas
