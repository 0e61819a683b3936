// The settings store as an INI file. One thread at a time; other processes may use the same file.
#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/SettingsStore.h"

namespace zelorgas {

// Where the settings for `company` are, by the two environment variables (null when not set). Empty
// when neither names an absolute folder.
[[nodiscard]] std::filesystem::path SettingsFile(std::string_view company,
                                                 const char* xdg_config_home, const char* home);

// The store in `file`, which need not exist. An empty path gives a store that keeps nothing. A
// damaged file is renamed to the first free of "<file>.damaged", "<file>.damaged2", ...; the store
// is then empty.
[[nodiscard]] std::unique_ptr<SettingsStore> OpenSettingsFile(std::filesystem::path file);

}  // namespace zelorgas
