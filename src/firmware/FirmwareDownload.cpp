#include "firmware/FirmwareDownload.h"

#include <algorithm>
#include <utility>

#include "app/LinkSession.h"
#include "firmware/LinkPreparation.h"

namespace zelorgas {
namespace {

constexpr std::uint16_t kBootloaderBlock = 1;
constexpr std::uint16_t kFirstBlock = 2;
constexpr std::uint16_t kLastBlock = 3;

constexpr std::string_view kErasing = "Erasing...";
constexpr std::string_view kIdle = "Idle";
constexpr std::string_view kErasingCurrent = "Erasing current firmware...";
constexpr std::string_view kDownloading = "Downloading selected firmware...";
constexpr std::string_view kReady = "Ready";

std::string EraseQuestion(const EcuIdentity& ecu) {
  return "Do you want to erase the firmware of the ECU?\nIt will not work until new firmware has "
         "been downloaded.\n\nECU: " +
         NameOfTarget(ecu);
}

std::string ProgramQuestion(const std::filesystem::path& image, std::size_t size,
                            const EcuIdentity& ecu) {
  const std::u8string name = image.filename().u8string();
  return "Do you want to replace the firmware of the ECU?\n\nImage: " +
         std::string(name.begin(), name.end()) + "\nSize: " + std::to_string(size) +
         " bytes\nECU: " + NameOfTarget(ecu);
}

std::string_view ProblemOfChange(const ImageContent& again,
                                 const std::vector<std::uint8_t>& checked) {
  if (!again.problem.empty()) return again.problem;
  return again.bytes == checked ? std::string_view() : kImageChanged;
}

// Lets every exchange be tried as often as a page's; undoes it when it goes.
class MoreAttempts {
 public:
  explicit MoreAttempts(ModbusMaster& master) : master_(master), before_(master.AttemptCount()) {
    master.SetAttemptCount(std::max(before_, LinkSession::kAttempts));
  }
  MoreAttempts(const MoreAttempts&) = delete;
  MoreAttempts& operator=(const MoreAttempts&) = delete;
  ~MoreAttempts() { master_.SetAttemptCount(before_); }

 private:
  ModbusMaster& master_;
  const std::uint16_t before_;
};

}  // namespace

// Flash mode from its order on; switched off when this goes, on whatever path.
class FirmwareDownload::OpenFlash {
 public:
  OpenFlash(FirmwareDownload& download, mbFlasher& flasher)
      : download_(download), flasher_(flasher) {
    download_.flash_open_ = true;
    // Whether it was taken shows in LinkFailure.
    static_cast<void>(flasher_.SetFlashMode(true));
  }
  OpenFlash(const OpenFlash&) = delete;
  OpenFlash& operator=(const OpenFlash&) = delete;
  ~OpenFlash() {
    if (open_) static_cast<void>(SwitchOff());
  }

  // kDone when the ECU has confirmed it. Called once at most.
  End SwitchOff() {
    open_ = false;
    ModbusResult result = flasher_.SetFlashMode(false);
    // An open flash is worth a second round, unless nobody is there.
    if (result != ModbusResult::kOk && !download_.document_.Link().PortLost()) {
      result = flasher_.SetFlashMode(false);
    }
    download_.flash_open_ = false;
    if (result == ModbusResult::kOk) return {};
    return {Outcome::kFailed, kFlashModeStays, MessageIcon::kExclamation, result};
  }

 private:
  FirmwareDownload& download_;
  mbFlasher& flasher_;
  bool open_ = true;
};

FirmwareDownload::FirmwareDownload(ClpgecuDoc& document, MessageBoxes& boxes, FirmwareHooks hooks)
    : document_(document), boxes_(boxes), hooks_(std::move(hooks)) {}

FirmwareDownload::Outcome FirmwareDownload::Erase(const EcuIdentity& ecu) {
  flash_changed_ = false;
  std::optional<std::string> stored;
  if (!boxes_.Ask(EraseQuestion(ecu)) || !StoreFirst(ecu, stored)) {
    return Tell({Outcome::kDeclined});
  }
  const MoreAttempts attempts(document_.Link());
  const Outcome outcome = Tell(EraseUnderway());
  boxes_.Status(kIdle);
  return outcome;
}

FirmwareDownload::Outcome FirmwareDownload::Program(const std::filesystem::path& image,
                                                    const EcuIdentity& ecu) {
  flash_changed_ = false;
  const ImageContent checked = ReadFirmwareImage(image);
  if (!checked.problem.empty()) return Tell({Outcome::kBadImage, checked.problem});
  std::optional<std::string> stored;
  if (!boxes_.Ask(ProgramQuestion(image, checked.bytes.size(), ecu)) || !StoreFirst(ecu, stored)) {
    return Tell({Outcome::kDeclined});
  }
  const MoreAttempts attempts(document_.Link());
  const Outcome outcome = Tell(ProgramUnderway(image, checked.bytes));
  boxes_.Status(kReady);
  if (outcome == Outcome::kDone && stored && hooks_.offer_configuration) {
    hooks_.offer_configuration(*stored);
  }
  return outcome;
}

bool FirmwareDownload::StoreFirst(const EcuIdentity& ecu, std::optional<std::string>& stored) {
  if (!hooks_.store_configuration || ecu.bootloader) return true;
  stored = hooks_.store_configuration();
  return stored || boxes_.Ask(kNoCopyQuestion);
}

FirmwareDownload::Outcome FirmwareDownload::Tell(const End& end) {
  failure_result_ = end.result;
  if (!end.message.empty()) boxes_.Inform(end.message, end.icon);
  return end.outcome;
}

FirmwareDownload::End FirmwareDownload::EraseUnderway() {
  if (const End step = Prepare(); !step.GoOn()) return step;
  mbFlasher flasher = MakeFlasher();
  OpenFlash flash(*this, flasher);
  if (const End step = CheckSupply(flasher); !step.GoOn()) return step;
  // Part of the order that the bootloader is used to; the values serve nothing here.
  flasher.PreEraseValue();
  flasher.SecondPreEraseValue();
  flasher.BlockEnd(kBootloaderBlock);
  if (flasher.LinkFailure() != ModbusResult::kOk) return LinkDown(flasher);
  if (StopWanted()) return {Outcome::kStopped};
  boxes_.Status(kErasing);
  flash_changed_ = true;
  if (const End step = EraseBlocks(flasher, MessageIcon::kError); !step.GoOn()) return step;
  if (const End step = flash.SwitchOff(); !step.GoOn()) return step;
  return {Outcome::kDone, kErased, MessageIcon::kInformation};
}

FirmwareDownload::End FirmwareDownload::ProgramUnderway(const std::filesystem::path& image,
                                                        const std::vector<std::uint8_t>& checked) {
  if (const End step = Prepare(); !step.GoOn()) return step;
  mbFlasher flasher = MakeFlasher();
  OpenFlash flash(*this, flasher);
  if (const End step = CheckSupply(flasher); !step.GoOn()) return step;
  std::uint32_t start = 0;
  if (const End step = CheckRoom(flasher, checked.size(), start); !step.GoOn()) return step;
  // Time has passed since the person was asked about this image.
  const std::string_view problem = ProblemOfChange(ReadFirmwareImage(image), checked);
  if (!problem.empty()) return {Outcome::kBadImage, problem};
  if (StopWanted()) return {Outcome::kStopped};
  boxes_.Status(kErasingCurrent);
  flash_changed_ = true;
  if (const End step = EraseBlocks(flasher, MessageIcon::kNone); !step.GoOn()) return step;
  boxes_.Status(kDownloading);
  if (const End step = WriteImage(flasher, checked, start); !step.GoOn()) return step;
  return flash.SwitchOff();
}

FirmwareDownload::End FirmwareDownload::Prepare() {
  if (StopWanted()) return {Outcome::kStopped};
  EcuIdentity bootloader;
  if (const IdentifyOutcome step = PrepareLink(document_, bootloader); !step.Ok()) {
    return {Outcome::kFailed, step.message, MessageIcon::kError, step.result};
  }
  return {StopWanted() ? Outcome::kStopped : Outcome::kDone};
}

FirmwareDownload::End FirmwareDownload::LinkDown(const mbFlasher& flasher) {
  return {Outcome::kFailed, kNoTargetInfo, MessageIcon::kError, flasher.LinkFailure()};
}

FirmwareDownload::End FirmwareDownload::CheckSupply(mbFlasher& flasher) {
  const std::uint32_t supply = flasher.SupplyCheck();
  if (flasher.LinkFailure() != ModbusResult::kOk) return LinkDown(flasher);
  if (supply == mbFlasher::kNoSupply) return {Outcome::kFailed, kNoSupplyMessage};
  return {};
}

FirmwareDownload::End FirmwareDownload::CheckRoom(mbFlasher& flasher, std::size_t size,
                                                  std::uint32_t& start) {
  const std::uint32_t before = flasher.BlockEnd(kBootloaderBlock);
  const std::uint32_t last = flasher.BlockEnd(kLastBlock);
  const bool page_begins = (before + 1) % mbFlasher::kPageSize == 0;
  if (flasher.LinkFailure() != ModbusResult::kOk || last <= before || !page_begins) {
    return LinkDown(flasher);
  }
  if (size > last - before) return {Outcome::kBadImage, kImageTooLarge};
  start = before + 1;
  return {};
}

FirmwareDownload::End FirmwareDownload::EraseBlocks(mbFlasher& flasher, MessageIcon icon) {
  const auto certain = [&] { return flasher.LinkFailure() == ModbusResult::kOk; };
  for (std::uint16_t block = kFirstBlock; block <= kLastBlock; ++block) {
    const bool blank = flasher.BlankCheck(block) == 0;
    const bool erased = certain() && (blank || flasher.Erase(block) == 0);
    if (!erased || !certain()) {
      return {Outcome::kFailed, kEraseFailed, icon, flasher.LinkFailure()};
    }
  }
  // An ECU that has lost its power in between answers 0, as for a block that is blank.
  for (std::uint16_t block = kFirstBlock; block <= kLastBlock; ++block) {
    if (flasher.BlankCheck(block) != 0 || !certain()) {
      return {Outcome::kFailed, kEraseFailed, icon, flasher.LinkFailure()};
    }
  }
  return {};
}

FirmwareDownload::End FirmwareDownload::WriteImage(mbFlasher& flasher,
                                                   const std::vector<std::uint8_t>& image,
                                                   std::uint32_t start) {
  const FlashStopwatch stopwatch(image, mbFlasher::kPageSize, document_.DocumentClock());
  for (std::size_t done = 0; done < image.size();) {
    const auto piece =
        std::span(image).subspan(done, std::min(mbFlasher::kPageSize, image.size() - done));
    const std::uint32_t result = flasher.Write(piece, start + static_cast<std::uint32_t>(done));
    // A page that went through at a second try has its second half in the place of the first.
    if (result != 0 || flasher.PageSpoilt() || flasher.LinkFailure() != ModbusResult::kOk) {
      return {Outcome::kFailed, kWriteFailed, MessageIcon::kNone, flasher.LinkFailure()};
    }
    done += piece.size();
    if (hooks_.progress) hooks_.progress(stopwatch.At(done));
  }
  return {};
}

mbFlasher FirmwareDownload::MakeFlasher() {
  return {&document_.Link(),
          [this](std::chrono::milliseconds time) { document_.SleepSliced(time); }};
}

}  // namespace zelorgas
