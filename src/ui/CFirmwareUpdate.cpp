#include "ui/CFirmwareUpdate.h"

#include <QDir>
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

CFirmwareUpdate::CFirmwareUpdate(ClpgecuDoc& document, MessageBoxes& boxes,
                                 std::filesystem::path working_folder)
    : document_(document), boxes_(boxes), working_folder_(std::move(working_folder)) {}

FirmwareUpdate::End CFirmwareUpdate::Start(bool /*in_bootloader*/) {
  EcuIdentity ecu;
  if (const IdentifyOutcome found = FindUpdateTarget(document_, ecu); !found.Ok()) {
    boxes_.Inform(found.message, MessageIcon::kError);
    return End::kNotRunning;
  }
  boxes_.Status("Firmware update");
  updated_ = false;
  // An ECU that is in its bootloader says nothing of which one it is: what an update that broke off
  // has stored before is still its own.
  if (!ecu.bootloader) stored_.reset();
  CBootDlg dialog(
      document_, boxes_,
      {[this] { return FindImages(); },
       QDir::toNativeSeparators(ToQString(PathText(ImageFolder())))},
      [this, serial = ecu.serial] { return Store(serial); }, ecu, window_);
  dialog.exec();
  updated_ = dialog.Programmed();
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

std::optional<std::string> CFirmwareUpdate::Store(std::optional<std::uint32_t> serial) {
  std::string problem;
  const auto file =
      BackUpConfiguration(document_, BackupFolder(working_folder_),
                          "What the ECU held before its firmware was updated", problem);
  if (!file) {
    boxes_.Status(problem);
    return std::nullopt;
  }
  stored_ = Stored{*file, serial};
  return PathText(*file);
}

void CFirmwareUpdate::FollowConnection(CEcuControl& control) {
  if (!std::exchange(updated_, false)) return;
  boxes_.Status("The firmware has been updated.");
  const std::optional<Stored> stored = std::exchange(stored_, std::nullopt);
  if (!stored || stored->serial != control.Identity().serial) return;
  control.Run([this, file = stored->file] { Offer(file); });
}

void CFirmwareUpdate::Offer(const std::filesystem::path& file) {
  const std::string question =
      "The firmware has been updated. What the ECU held before is stored in\n" + PathText(file) +
      "\nDo you want to load it into the ECU?";
  if (!boxes_.Ask(question)) return;
  CProgressDlg progress(QObject::tr("Loading the configuration..."), /*can_cancel=*/false, window_);
  static_cast<void>(LoadProcedure(document_, boxes_, [&](TransferStage, std::size_t words) {
                      static_cast<void>(progress.Step(words, kBlockWords));
                    }).Run({.file = file, .backup_folder = BackupFolder(working_folder_)}));
}

}  // namespace zelorgas
