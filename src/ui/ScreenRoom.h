// How large a window may open. User-interface thread.
#pragma once

#include <QFontMetrics>
#include <QScreen>
#include <QWidget>

namespace zelorgas {

// `wanted`, or what `window`'s screen has for it: with large letters less than a window would like.
[[nodiscard]] inline QSize WithinScreen(const QWidget& window, QSize wanted) {
  // The system's frame is not known before the window is shown.
  const int frame = 2 * window.fontMetrics().height();
  return wanted.boundedTo(window.screen()->availableGeometry().size() - QSize(frame, frame));
}

}  // namespace zelorgas
