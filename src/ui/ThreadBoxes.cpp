#include "ui/ThreadBoxes.h"

#include <QMetaObject>
#include <utility>

#include "ui/Text.h"

namespace zelorgas {

ThreadBoxes::ThreadBoxes(QObject& ui, MessageBoxes& boxes,
                         std::function<void(const QString&)> status)
    : ui_(ui), boxes_(boxes), status_(std::move(status)) {}

void ThreadBoxes::Inform(std::string_view text, MessageIcon icon) {
  QMetaObject::invokeMethod(
      &ui_, [&] { boxes_.Inform(text, icon); }, Qt::BlockingQueuedConnection);
}

bool ThreadBoxes::Ask(std::string_view text) {
  bool yes = false;
  QMetaObject::invokeMethod(
      &ui_, [&] { yes = boxes_.Ask(text); }, Qt::BlockingQueuedConnection);
  return yes;
}

void ThreadBoxes::Status(std::string_view text) {
  QMetaObject::invokeMethod(
      &ui_, [status = status_, shown = TranslatedMessage(text)] { status(shown); },
      Qt::QueuedConnection);
}

}  // namespace zelorgas
