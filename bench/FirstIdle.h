// An event filter of the application for measuring its start.
#pragma once

#include <unistd.h>

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <cstdlib>

namespace zelorgas {

// Says so on standard output once a window has been painted and nothing else is waiting, and ends
// the program.
class FirstIdle final : public QObject {
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (!seen_ && event->type() == QEvent::Paint && widget != nullptr && widget->isVisible()) {
      seen_ = true;
      QTimer::singleShot(0, this, [] {
        if (write(STDOUT_FILENO, "!", 1) == 1) std::_Exit(EXIT_SUCCESS);
        std::_Exit(EXIT_FAILURE);
      });
    }
    return false;
  }
  bool seen_ = false;
};

}  // namespace zelorgas
