// Colours that follow the palette, light or dark. User-interface thread.
#pragma once

#include <QColor>
#include <QPalette>

namespace zelorgas {

// `share` 0 gives `from`, 1 gives `to`.
[[nodiscard]] QColor Mixed(const QColor& from, const QColor& to, double share);

[[nodiscard]] QColor CaptionColour(const QPalette& palette);  // captions and units
[[nodiscard]] QColor BorderColour(const QPalette& palette);   // lines around cards and tiles
[[nodiscard]] QColor CardColour(const QPalette& palette);     // their inside

// Words that want to be noticed.
[[nodiscard]] QColor AlertColour(const QPalette& palette);

// Black or white, whichever reads better on `background`.
[[nodiscard]] QColor TextOn(const QColor& background);

}  // namespace zelorgas
