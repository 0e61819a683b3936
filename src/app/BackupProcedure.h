// Keeping what an ECU holds before something is done to it that may lose it. Runs on the
// user-interface thread, or the command line's only one; the document's slice hook keeps the window
// alive.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "app/ClpgecuDoc.h"
#include "config/ConfigurationBlock.h"
#include "platform/Message.h"

namespace zelorgas {

// A file of `folder` that does not exist yet, named after the local time.
[[nodiscard]] std::filesystem::path NewBackupFile(const std::filesystem::path& folder);

// A file carries one of the two routing maps. A backup of both is the file with the first one, and
// beside it the same with the second: "20260312174502_backup.fob" and
// "20260312174502_backup_map2.fob".
[[nodiscard]] std::filesystem::path SecondMapFile(const std::filesystem::path& backup);

// Writes both files, which carry `notes` (UTF-8). False, with the reason in `problem`, when that
// failed.
[[nodiscard]] bool WriteBackup(const std::filesystem::path& backup, const ConfigurationBlock& block,
                               std::string_view notes, Message& problem);

// Reads the ECU's whole configuration into the image and stores it with both routing maps in new
// files of `folder`, which is made when there is none; gives the first file. Nothing, with the
// reason in `problem`, when it could not be read or written.
[[nodiscard]] std::optional<std::filesystem::path> BackUpConfiguration(
    ClpgecuDoc& document, const std::filesystem::path& folder, std::string_view notes,
    Message& problem);

}  // namespace zelorgas
