// Texts between the core, which keeps them in UTF-8, and Qt. Safe from any thread.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace zelorgas {

// What a field shows while there is nothing to show.
inline constexpr const char* kNoValue = "------";

[[nodiscard]] inline QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A fixed message of the core in the person's language.
[[nodiscard]] QString TranslatedMessage(std::string_view text);

}  // namespace zelorgas
