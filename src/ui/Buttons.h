// The push buttons of the pages. User-interface thread.
#pragma once

#include <QPushButton>
#include <algorithm>

namespace zelorgas {

// The text keeps away from the frame, in every language.
[[nodiscard]] inline QPushButton* MakeButton(const QString& object_name, const QString& text,
                                             QWidget* parent, int least_width = 0) {
  auto* const button = new QPushButton(text, parent);
  button->setObjectName(object_name);
  const int roomy = button->sizeHint().width() + button->fontMetrics().height();
  button->setMinimumWidth(std::max(least_width, roomy));
  return button;
}

}  // namespace zelorgas
