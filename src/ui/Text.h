// Texts between the core, which keeps them in UTF-8, and Qt. Safe from any thread.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "platform/Message.h"

namespace zelorgas {

// What a field shows while there is nothing to show.
inline constexpr const char* kNoValue = "------";

[[nodiscard]] inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// As the beginning of a line.
[[nodiscard]] QString Capitalised(QString text);

// What the core has to say, in the person's language.
[[nodiscard]] QString TranslatedMessage(FixedText text);
[[nodiscard]] QString TranslatedMessage(const Message& message);
// A name from a catalogue: words are translated, names of products stay.
[[nodiscard]] QString TranslatedName(std::string_view name);
// Words of the window, which are in the person's language already, for a message box.
[[nodiscard]] inline Message ToMessage(const QString& words) {
  return Message::Verbatim(words.toStdString());
}

}  // namespace zelorgas
