// Storing the configuration that the program holds of the ECU in a file, and the texts of the
// dialog in which a person chooses the file. Runs on the user-interface thread, or the command
// line's only one.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "app/ClpgecuDoc.h"
#include "app/MessageBoxes.h"
#include "platform/Message.h"

namespace zelorgas {

// What was asked for needs a file, and none is named.
inline constexpr FixedText kFileNameIncomplete =
    FixedText::Of("The filename has not completed!\nPlease specify all the required fields.");
// Asked before a file is written over.
inline constexpr FixedText kStoreQuestion = FixedText::Of(
    "The current configuration data are giong to be stored into the specified file!\n"
    "Do you realy want to continue?");
inline constexpr FixedText kConfigurationStored =
    FixedText::Of("The configuration data have been stored successfully!");
inline constexpr FixedText kConfigurationNotStored =
    FixedText::Of("An error has occured while trying to store configuration data!");
// For a page on which nothing is selected when a load is asked for.
inline constexpr FixedText kSelectFileFirst = FixedText::Of(
    "Please, select a file path from the tree view and then a file from the file list.");

// What the store dialog is about to do.
enum class StoreTarget : std::uint8_t {
  kNone,       // no file is wanted
  kUnnamed,    // a file, whose name is still to come
  kSuggested,  // a new file under the name that the program has made
  kNew,        // a file that does not exist
  kExisting,   // a file that is going to be written over
};
// The dialog's words. `detail` stands below `heading` and may be empty.
struct StoreDialogTexts {
  FixedText heading;
  FixedText detail;
  FixedText name_label;
  FixedText notes_label;
  FixedText notes_hint;
};
[[nodiscard]] StoreDialogTexts TextsOfStoreDialog(StoreTarget target);
// kUnnamed, kNew or kExisting. `file` as StorageFile gives it, or empty.
[[nodiscard]] StoreTarget StoreTargetOf(const std::filesystem::path& file);

struct StoreRequest {
  std::filesystem::path file;  // from StorageFile when a person typed the name
  std::string notes;           // UTF-8
};

enum class StoreOutcome : std::uint8_t {
  kStored,
  kNoFile,    // the request names none
  kDeclined,  // by the person; nothing was written
  kFailed,    // the status line says why, and whether what was at the path is still there
};

// Asks, stores the block that the image has before the question, and says what became of it; the
// reason of a failure goes to the status line.
StoreOutcome StoreConfiguration(ClpgecuDoc& document, MessageBoxes& boxes,
                                const StoreRequest& request);

}  // namespace zelorgas
