// The program's own settings by their meaning, and the choice of language. Used by one thread, the
// window's or the command line's.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Message.h"
#include "platform/SettingsStore.h"

namespace zelorgas {

// The company key that the settings are kept under.
inline constexpr std::string_view kSettingsCompany = "Tarnwick";

// A language is stored as the number of the text that names it.
inline constexpr int kLanguageBulgarian = 1413;
inline constexpr int kLanguageEnglish = 1414;
inline constexpr int kLanguageDefault = 9;  // the built-in texts, as any other number

// The entries of the language list, in its order.
inline constexpr std::array<FixedText, 2> kLanguageNames = {FixedText::Of("Bulgarian"),
                                                            FixedText::Of("English")};

inline constexpr FixedText kLanguageNotice = FixedText::Of(
    "Please, restart the application and the new language settings will take effect!");

// The library, without folder, prefix and extension, that holds the texts of `language`. Empty when
// they are built in.
[[nodiscard]] std::string_view LanguageLibrary(int language);

// The entry of the language list that shows `language`.
[[nodiscard]] std::size_t LanguageEntry(int language);

class Settings {
 public:
  // `store` outlives the settings.
  explicit Settings(SettingsStore& store) : store_(store) {}

  [[nodiscard]] int Language() const;
  // The person has selected `entry` of the language list. True when the choice is stored and the
  // program is to be started anew; any other entry changes nothing.
  [[nodiscard]] bool ChooseLanguage(int entry);

  // The serial port used last; empty when there is none.
  [[nodiscard]] std::string Port() const;
  bool SetPort(std::string_view port);

  // Whether the store dialog begins with "Store in a file" ticked.
  [[nodiscard]] bool SaveFile() const;
  bool SetSaveFile(bool on);

 private:
  SettingsStore& store_;
};

}  // namespace zelorgas
