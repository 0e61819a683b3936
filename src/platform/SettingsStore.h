// The person's own settings, by section and key: the registry under "Tarnwick" on Windows, an INI
// file with the same sections and keys elsewhere. Used by one thread, the window's or the command
// line's.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace zelorgas {

class SettingsStore {
 public:
  virtual ~SettingsStore() = default;

  // `fallback` when there is no such value, or it is of the other type. An INI file keeps only
  // texts: there every value is a text too, and one that is a whole number is an integer too.
  [[nodiscard]] virtual int ReadInteger(std::string_view section, std::string_view key,
                                        int fallback) const = 0;
  [[nodiscard]] virtual std::string ReadString(std::string_view section, std::string_view key,
                                               std::string_view fallback) const = 0;
  // False when the value could not be kept; the old one stays.
  virtual bool WriteInteger(std::string_view section, std::string_view key, int value) = 0;
  virtual bool WriteString(std::string_view section, std::string_view key,
                           std::string_view value) = 0;
};

// The section and keys of the program itself.
inline constexpr std::string_view kSettingsSection = "Settings";
inline constexpr std::string_view kLanguageKey = "Language";
inline constexpr std::string_view kPortKey = "COMMPORT";
inline constexpr std::string_view kSaveFileKey = "SAVEFILE";

// The system's store for the company key `company` and this program. Never null: a store that
// cannot be opened reads fallbacks and refuses writes.
[[nodiscard]] std::unique_ptr<SettingsStore> OpenSettingsStore(std::string_view company);

}  // namespace zelorgas
