#include "ui/ThreadBoxes.h"

#include <utility>

#include "ui/Text.h"

namespace zelorgas {

ThreadBoxes::ThreadBoxes(UiCalls& calls, MessageBoxes& boxes,
                         std::function<void(const QString&)> status)
    : calls_(calls), boxes_(boxes), status_(std::move(status)) {}

void ThreadBoxes::Inform(const Message& text, MessageIcon icon) {
  calls_.Call([&] { boxes_.Inform(text, icon); });
}

bool ThreadBoxes::Ask(const Message& text) {
  bool yes = false;
  calls_.Call([&] { yes = boxes_.Ask(text); });
  return yes;
}

void ThreadBoxes::Status(const Message& text) {
  calls_.Post([this, shown = TranslatedMessage(text)] { status_(shown); });
}

}  // namespace zelorgas
