#include "ui/CFirmwareUpdate.h"

#include <QDir>
#include <QEvent>
#include <system_error>
#include <utility>

#include "app/BackupProcedure.h"
#include "app/PortListModel.h"
#include "config/StoragePaths.h"
#include "firmware/LinkPreparation.h"
#include "platform/FileSystem.h"
#include "ui/CBootDlg.h"
#include "ui/CEcuControl.h"
#include "ui/IdentityText.h"
#include "ui/LoadWithProgress.h"
#include "ui/SimulatedBench.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

// By ECU: what it held before its firmware was replaced.
constexpr std::string_view kBackupSection = "FirmwareBackups";

// What an ECU without a serial number is kept under.
constexpr std::string_view kNoSerial = "ECU";

bool FileExists(const std::filesystem::path& file) {
  std::error_code error;
  return std::filesystem::exists(file, error);
}

// Sees whether a window is told to close: a No in a box that closes with it is nobody's answer.
class CloseWatch final : public QObject {
 public:
  explicit CloseWatch(QObject* window) {
    if (window != nullptr) window->installEventFilter(this);
  }
  [[nodiscard]] bool Closed() const { return closed_; }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    closed_ = closed_ || event->type() == QEvent::Close;
    return false;
  }

 private:
  bool closed_ = false;
};

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
  boxes_.Status(FixedText::Of("Firmware update"));
  updated_.reset();
  target_ = ecu.serial;
  asked_.clear();
  CBootDlg dialog(document_, boxes_,
                  {[this] { return FindImages(); },
                   QDir::toNativeSeparators(ToQString(PathText(ImageFolder())))},
                  {[this](const EcuIdentity& target) { return Store(target); },
                   [this](bool erased) { Settle(erased); }},
                  ecu, window_);
  dialog.exec();
  // The end of the session closes the dialog, and not what it does.
  dialog.WaitForEnd();
  if (dialog.Programmed()) {
    updated_ = {document_.Link().PortName(), target_, dialog.End() == End::kUpdated};
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

std::string CFirmwareUpdate::KeyOf(const EcuIdentity& ecu) const {
  std::string key = ecu.serial ? FormatSerialNumber(*ecu.serial) : std::string(kNoSerial);
  // It may have the number of a car's.
  if (document_.Link().PortName() == kSimulatedPortName) key.insert(0, "Simulated");
  return key;
}

std::string CFirmwareUpdate::Kept(const std::string& key) const {
  return store_.ReadString(kBackupSection, key, "");
}

void CFirmwareUpdate::Keep(const std::string& key, std::string_view value) {
  // Where the settings cannot be kept nothing is offered; the file is there all the same.
  static_cast<void>(store_.WriteString(kBackupSection, key, value));
}

bool CFirmwareUpdate::IsUpdated(const EcuIdentity& ecu) const {
  return updated_ && updated_->port == document_.Link().PortName() &&
         (!updated_->serial || updated_->serial == ecu.serial);
}

bool CFirmwareUpdate::Store(const EcuIdentity& ecu) {
  target_ = ecu.serial;
  Message problem;
  const auto file = BackUpConfiguration(
      document_, BackupFolder(working_folder_),
      boxes_.WordsOf(FixedText::Of("What the ECU held before its firmware was updated")), problem);
  if (!file) {
    boxes_.Status(problem);
    return false;
  }
  const std::string key = KeyOf(ecu);
  const std::string before = Kept(key);
  // One that was never offered is what the fitter has set, not what a new firmware came with.
  // Without a serial number it may be another ECU's.
  if (before.empty() || !ecu.serial || !FileExists(PathFromText(before))) {
    unsettled_ = {key, before, !ecu.serial};
    Keep(key, PathText(*file));
  }
  return true;
}

void CFirmwareUpdate::Settle(bool erased) {
  const std::optional<Unsettled> stored = std::exchange(unsettled_, std::nullopt);
  if (!stored) return;
  if (!erased) {
    // What is still in the ECU is nothing to be loaded into it.
    Keep(stored->key, stored->before);
  } else if (stored->nameless) {
    nameless_ = stored->key;
  }
}

void CFirmwareUpdate::FollowConnection(CEcuControl& control) {
  // What has read it may have ended.
  if (control.CurrentState() != CEcuControl::State::kConnected) return;
  const std::string key = KeyOf(control.Identity());
  if (IsUpdated(control.Identity())) {
    const bool runs = std::exchange(updated_, std::nullopt)->runs;
    boxes_.Status(FixedText::Of("The firmware has been updated."));
    emit control.ConfigurationLoaded();
    // A new firmware has given the ECU its serial number. One that is connected to later may be
    // another.
    const std::string nameless = std::exchange(nameless_, "");
    if (runs && !nameless.empty() && Kept(key).empty()) {
      Keep(key, Kept(nameless));
      Keep(nameless, "");
    }
  }
  const std::string backup = Kept(key);
  // After a load that failed the next connection of another run asks again.
  if (backup.empty() || backup == asked_) return;
  // Later: what the worker has reported is first shown to its end.
  control.RunLaterOnThisEcu(&control, [this, &control, key, backup] {
    // The image may have been read twice before.
    if (backup == asked_) return;
    asked_ = backup;
    if (Offer(control, backup)) Keep(key, "");
  });
}

bool CFirmwareUpdate::Offer(CEcuControl& control, std::string_view backup) {
  const std::filesystem::path file = PathFromText(backup);
  if (!FileExists(file)) return true;
  const Message question(
      FixedText::Of("What the ECU held before its firmware was updated is stored "
                    "in\n%1\nDo you want to load it into the ECU?"),
      PathText(file));
  const CloseWatch window(window_);
  if (!boxes_.Ask(question)) return !window.Closed();
  using Outcome = LoadResult::Outcome;
  const LoadResult result =
      LoadWithProgress(document_, boxes_, control,
                       {.file = file,
                        .backup_folder = BackupFolder(working_folder_),
                        .routing_map = 0,
                        .both_maps = FileExists(SecondMapFile(file))},
                       TranslatedMessage(FixedText::Of("Loading the configuration...")), window_);
  switch (result.outcome) {
    case Outcome::kLoaded:
    case Outcome::kDifferent:
      return true;
    case Outcome::kDeclined:
      return !window.Closed();
    default:
      return false;
  }
}

}  // namespace zelorgas
