#include "app/StoreProcedure.h"

#include <system_error>

#include "config/ConfigurationFile.h"
#include "platform/FileSystem.h"

namespace zelorgas {
namespace {

Message QuestionFor(const StoreRequest& request) {
  if (StoreTargetOf(request.file) == StoreTarget::kExisting) return kStoreQuestion;
  return {FixedText::Of("Do you want to store current configuration in file \"%1\"?"),
          PathText(request.file.filename())};
}

}  // namespace

StoreDialogTexts TextsOfStoreDialog(StoreTarget target) {
  constexpr FixedText kStoredIn = FixedText::Of("Current configuration data will be stored in");
  constexpr FixedText kName = FixedText::Of("File Name");
  constexpr FixedText kNotes = FixedText::Of("Notes");
  constexpr FixedText kAddNotes = FixedText::Of("Please, add notes");
  switch (target) {
    case StoreTarget::kUnnamed:
      return {FixedText::Of("Current configuration data will be stored in file!"),
              {},
              kName,
              kNotes,
              kAddNotes};
    case StoreTarget::kSuggested:
      return {FixedText::Of(
                  "Current configuration data will be stored in a new file,\nplease add notes!"),
              {},
              kName,
              kNotes,
              kAddNotes};
    case StoreTarget::kNew:
      return {kStoredIn, FixedText::Of("a new file, please add notes!"), kName, kNotes, kAddNotes};
    case StoreTarget::kExisting:
      return {kStoredIn, FixedText::Of("the existing file, please update the notes!"),
              FixedText::Of("Existing File Name"), kNotes,
              FixedText::Of("Please, update the notes")};
    default:
      return {FixedText::Of("Current configuration data will not be stored in file!"),
              {},
              kName,
              kNotes,
              {}};
  }
}

StoreTarget StoreTargetOf(const std::filesystem::path& file) {
  if (file.empty()) return StoreTarget::kUnnamed;
  std::error_code error;
  return std::filesystem::exists(file, error) ? StoreTarget::kExisting : StoreTarget::kNew;
}

StoreOutcome StoreConfiguration(ClpgecuDoc& document, MessageBoxes& boxes,
                                const StoreRequest& request) {
  if (request.file.empty()) {
    boxes.Inform(kFileNameIncomplete, MessageIcon::kExclamation);
    return StoreOutcome::kNoFile;
  }
  // What is stored is what the program held when it was asked for.
  const ConfigurationBlock block = document.Snapshot().block;
  const std::size_t routing_map = document.RoutingMap();
  if (!boxes.Ask(QuestionFor(request))) return StoreOutcome::kDeclined;
  Message problem;
  if (!WriteConfigurationFile(request.file, block, routing_map, request.notes, problem)) {
    boxes.Status(problem);
    boxes.Inform(kConfigurationNotStored, MessageIcon::kError);
    return StoreOutcome::kFailed;
  }
  boxes.Inform(kConfigurationStored, MessageIcon::kInformation);
  return StoreOutcome::kStored;
}

}  // namespace zelorgas
