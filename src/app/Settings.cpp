#include "app/Settings.h"

namespace zelorgas {
namespace {

// By entry of the language list.
constexpr std::array<int, kLanguageNames.size()> kLanguages = {kLanguageBulgarian,
                                                               kLanguageEnglish};

}  // namespace

std::string_view LanguageLibrary(int language) {
  return language == kLanguageBulgarian ? "ZelorGas_bg" : "";
}

std::size_t LanguageEntry(int language) { return language == kLanguageBulgarian ? 0 : 1; }

int Settings::Language() const {
  return store_.ReadInteger(kSettingsSection, kLanguageKey, kLanguageDefault);
}

bool Settings::ChooseLanguage(int entry) {
  if (entry < 0 || static_cast<std::size_t>(entry) >= kLanguages.size()) return false;
  return store_.WriteInteger(kSettingsSection, kLanguageKey,
                             kLanguages[static_cast<std::size_t>(entry)]);
}

std::string Settings::Port() const { return store_.ReadString(kSettingsSection, kPortKey, ""); }

bool Settings::SetPort(std::string_view port) {
  return store_.WriteString(kSettingsSection, kPortKey, port);
}

bool Settings::SaveFile() const {
  return store_.ReadInteger(kSettingsSection, kSaveFileKey, 0) == 1;
}

bool Settings::SetSaveFile(bool on) {
  return store_.WriteInteger(kSettingsSection, kSaveFileKey, on ? 1 : 0);
}

}  // namespace zelorgas
