#include "app/LoadProcedure.h"

#include <algorithm>
#include <chrono>
#include <span>

#include "app/BackupProcedure.h"
#include "app/LinkSession.h"
#include "app/StoreProcedure.h"
#include "config/BlockTransfer.h"
#include "config/Utf8Text.h"
#include "platform/FileSystem.h"

namespace zelorgas {
namespace {

constexpr std::chrono::milliseconds kRest{25};
constexpr std::string_view kTryAgain = "\nDo you want to try again?";

void Report(const TransferProgress& progress, TransferStage stage, std::size_t words) {
  if (progress) progress(stage, words);
}

void PutIntoImage(ClpgecuDoc& document, const ConfigurationBlock& block) {
  document.ImageLock();
  document.Image().block = block;
  document.ImageUnlock();
}

ModbusResult ReadWholeBlock(ClpgecuDoc& document, TransferStage stage,
                            const TransferProgress& progress, ConfigurationBlock& block) {
  LinkSession session(document, LinkSession::Wait::kGrace);
  Report(progress, stage, 0);
  const ChunkDone store = StoreInto(block);
  return ReadBlock(session.Link(), [&](std::size_t offset, std::span<const std::uint16_t> words) {
    store(offset, words);
    Report(progress, stage, offset + words.size());
  });
}

}  // namespace

ModbusResult ReadConfigurationIntoImage(ClpgecuDoc& document, const TransferProgress& progress) {
  ConfigurationBlock block{};
  const ModbusResult result = ReadWholeBlock(document, TransferStage::kReading, progress, block);
  if (result == ModbusResult::kOk) PutIntoImage(document, block);
  return result;
}

LoadResult LoadProcedure::Run(const LoadRequest& request) {
  result_ = {};
  result_.outcome = RunSteps(request);
  switch (result_.outcome) {
    case Outcome::kLoaded:
      boxes_.Inform(kConfigurationLoaded, MessageIcon::kInformation);
      break;
    case Outcome::kUnchecked:
      boxes_.Inform(std::string(kConfigurationUnchecked) + ".", MessageIcon::kExclamation);
      break;
    case Outcome::kNoFile:
    case Outcome::kDeclined:
    case Outcome::kDamaged:
    case Outcome::kNoBackup:
      break;
    default:
      boxes_.Inform(kConfigurationNotLoaded, MessageIcon::kError);
  }
  return std::move(result_);
}

LoadProcedure::Outcome LoadProcedure::RunSteps(const LoadRequest& request) {
  if (request.file.empty()) {
    boxes_.Inform(kFileNameIncomplete, MessageIcon::kExclamation);
    return Outcome::kNoFile;
  }
  if (!boxes_.Ask(kLoadQuestion)) return Outcome::kDeclined;
  if (Outcome refused{}; !AcceptFile(request, refused)) return refused;
  if (!ReadPresent()) return Outcome::kNotBegun;
  if (!StoreBackup(request)) return Outcome::kNoBackup;
  const ConfigurationBlock block = result_.file.Over(present_);
  if (!Write(block)) {
    std::string text = std::to_string(result_.words_written) + " of " +
                       std::to_string(kBlockWords) + " values have been written.";
    if (!result_.backup.empty()) {
      text += " What the ECU held before is stored in " + PathText(result_.backup);
    }
    boxes_.Status(text);
    return Outcome::kUnfinished;
  }
  return Check(block);
}

bool LoadProcedure::AcceptFile(const LoadRequest& request, Outcome& outcome) {
  result_.file =
      ReadConfigurationFile(request.file, document_.Snapshot().block, document_.RoutingMap());
  if (!result_.file.Usable()) {
    const std::vector<std::string>& faults = result_.file.faults;
    std::string text = Shortened(faults.front());
    if (faults.size() > 1) text += " (and " + std::to_string(faults.size() - 1) + " more)";
    boxes_.Status(text);
    outcome = Outcome::kBadFile;
    return false;
  }
  if (result_.file.damage.empty()) return true;
  outcome = Outcome::kDamaged;
  return boxes_.Ask("The file is damaged:\n" + Shortened(result_.file.damage) +
                    "\nOnly a part of the configuration may be in it. Do you want to load what is "
                    "left?");
}

bool LoadProcedure::Persist(const std::function<ModbusResult()>& attempt,
                            const std::function<std::string()>& problem) {
  for (;;) {
    result_.link_result = attempt();
    if (result_.link_result == ModbusResult::kOk) return true;
    const std::string reason = ": " + document_.Link().ErrorText(result_.link_result);
    if (!boxes_.Ask(problem() + reason + std::string(kTryAgain))) return false;
  }
}

bool LoadProcedure::ReadPresent() {
  return Persist(
      [this] { return ReadWholeBlock(document_, TransferStage::kReading, progress_, present_); },
      [] {
        return std::string(
            "Nothing has been written: the ECU's present configuration could not be read");
      });
}

bool LoadProcedure::StoreBackup(const LoadRequest& request) {
  const std::filesystem::path file = NewBackupFile(request.backup_folder);
  const std::string notes =
      "What the ECU held before " + PathText(request.file.filename()) + " was loaded into it";
  std::string problem;
  if (WriteConfigurationFile(file, present_, document_.RoutingMap(), notes, problem)) {
    result_.backup = file;
    return true;
  }
  return boxes_.Ask("The ECU's present configuration could not be stored beforehand.\n" + problem +
                    "\nDo you want to write over it all the same?");
}

bool LoadProcedure::Write(const ConfigurationBlock& block) {
  const auto write = [&] {
    LinkSession session(document_, LinkSession::Wait::kGrace);
    Report(progress_, TransferStage::kWriting, 0);
    const ChunkDone keep = StoreInto(session.Image().block);
    return WriteBlock(session.Link(), block,
                      [&](std::size_t offset, std::span<const std::uint16_t> words) {
                        keep(offset, words);
                        const std::size_t written = offset + words.size();
                        // Of all tries: a later one may have come less far.
                        result_.words_written = std::max(result_.words_written, written);
                        Report(progress_, TransferStage::kWriting, written);
                        document_.SleepSliced(kRest);
                      });
  };
  return Persist(write, [this] {
    return "The link failed after " + std::to_string(result_.words_written) + " of " +
           std::to_string(kBlockWords) + " values had been written";
  });
}

LoadProcedure::Outcome LoadProcedure::Check(const ConfigurationBlock& block) {
  ConfigurationBlock held{};
  const auto read = [&] {
    return ReadWholeBlock(document_, TransferStage::kChecking, progress_, held);
  };
  if (!Persist(read, [] { return std::string(kConfigurationUnchecked); })) {
    return Outcome::kUnchecked;
  }
  result_.differences = CompareBlocks(block, held);
  if (result_.differences.empty()) return Outcome::kLoaded;
  PutIntoImage(document_, held);
  boxes_.Inform("The ECU has not taken everything that was written:\n" +
                    ListOfDifferences(result_.differences),
                MessageIcon::kExclamation);
  return Outcome::kDifferent;
}

std::string ListOfDifferences(const std::vector<BlockDifference>& differences) {
  constexpr std::size_t kMostLines = 15;
  std::string text;
  for (std::size_t i = 0; i < std::min(differences.size(), kMostLines); ++i) {
    const BlockDifference& difference = differences[i];
    if (i != 0) text += '\n';
    text += difference.cell->Label() + ": " + difference.first_text +
            " was written, the ECU holds " + difference.second_text;
  }
  if (differences.size() > kMostLines) {
    text += "\nand " + std::to_string(differences.size() - kMostLines) + " more";
  }
  return text;
}

}  // namespace zelorgas
