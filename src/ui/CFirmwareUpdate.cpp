#include "ui/CFirmwareUpdate.h"

#include <QDir>
#include <system_error>
#include <utility>

#include "app/BackupProcedure.h"
#include "app/LoadProcedure.h"
#include "app/PortListModel.h"
#include "config/StoragePaths.h"
#include "firmware/LinkPreparation.h"
#include "platform/FileSystem.h"
#include "ui/CBootDlg.h"
#include "ui/CEcuControl.h"
#include "ui/CProgressDlg.h"
#include "ui/IdentityText.h"
#include "ui/SimulatedBench.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

// By ECU: what it held before its firmware was replaced.
constexpr std::string_view kBackupSection = "FirmwareBackups";

std::string KeyOf(const EcuIdentity& ecu) {
  return ecu.serial ? FormatSerialNumber(*ecu.serial) : "ECU";
}

}  // namespace

CFirmwareUpdate::CFirmwareUpdate(ClpgecuDoc& document, MessageBoxes& boxes, SettingsStore& store,
                                 std::filesystem::path working_folder)
    : document_(document),
      boxes_(boxes),
      store_(store),
      working_folder_(std::move(working_folder)) {}

FirmwareUpdate::End CFirmwareUpdate::Start(bool in_bootloader) {
  EcuIdentity ecu;
  if (const IdentifyOutcome found = FindUpdateTarget(document_, ecu); !found.Ok()) {
    boxes_.Inform(found.message, MessageIcon::kError);
    return in_bootloader ? End::kNotRunning : End::kUntouched;
  }
  boxes_.Status("Firmware update");
  updated_ = false;
  stored_.clear();
  asked_.clear();
  CBootDlg dialog(
      document_, boxes_,
      {[this] { return FindImages(); },
       QDir::toNativeSeparators(ToQString(PathText(ImageFolder())))},
      [this](const EcuIdentity& target) { return Store(target); }, ecu, window_);
  dialog.exec();
  // The end of the session closes the dialog, and not what it does.
  dialog.WaitForEnd();
  updated_ = dialog.Programmed();
  // What is still in the ECU is nothing to be loaded into it.
  if (!dialog.FlashChanged()) {
    for (const std::string& key : stored_) store_.WriteString(kBackupSection, key, "");
  }
  return dialog.End();
}

std::filesystem::path CFirmwareUpdate::ImageFolder() const {
  return working_folder_ / kFirmwareFolder;
}

std::vector<FirmwareImage> CFirmwareUpdate::FindImages() const {
  std::vector<FirmwareImage> images = FindFirmwareImages(ImageFolder());
  if (document_.Link().PortName() != kSimulatedPortName) {
    std::erase_if(images, [](const FirmwareImage& image) {
      return PathText(image.path.filename()) == kDemoImage;
    });
  }
  return images;
}

std::optional<std::string> CFirmwareUpdate::Store(const EcuIdentity& ecu) {
  std::string problem;
  const auto file =
      BackUpConfiguration(document_, BackupFolder(working_folder_),
                          "What the ECU held before its firmware was updated", problem);
  if (!file) {
    boxes_.Status(problem);
    return std::nullopt;
  }
  // One that was never offered is what the fitter has set, not what a new firmware came with.
  const std::string key = KeyOf(ecu);
  if (store_.ReadString(kBackupSection, key, "").empty()) {
    store_.WriteString(kBackupSection, key, PathText(*file));
    stored_.push_back(key);
  }
  return PathText(*file);
}

void CFirmwareUpdate::FollowConnection(CEcuControl& control) {
  if (std::exchange(updated_, false)) boxes_.Status("The firmware has been updated.");
  const std::string key = KeyOf(control.Identity());
  const std::string file = store_.ReadString(kBackupSection, key, "");
  // After a load that failed the next connection of another run asks again.
  if (file.empty() || file == asked_) return;
  asked_ = file;
  control.Run([this, key, file = PathFromText(file)] {
    if (Offer(file)) store_.WriteString(kBackupSection, key, "");
  });
}

bool CFirmwareUpdate::Offer(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) return true;
  const std::string question = "What the ECU held before its firmware was updated is stored in\n" +
                               PathText(file) + "\nDo you want to load it into the ECU?";
  if (!boxes_.Ask(question)) return true;
  using Outcome = LoadResult::Outcome;
  CProgressDlg progress(QObject::tr("Loading the configuration..."), /*can_cancel=*/false, window_);
  const LoadResult result = LoadProcedure(document_, boxes_, [&](TransferStage, std::size_t words) {
                              static_cast<void>(progress.Step(words, kBlockWords));
                            }).Run({.file = file, .backup_folder = BackupFolder(working_folder_)});
  if (result.words_written > 0) document_.RequestRefresh();
  return result.outcome == Outcome::kLoaded || result.outcome == Outcome::kDeclined;
}

}  // namespace zelorgas
