#include "config/StorageTree.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <system_error>

#include "config/ConfigurationFile.h"
#include "platform/FileSystem.h"
#include "platform/IgnoreCase.h"
#include "platform/LocalTime.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

// Deeper than any person sorts cars; a tree that was put here by mistake ends.
constexpr int kDeepest = 16;

template <typename Entry>
void SortByName(std::vector<Entry>& entries) {
  std::ranges::sort(entries, [](const Entry& a, const Entry& b) {
    const auto below = [](char x, char y) { return ToLower(x) < ToLower(y); };
    if (std::ranges::lexicographical_compare(a.name, b.name, below)) return true;
    return !std::ranges::lexicographical_compare(b.name, a.name, below) && a.name < b.name;
  });
}

// Calls `use` with each entry of the folder. Gives why it could not be listed to the end.
template <typename Use>
Message ForEachEntry(const fs::path& folder, Use use) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  if (error == std::errc::no_such_file_or_directory) return {};
  while (!error && entry != fs::directory_iterator()) {
    use(*entry);
    entry.increment(error);
  }
  return Message::Verbatim(error ? error.message() : std::string());
}

void AddFolders(StorageFolderEntry& parent, int depth) {
  parent.problem = ForEachEntry(parent.path, [&](const fs::directory_entry& entry) {
    std::error_code error;
    if (!entry.is_directory(error)) return;
    StorageFolderEntry folder;
    folder.name = PathText(entry.path().filename());
    folder.path = entry.path();
    if (!entry.is_symlink(error) && depth < kDeepest) AddFolders(folder, depth + 1);
    parent.folders.push_back(std::move(folder));
  });
  SortByName(parent.folders);
}

void ReadConfigurationNotes(StorageFileEntry& file) {
  const LoadedConfiguration content = ReadConfigurationFile(file.path, {}, 0);
  file.notes = content.notes;
  file.problem = content.Usable() ? content.damage : content.faults.front();
}

StorageFileEntry FileEntry(const fs::directory_entry& entry) {
  StorageFileEntry file;
  file.name = PathText(entry.path().filename());
  file.path = entry.path();
  std::error_code error;
  if (const std::uintmax_t size = entry.file_size(error); !error) file.size = size;
  if (const fs::file_time_type time = entry.last_write_time(error); !error) {
    file.modified = std::chrono::time_point_cast<std::chrono::system_clock::duration>(
        fs::file_time_type::clock::to_sys(time));
  }
  return file;
}

}  // namespace

StorageFolderEntry ReadStorageFolders(const fs::path& root) {
  StorageFolderEntry tree;
  tree.name = kStorageTreeName.English();
  tree.path = root;
  AddFolders(tree, 0);
  return tree;
}

StorageFiles ReadStorageFiles(const fs::path& folder, std::string_view extension) {
  StorageFiles found;
  found.problem = ForEachEntry(folder, [&](const fs::directory_entry& entry) {
    const std::string entry_extension = PathText(entry.path().extension());
    std::error_code error;
    if (!EqualIgnoringCase(entry_extension, extension) || entry.is_directory(error)) return;
    StorageFileEntry file = FileEntry(entry);
    if (EqualIgnoringCase(extension, kConfigurationExtension)) ReadConfigurationNotes(file);
    found.files.push_back(std::move(file));
  });
  SortByName(found.files);
  return found;
}

std::string ModifiedText(const StorageFileEntry& file) {
  if (!file.modified) return {};
  const std::tm time = LocalTime(*file.modified);
  std::array<char, 80> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d", time.tm_year + 1900,
                time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min);
  return text.data();
}

}  // namespace zelorgas
