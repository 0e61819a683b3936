#include "app/LoadProcedure.h"

#include <algorithm>
#include <span>

#include "app/BackupProcedure.h"
#include "app/LinkSession.h"
#include "app/StoreProcedure.h"
#include "config/BlockTransfer.h"
#include "platform/FileSystem.h"

namespace zelorgas {
namespace {

constexpr FixedText kTryAgain = FixedText::Of("Do you want to try again?");

void Report(const TransferProgress& progress, TransferStage stage, std::size_t words) {
  if (progress) progress(stage, words);
}

void PutIntoImage(ClpgecuDoc& document, const ConfigurationBlock& block) {
  document.ImageLock();
  document.Image().block = block;
  document.ImageUnlock();
}

ModbusResult ReadWholeBlock(LinkSession& session, TransferStage stage,
                            const TransferProgress& progress, ConfigurationBlock& block) {
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
  LinkSession session(document, LinkSession::Wait::kGrace);
  const ModbusResult result = ReadWholeBlock(session, TransferStage::kReading, progress, block);
  if (result == ModbusResult::kOk) PutIntoImage(document, block);
  return result;
}

LoadResult LoadProcedure::Run(const LoadRequest& request) {
  result_ = {};
  result_.outcome = RunSteps(request);
  Report(progress_, TransferStage::kDone, kBlockWords);
  switch (result_.outcome) {
    case Outcome::kLoaded:
      boxes_.Inform(kConfigurationLoaded, MessageIcon::kInformation);
      break;
    case Outcome::kUnchecked: {
      Message text = kConfigurationUnchecked;
      text.Append(".", {});
      boxes_.Inform(text, MessageIcon::kExclamation);
      break;
    }
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
  const ConfigurationBlock block = second_map_.Over(result_.file.Over(present_));
  if (!Write(block)) {
    Message text(FixedText::Of("%1 of %2 values have been written."), result_.words_written,
                 kBlockWords);
    text.Append(" ", BackupText());
    boxes_.Status(text);
    return Outcome::kUnfinished;
  }
  const Outcome outcome = Check(block);
  if (outcome != Outcome::kLoaded && !result_.backup.empty()) boxes_.Status(BackupText());
  return outcome;
}

Message LoadProcedure::BackupText() const {
  if (result_.backup.empty()) return {};
  return {FixedText::Of("What the ECU held before is stored in %1"), PathText(result_.backup)};
}

std::size_t LoadProcedure::RoutingMap(const LoadRequest& request) const {
  return request.both_maps ? 0 : request.routing_map.value_or(document_.RoutingMap());
}

bool LoadProcedure::AcceptFile(const LoadRequest& request, Outcome& outcome) {
  const ConfigurationBlock image = document_.Snapshot().block;
  result_.file = ReadConfigurationFile(request.file, image, RoutingMap(request));
  second_map_ = {};
  if (request.both_maps) second_map_ = ReadConfigurationFile(SecondMapFile(request.file), image, 1);
  return AcceptContent(result_.file, outcome) && AcceptContent(second_map_, outcome);
}

bool LoadProcedure::AcceptContent(const LoadedConfiguration& content, Outcome& outcome) {
  if (!content.Usable()) {
    const std::vector<Message>& faults = content.faults;
    boxes_.Status(faults.size() > 1 ? Message(FixedText::Of("%1 (and %2 more)"), faults.front(),
                                              faults.size() - 1)
                                    : faults.front());
    outcome = Outcome::kBadFile;
    return false;
  }
  if (content.damage.empty()) return true;
  outcome = Outcome::kDamaged;
  return boxes_.Ask({FixedText::Of("The file is damaged:\n%1\nOnly a part of the configuration may "
                                   "be in it. Do you want to load what is left?"),
                     content.damage});
}

bool LoadProcedure::Persist(const std::function<ModbusResult(LinkSession&)>& attempt,
                            const std::function<Message()>& problem) {
  for (;;) {
    bool same = true;
    {
      LinkSession session(document_, LinkSession::Wait::kGrace);
      result_.link_result = session.CheckEcu(same);
      if (result_.link_result == ModbusResult::kOk && same) result_.link_result = attempt(session);
    }
    if (!same) {
      // The worker finds out as well, and says so to who connects.
      document_.RequestRefresh();
      boxes_.Inform(kAnotherEcuAnswers, MessageIcon::kExclamation);
      return false;
    }
    if (result_.link_result == ModbusResult::kOk) return true;
    Message question = problem();
    question.Append(": ", document_.Link().ErrorText(result_.link_result));
    question.Append("\n", kTryAgain);
    if (!boxes_.Ask(question)) return false;
  }
}

bool LoadProcedure::ReadPresent() {
  return Persist(
      [this](LinkSession& session) {
        return ReadWholeBlock(session, TransferStage::kReading, progress_, present_);
      },
      [] {
        return FixedText::Of(
            "Nothing has been written: the ECU's present configuration could not be read");
      });
}

bool LoadProcedure::StoreBackup(const LoadRequest& request) {
  const std::filesystem::path file = NewBackupFile(request.backup_folder);
  const std::string notes =
      boxes_.WordsOf({FixedText::Of("What the ECU held before %1 was loaded into it"),
                      PathText(request.file.filename())});
  Message problem;
  const bool stored = request.both_maps ? WriteBackup(file, present_, notes, problem)
                                        : WriteConfigurationFile(
                                              file, present_, RoutingMap(request), notes, problem);
  if (stored) {
    result_.backup = file;
    return true;
  }
  return boxes_.Ask({FixedText::Of("The ECU's present configuration could not be stored "
                                   "beforehand.\n%1\nDo you want to write over it all the same?"),
                     problem});
}

bool LoadProcedure::Write(const ConfigurationBlock& block) {
  const auto write = [&](LinkSession& session) {
    Report(progress_, TransferStage::kWriting, 0);
    const ChunkDone keep = StoreInto(session.Image().block);
    return WriteBlock(session.Link(), block,
                      [&](std::size_t offset, std::span<const std::uint16_t> words) {
                        keep(offset, words);
                        const std::size_t written = offset + words.size();
                        // Of all tries: a later one may have come less far.
                        result_.words_written = std::max(result_.words_written, written);
                        Report(progress_, TransferStage::kWriting, written);
                        document_.SleepSliced(kRestAfterChunk);
                      });
  };
  return Persist(write, [this] {
    return Message(FixedText::Of("The link failed after %1 of %2 values had been written"),
                   result_.words_written, kBlockWords);
  });
}

LoadProcedure::Outcome LoadProcedure::Check(const ConfigurationBlock& block) {
  ConfigurationBlock held{};
  const auto read = [&](LinkSession& session) {
    return ReadWholeBlock(session, TransferStage::kChecking, progress_, held);
  };
  if (!Persist(read, [] { return kConfigurationUnchecked; })) return Outcome::kUnchecked;
  result_.differences = CompareBlocks(block, held);
  if (result_.differences.empty()) return Outcome::kLoaded;
  PutIntoImage(document_, held);
  Report(progress_, TransferStage::kDone, kBlockWords);
  boxes_.Inform({FixedText::Of("The ECU has not taken everything that was written:\n%1"),
                 ListOfDifferences(result_.differences)},
                MessageIcon::kExclamation);
  return Outcome::kDifferent;
}

Message ListOfDifferences(const std::vector<BlockDifference>& differences) {
  constexpr std::size_t kMostLines = 15;
  Message text;
  for (std::size_t i = 0; i < std::min(differences.size(), kMostLines); ++i) {
    const BlockDifference& difference = differences[i];
    text.Append("\n", {FixedText::Of("%1: %2 was written, the ECU holds %3"),
                       difference.cell->Label(), difference.first_text, difference.second_text});
  }
  if (differences.size() > kMostLines) {
    text.Append("\n", {FixedText::Of("and %1 more"), differences.size() - kMostLines});
  }
  return text;
}

}  // namespace zelorgas
