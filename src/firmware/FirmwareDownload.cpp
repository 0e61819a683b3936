#include "firmware/FirmwareDownload.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/LinkSession.h"
#include "firmware/LinkPreparation.h"
#include "platform/FileSystem.h"

namespace zelorgas {
namespace {

constexpr std::uint16_t kBootloaderBlock = 1;
constexpr std::uint16_t kFirstBlock = 2;
constexpr std::uint16_t kLastBlock = 3;

constexpr FixedText kErasing = FixedText::Of("Erasing...");
constexpr FixedText kIdle = FixedText::Of("Idle");
constexpr FixedText kErasingCurrent = FixedText::Of("Erasing current firmware...");
constexpr FixedText kDownloading = FixedText::Of("Downloading selected firmware...");
constexpr FixedText kReady = FixedText::Of("Ready");

Message EraseQuestion(const EcuIdentity& ecu) {
  return {FixedText::Of("Do you want to erase the firmware of the ECU?\nIt will not work until new "
                        "firmware has been downloaded.\n\nECU: %1"),
          NameOfTarget(ecu)};
}

Message ProgramQuestion(const std::filesystem::path& image, std::size_t size,
                        const EcuIdentity& ecu) {
  return {FixedText::Of("Do you want to replace the firmware of the ECU?\n\nImage: %1\nSize: %2 "
                        "bytes\nECU: %3"),
          PathText(image.filename()), size, NameOfTarget(ecu)};
}

FixedText ProblemOfChange(const ImageContent& again, const std::vector<std::uint8_t>& checked) {
  if (!again.problem.empty()) return again.problem;
  return again.bytes == checked ? FixedText() : kImageChanged;
}

}  // namespace

FirmwareDownload::FirmwareDownload(ClpgecuDoc& document, MessageBoxes& boxes, FirmwareHooks hooks)
    : document_(document), boxes_(boxes), hooks_(std::move(hooks)) {}

FirmwareDownload::Outcome FirmwareDownload::Erase(const EcuIdentity& ecu) {
  application_left_ = flash_changed_ = false;
  if (const End end = Confirm(EraseQuestion(ecu), ecu); !end.GoOn()) return Tell(end);
  const MoreAttempts attempts(document_.Link());
  End end = Prepare();
  if (end.GoOn()) end = InFlashMode([this](mbFlasher& flasher) { return EraseAll(flasher); });
  if (end.GoOn()) end = {Outcome::kDone, kErased, MessageIcon::kInformation};
  const Outcome outcome = Tell(end);
  boxes_.Status(kIdle);
  return outcome;
}

FirmwareDownload::Outcome FirmwareDownload::Program(const std::filesystem::path& image,
                                                    const EcuIdentity& ecu) {
  application_left_ = flash_changed_ = false;
  const ImageContent checked = ReadFirmwareImage(image);
  if (!checked.problem.empty()) return Tell({Outcome::kBadImage, checked.problem});
  const Message question = ProgramQuestion(image, checked.bytes.size(), ecu);
  if (const End end = Confirm(question, ecu); !end.GoOn()) return Tell(end);
  const MoreAttempts attempts(document_.Link());
  End end = Prepare();
  if (end.GoOn()) {
    end = InFlashMode(
        [&](mbFlasher& flasher) { return EraseAndWrite(flasher, image, checked.bytes); });
  }
  const Outcome outcome = Tell(end);
  boxes_.Status(kReady);
  return outcome;
}

FirmwareDownload::End FirmwareDownload::Confirm(const Message& question, const EcuIdentity& ecu) {
  if (!boxes_.Ask(question)) return {Outcome::kDeclined};
  // A box may stand there for long: time to change the cable, or the car.
  if (const End step = CheckTarget(document_, ecu); !step.GoOn()) return step;
  if (!hooks_.store_configuration || ecu.bootloader) return {};
  if (!hooks_.store_configuration(ecu) && !boxes_.Ask(kNoCopyQuestion)) {
    return {Outcome::kDeclined};
  }
  // So do the copy's many exchanges.
  return CheckTarget(document_, ecu);
}

FirmwareDownload::End FirmwareDownload::CheckTarget(ClpgecuDoc& document, const EcuIdentity& ecu) {
  const IdentifyOutcome step = CheckUpdateTarget(document, ecu);
  if (step.Ok()) return {};
  return {Outcome::kFailed, step.message, MessageIcon::kError, step.result};
}

FirmwareDownload::Outcome FirmwareDownload::Tell(const End& end) {
  failure_result_ = end.result;
  if (!end.message.empty()) boxes_.Inform(end.message, end.icon);
  if (end.flash_mode_stays) boxes_.Inform(kFlashModeStays, MessageIcon::kExclamation);
  return end.outcome;
}

FirmwareDownload::End FirmwareDownload::InFlashMode(const std::function<End(mbFlasher&)>& work) {
  mbFlasher flasher(&document_.Link(),
                    [this](std::chrono::milliseconds time) { document_.SleepSliced(time); });
  End end = flasher.SetFlashMode(true) == ModbusResult::kOk ? work(flasher) : LinkDown(flasher);
  ModbusResult result = flasher.SetFlashMode(false);
  // An open flash is worth a second round, unless nobody is there.
  if (result != ModbusResult::kOk && !document_.Link().PortLost()) {
    result = flasher.SetFlashMode(false);
  }
  if (result == ModbusResult::kOk) return end;
  if (end.GoOn()) end = {.outcome = Outcome::kFailed, .result = result};
  end.flash_mode_stays = true;
  return end;
}

FirmwareDownload::End FirmwareDownload::EraseAll(mbFlasher& flasher) {
  if (const End step = CheckSupply(flasher); !step.GoOn()) return step;
  // Part of the order that the bootloader is used to; the values serve nothing here.
  flasher.PreEraseValue();
  flasher.SecondPreEraseValue();
  flasher.BlockEnd(kBootloaderBlock);
  if (flasher.LinkFailure() != ModbusResult::kOk) return LinkDown(flasher);
  if (StopWanted()) return {Outcome::kStopped};
  boxes_.Status(kErasing);
  return EraseBlocks(flasher, MessageIcon::kError);
}

FirmwareDownload::End FirmwareDownload::EraseAndWrite(mbFlasher& flasher,
                                                      const std::filesystem::path& image,
                                                      const std::vector<std::uint8_t>& checked) {
  if (const End step = CheckSupply(flasher); !step.GoOn()) return step;
  std::uint32_t start = 0;
  if (const End step = CheckRoom(flasher, checked.size(), start); !step.GoOn()) return step;
  // Time has passed since the person was asked about this image.
  const FixedText problem = ProblemOfChange(ReadFirmwareImage(image), checked);
  if (!problem.empty()) return {Outcome::kBadImage, problem};
  if (StopWanted()) return {Outcome::kStopped};
  boxes_.Status(kErasingCurrent);
  if (const End step = EraseBlocks(flasher, MessageIcon::kNone); !step.GoOn()) return step;
  boxes_.Status(kDownloading);
  return WriteImage(flasher, checked, start);
}

FirmwareDownload::End FirmwareDownload::Prepare() {
  if (StopWanted()) return {Outcome::kStopped};
  application_left_ = true;
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
    if (StopWanted()) return {Outcome::kStopped};
    bool blank = flasher.BlankCheck(block) == 0;
    if (!blank && certain()) {
      flash_changed_ = true;
      blank = flasher.Erase(block) == 0;
    }
    if (!blank || !certain()) {
      return {Outcome::kFailed, kEraseFailed, icon, flasher.LinkFailure()};
    }
  }
  // Blocks that were blank before leave the ECU without firmware too.
  flash_changed_ = true;
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
  const auto write_failed = [&] {
    return End{Outcome::kFailed, kWriteFailed, MessageIcon::kNone, flasher.LinkFailure()};
  };
  // What the bootloader remembers of an earlier command, behind the first page: it may forget by
  // writing one.
  std::optional<std::uint32_t> remembered;
  unsigned sent = 0;
  for (std::size_t done = 0; done < image.size();) {
    if (StopWanted()) return {Outcome::kStopped};
    const auto piece =
        std::span(image).subspan(done, std::min(mbFlasher::kPageSize, image.size() - done));
    if (!mbFlasher::IsBlank(piece) && ++sent == 2) remembered = flasher.KeptBlockEnd();
    const std::uint32_t result = flasher.Write(piece, start + static_cast<std::uint32_t>(done));
    // A page that went through at a second try has its second half in the place of the first.
    if (result != 0 || flasher.PageSpoilt() || flasher.LinkFailure() != ModbusResult::kOk) {
      return write_failed();
    }
    done += piece.size();
    if (hooks_.progress) hooks_.progress(stopwatch.At(done));
  }
  // A bootloader that restarts in the middle of a page answers 0 for it, as for one that is
  // written. Out of flash mode it refuses the next page; behind the last one only its memory tells.
  const bool restarted = remembered && flasher.KeptBlockEnd() != *remembered;
  return restarted || flasher.LinkFailure() != ModbusResult::kOk ? write_failed() : End{};
}

}  // namespace zelorgas
