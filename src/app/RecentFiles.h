// The four documents used last, kept in the settings store. Used by the user-interface thread.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SettingsStore.h"

namespace zelorgas {

inline constexpr std::size_t kRecentFiles = 4;

class RecentFiles {
 public:
  // Reads the list from `store`, which outlives this object.
  explicit RecentFiles(SettingsStore& store);

  // Absolute paths in UTF-8, the latest first; at most kRecentFiles.
  [[nodiscard]] const std::vector<std::string>& Files() const { return files_; }

  // Puts `file` in front, wherever it was before.
  void Add(std::string_view file);
  // Takes `file` out: it could not be opened.
  void Remove(std::string_view file);

 private:
  void Store();

  SettingsStore& store_;
  std::vector<std::string> files_;
};

}  // namespace zelorgas
