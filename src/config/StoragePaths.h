// Where stored configurations and recordings lie, and which names a person may give them. The rules
// of both systems hold on both, so that a folder can be carried from one to the other. Pure but for
// the time; any thread may call the functions.
#pragma once

#include <ctime>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Message.h"

namespace zelorgas {

inline constexpr std::string_view kDefaultBrandFolder = "ANYBRAND";
// The entry of the store dialog's gas types that means compressed natural gas; every other is LPG.
inline constexpr unsigned kNaturalGas = 1;

// Where the program was started; the present folder by its short name when that is gone.
[[nodiscard]] std::filesystem::path WorkingFolder();

// "storage" below the program's working folder: the root of the tree.
[[nodiscard]] std::filesystem::path StorageRoot(const std::filesystem::path& working_folder);
// "storage/LPG/ANYBRAND": where the store dialog begins. `brand` has passed NameProblem; an empty
// one is the default.
[[nodiscard]] std::filesystem::path StorageFolder(const std::filesystem::path& working_folder,
                                                  unsigned gas_type, std::string_view brand = {});
// "storage/backup": what an ECU held before a file was loaded into it.
[[nodiscard]] std::filesystem::path BackupFolder(const std::filesystem::path& working_folder);

// The beginning of a new file's name: "20240229235959_", by `time` or the local time now.
[[nodiscard]] std::string MakeTimestampName(const std::tm& time);
[[nodiscard]] std::string MakeTimestampName();

// Why `name`, UTF-8, cannot be the name of a file or a folder in the storage; empty when it can.
// Such a name stays inside its folder on every system: no separators, no "..", no device names.
[[nodiscard]] Message NameProblem(std::string_view name);

// The file of a name that a person typed, which may have the extension already. Nothing, with the
// reason in `problem`, when there can be no such file.
[[nodiscard]] std::optional<std::filesystem::path> StorageFile(const std::filesystem::path& folder,
                                                               std::string_view name,
                                                               std::string_view extension,
                                                               Message& problem);

}  // namespace zelorgas
