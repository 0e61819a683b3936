// What the window shows for the state of the link. Pure.
#pragma once

#include <QColor>
#include <QString>
#include <optional>

#include "app/CommStatus.h"

namespace zelorgas {

struct CommStatusText {
  QString text;
  QColor colour;
};

// Nothing for a message that does not change the state of the link.
[[nodiscard]] std::optional<CommStatusText> TextOfCommStatus(CommStatus status);

// Why the pages that need the ECU are disabled; empty when they are not.
[[nodiscard]] QString WhyPagesAreDisabled(CommStatus status);

}  // namespace zelorgas
