// The storage as data: its folders, and the files of one of them. What cannot be read is listed
// with the reason, and the rest all the same. Any thread may call the functions.
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Message.h"

namespace zelorgas {

inline constexpr FixedText kStorageTreeName = FixedText::Of("User Folders");

struct StorageFolderEntry {
  std::string name;  // UTF-8
  std::filesystem::path path;
  std::vector<StorageFolderEntry> folders;  // by name
  Message problem;                          // why its folders could not be listed; else empty
};

struct StorageFileEntry {
  std::string name;  // UTF-8, with the extension
  std::filesystem::path path;
  std::uintmax_t size = 0;                                        // bytes
  std::optional<std::chrono::system_clock::time_point> modified;  // none: the system did not say
  std::string notes;
  Message problem;  // why there are no notes, or what the file suffers from; else empty
};

struct StorageFiles {
  std::vector<StorageFileEntry> files;  // by name
  Message problem;                      // why the folder could not be listed; else empty
};

// The folders below `root`, which itself is called "User Folders". A storage that does not exist
// yet has none, and no problem. Links to folders are listed and not followed.
[[nodiscard]] StorageFolderEntry ReadStorageFolders(const std::filesystem::path& root);

// The files of `folder` with this extension (".fob", ".osc"), whatever its case. The notes of
// configurations are read; other files have none here.
[[nodiscard]] StorageFiles ReadStorageFiles(const std::filesystem::path& folder,
                                            std::string_view extension);

// "2026-11-21 10:40", local time; empty for none.
[[nodiscard]] std::string ModifiedText(const StorageFileEntry& file);

}  // namespace zelorgas
