// Keeping what an ECU holds before something is done to it that may lose it. Runs on the
// user-interface thread, or the command line's only one; the document's slice hook keeps the window
// alive.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "app/ClpgecuDoc.h"
#include "platform/Message.h"

namespace zelorgas {

// A file of `folder` that does not exist yet, named after the local time.
[[nodiscard]] std::filesystem::path NewBackupFile(const std::filesystem::path& folder);

// Reads the ECU's whole configuration into the image and stores it with `notes` (UTF-8) and its
// routing map `routing_map` in a new file of `folder`, which is made when there is none; gives the
// file. Nothing, with the reason in `problem`, when it could not be read or written.
[[nodiscard]] std::optional<std::filesystem::path> BackUpConfiguration(
    ClpgecuDoc& document, const std::filesystem::path& folder, std::size_t routing_map,
    std::string_view notes, Message& problem);

}  // namespace zelorgas
