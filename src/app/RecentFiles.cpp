#include "app/RecentFiles.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/FileSystem.h"
#include "platform/IgnoreCase.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSection = "Recent File List";
constexpr bool kPathsIgnoreCase = fs::path::preferred_separator == '\\';

// Absolute, without "." and "..".
std::string WholePath(std::string_view file) {
  std::error_code error;
  const fs::path whole = fs::absolute(PathFromText(file), error);
  if (error) return std::string(file);
  return PathText(whole.lexically_normal());
}

bool SamePath(std::string_view a, std::string_view b) {
  return kPathsIgnoreCase ? EqualIgnoringCase(a, b) : a == b;
}

std::string Key(std::size_t index) { return "File" + std::to_string(index + 1); }

}  // namespace

RecentFiles::RecentFiles(SettingsStore& store) : store_(store) {
  for (std::size_t i = 0; i < kRecentFiles; ++i) {
    std::string file = store_.ReadString(kSection, Key(i), "");
    if (!file.empty()) files_.push_back(std::move(file));
  }
}

void RecentFiles::Add(std::string_view file) {
  if (file.empty()) return;
  std::string whole = WholePath(file);
  std::erase_if(files_, [&](const std::string& known) { return SamePath(known, whole); });
  files_.insert(files_.begin(), std::move(whole));
  files_.resize(std::min(files_.size(), kRecentFiles));
  Store();
}

void RecentFiles::Remove(std::string_view file) {
  const std::string whole = WholePath(file);
  std::erase_if(files_, [&](const std::string& known) { return SamePath(known, whole); });
  Store();
}

void RecentFiles::Store() {
  for (std::size_t i = 0; i < kRecentFiles; ++i) {
    // Without a place to keep it the list lasts as long as the program.
    static_cast<void>(store_.WriteString(kSection, Key(i), i < files_.size() ? files_[i] : ""));
  }
}

}  // namespace zelorgas
