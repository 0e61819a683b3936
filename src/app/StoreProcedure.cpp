#include "app/StoreProcedure.h"

#include <system_error>

#include "config/ConfigurationFile.h"
#include "platform/FileSystem.h"

namespace zelorgas {
namespace {

std::string QuestionFor(const StoreRequest& request) {
  if (StoreTargetOf(request.file) == StoreTarget::kExisting) return std::string(kStoreQuestion);
  return "Do you want to store current configuration in file \"" + PathText(request.file.stem()) +
         ".fob\"?";
}

}  // namespace

StoreDialogTexts TextsOfStoreDialog(StoreTarget target) {
  switch (target) {
    case StoreTarget::kUnnamed:
      return {"Current configuration data will be stored in file!", "", "File Name", "Notes",
              "Please, add notes"};
    case StoreTarget::kSuggested:
      return {"Current configuration data will be stored in a new file,\nplease add notes!", "",
              "File Name", "Notes", "Please, add notes"};
    case StoreTarget::kNew:
      return {"Current configuration data will be stored in", "a new file, please add notes!",
              "File Name", "Notes", "Please, add notes"};
    case StoreTarget::kExisting:
      return {"Current configuration data will be stored in",
              "the existing file, please update the notes!", "Existing File Name", "Notes",
              "Please, update the notes"};
    default:
      return {"Current configuration data will not be stored in file!", "", "File Name", "Notes",
              ""};
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
  if (!boxes.Ask(QuestionFor(request))) return StoreOutcome::kDeclined;
  std::string problem;
  if (!WriteConfigurationFile(request.file, document.Snapshot().block, document.RoutingMap(),
                              request.notes, problem)) {
    boxes.Status(problem);
    boxes.Inform(kConfigurationNotStored, MessageIcon::kError);
    return StoreOutcome::kFailed;
  }
  boxes.Inform(kConfigurationStored, MessageIcon::kInformation);
  return StoreOutcome::kStored;
}

}  // namespace zelorgas
