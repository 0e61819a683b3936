#include "ui/ThreadBoxes.h"

#include <utility>

#include "ui/Text.h"

namespace zelorgas {

ThreadBoxes::ThreadBoxes(UiCalls& calls, MessageBoxes& boxes,
                         std::function<void(const QString&)> status)
    : calls_(calls), boxes_(boxes), status_(std::move(status)) {}

void ThreadBoxes::Inform(std::string_view text, MessageIcon icon) {
  calls_.Call([&] { boxes_.Inform(text, icon); });
}

bool ThreadBoxes::Ask(std::string_view text) {
  bool yes = false;
  calls_.Call([&] { yes = boxes_.Ask(text); });
  return yes;
}

void ThreadBoxes::Status(std::string_view text) {
  calls_.Post([this, shown = TranslatedMessage(text)] { status_(shown); });
}

}  // namespace zelorgas
