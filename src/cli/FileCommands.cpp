#include <algorithm>
#include <array>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "app/LoadProcedure.h"
#include "app/StoreProcedure.h"
#include "cli/CliConnection.h"
#include "cli/Commands.h"
#include "cli/ConsoleBoxes.h"
#include "cli/RecordCommands.h"
#include "cli/Text.h"
#include "config/BlockComparison.h"
#include "config/StoragePaths.h"
#include "platform/FileSystem.h"

namespace zelorgas {
namespace {

constexpr std::string_view kEcu = "ecu";

// The console, where the command line has answered some of the questions before they are asked. The
// others, about what nobody could foresee, still need a person.
class AnsweredBoxes final : public MessageBoxes {
 public:
  using Answered = bool (*)(const Message& question, bool yes);

  AnsweredBoxes(CliSession& session, Answered answered)
      : console_(session), answered_(answered), yes_(session.Option("--yes").has_value()) {}

  void Inform(const Message& text, MessageIcon icon) override { console_.Inform(text, icon); }
  void Status(const Message& text) override { console_.Status(text); }
  bool Ask(const Message& text) override { return answered_(text, yes_) || console_.Ask(text); }

 private:
  ConsoleBoxes console_;
  const Answered answered_;
  const bool yes_;
};

// A file that does not exist yet may be written: that is what was asked for.
bool ReadIsAnswered(const Message& question, bool yes) { return yes || question != kStoreQuestion; }

bool WriteIsAnswered(const Message& question, bool yes) { return yes && question == kLoadQuestion; }

// Reads the ECU's block into the document's image.
ExitStatus ReadEcu(CliSession& session) {
  const ModbusResult result = ReadConfigurationIntoImage(session.Document(), {});
  if (result != ModbusResult::kOk) return session.LinkError("reading the configuration", result);
  return ExitStatus::kDone;
}

// Shows what is wrong and what is odd in a file, each with the file's name in front. A file that is
// cut off or garbled is no good either where nobody can be asked about it.
void ShowFindings(CliSession& session, const std::string& name, const LoadedConfiguration& file) {
  constexpr std::size_t kMost = 10;
  const auto show = [&](const std::vector<Message>& lines) {
    for (std::size_t i = 0; i < std::min(lines.size(), kMost); ++i) {
      session.Message(name + ": " + lines[i].English());
    }
    if (lines.size() > kMost) {
      session.Message(name + ": and " + std::to_string(lines.size() - kMost) + " more");
    }
  };
  if (!file.damage.empty()) session.Message(name + ": " + file.damage.English());
  show(file.faults);
  show(file.remarks);
}

LoadedConfiguration ReadFile(CliSession& session, const std::string& name) {
  LoadedConfiguration file = ReadConfigurationFile(PathFromText(name), {}, 0);
  ShowFindings(session, name, file);
  return file;
}

bool IsSound(const LoadedConfiguration& file) { return file.Usable() && file.damage.empty(); }

void AppendValue(JsonWriter& document, const BlockCell& cell, const ConfigurationBlock& block) {
  const std::uint16_t raw = cell.Raw(block);
  switch (cell.form) {
    case CellForm::kUnsigned:
      document.Number(raw);
      break;
    case CellForm::kSigned:
      document.Decimal(static_cast<std::int16_t>(raw), 0);
      break;
    case CellForm::kThousandths:
      document.Decimal(raw / 1000.0, 3);
      break;
    case CellForm::kHundredths:
      document.Decimal(raw / 100.0, 2);
      break;
    case CellForm::kBits:
      document.String(cell.Text(block));
      break;
  }
}

bool Gives(const LoadedConfiguration& file, const BlockCell& cell) {
  return cell.named && (file.given[cell.word] & cell.Mask()) == cell.Mask();
}

// The cells of the tables and parameters of which the file gives something, those of one together.
// A file has one routing map, so that its number says nothing.
std::vector<std::span<const BlockCell>> GivenCells(const LoadedConfiguration& file) {
  std::vector<std::span<const BlockCell>> groups;
  const std::span<const BlockCell> cells = BlockCells();
  for (std::size_t i = 0; i < cells.size();) {
    std::size_t end = i;
    while (end < cells.size() && cells[end].name == cells[i].name) ++end;
    const auto group = cells.subspan(i, end - i);
    if (std::ranges::any_of(group, [&file](const BlockCell& cell) { return Gives(file, cell); })) {
      groups.push_back(group);
    }
    i = end;
  }
  return groups;
}

bool IsTable(const BlockCell& cell) {
  return cell.index != BlockCell::kNoIndex && cell.form != CellForm::kBits;
}

void PrintJson(CliSession& session, const LoadedConfiguration& file) {
  JsonWriter document;
  document.BeginObject().Key("version").String(kConfigurationVersion);
  document.Key("notes").String(file.notes).Key("values").BeginObject();
  for (const std::span<const BlockCell> group : GivenCells(file)) {
    document.Key(group.front().name);
    const bool table = IsTable(group.front());
    if (table) document.BeginArray();
    for (const BlockCell& cell : group) {
      if (Gives(file, cell)) {
        AppendValue(document, cell, file.shown);
      } else {
        document.Null();
      }
    }
    if (table) document.EndArray();
  }
  session.Print(document.EndObject().EndObject());
}

void PrintText(CliSession& session, const LoadedConfiguration& file) {
  for (const std::span<const BlockCell> group : GivenCells(file)) {
    std::string line = group.front().name;
    char separator = '=';
    for (const BlockCell& cell : group) {
      line += separator + (Gives(file, cell) ? cell.Text(file.shown) : "?");
      separator = ';';
    }
    session.Print(line);
  }
  // They may be a stranger's: a terminal obeys control characters.
  if (!file.notes.empty()) session.Print("Notes: " + EscapeControls(file.notes, "\r\n\t"));
}

ExitStatus ShowConfiguration(CliSession& session, const std::string& name) {
  const LoadedConfiguration file = ReadFile(session, name);
  const bool anything =
      std::ranges::any_of(file.given, [](std::uint16_t bits) { return bits != 0; });
  if (anything) session.Json() ? PrintJson(session, file) : PrintText(session, file);
  return IsSound(file) ? ExitStatus::kDone : ExitStatus::kFileFailure;
}

void AppendDifferences(JsonWriter& document, std::span<const BlockDifference> differences) {
  document.Key("differences").BeginArray();
  for (const BlockDifference& difference : differences) {
    document.BeginObject().Key("name").String(difference.cell->name);
    if (difference.cell->index != BlockCell::kNoIndex) {
      document.Key("index").Number(static_cast<std::uint32_t>(difference.cell->index));
    }
    const auto side = [&](std::string_view key, std::optional<std::uint16_t> raw,
                          const std::string& text) {
      document.Key(key);
      if (!raw) {
        document.Null();
      } else {
        document.BeginObject().Key("raw").Number(*raw).Key("text").String(text).EndObject();
      }
    };
    side("first", difference.first_raw, difference.first_text);
    side("second", difference.second_raw, difference.second_text);
    document.EndObject();
  }
  document.EndArray();
}

void PrintDifferences(CliSession& session, std::span<const BlockDifference> differences) {
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject();
    AppendDifferences(document, differences);
    session.Print(document.EndObject());
    return;
  }
  for (const BlockDifference& difference : differences) {
    session.Print(difference.cell->Label() + ": " + difference.first_text + " -> " +
                  difference.second_text);
  }
}

// Reading takes long; a file that cannot be written is told before. The folders on the way to it
// may be still to come.
bool CanStoreAt(std::filesystem::path path, Message& reason) {
  std::error_code error;
  for (std::filesystem::path folder = path.parent_path();
       !folder.empty() && folder != path && !std::filesystem::exists(folder, error);
       folder = path.parent_path()) {
    path = folder;
  }
  return CanWriteWholeFile(path, reason);
}

ExitStatus StatusOf(LoadResult::Outcome outcome) {
  switch (outcome) {
    case LoadResult::Outcome::kLoaded:
      return ExitStatus::kDone;
    case LoadResult::Outcome::kNoFile:
    case LoadResult::Outcome::kBadFile:
    case LoadResult::Outcome::kDamaged:
    case LoadResult::Outcome::kNoBackup:
      return ExitStatus::kFileFailure;
    default:
      return ExitStatus::kRefused;
  }
}

}  // namespace

ExitStatus RunRead(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.size() != 1) return session.UsageError("read needs the file to store in");
  const std::filesystem::path path = PathFromText(arguments.front());
  if (Message reason; !CanStoreAt(path, reason)) {
    session.Message("cannot write " + arguments.front() + ": " + reason.English());
    return ExitStatus::kFileFailure;
  }
  if (StoreTargetOf(path) == StoreTarget::kExisting) {
    const ExitStatus status = CheckCanAsk(session, arguments.front() + " exists; ");
    if (status != ExitStatus::kDone) return status;
  }
  CliConnection connection(session);
  if (const ExitStatus status = connection.ConnectToEcu(); status != ExitStatus::kDone) {
    return status;
  }
  if (const ExitStatus status = ReadEcu(session); status != ExitStatus::kDone) return status;
  AnsweredBoxes boxes(session, ReadIsAnswered);
  const StoreRequest request{.file = path, .notes = session.Option("--notes").value_or("")};
  switch (StoreConfiguration(session.Document(), boxes, request)) {
    case StoreOutcome::kStored:
      break;
    case StoreOutcome::kDeclined:
      return ExitStatus::kRefused;
    default:
      return ExitStatus::kFileFailure;
  }
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("file").String(arguments.front());
    document.Key("words").Number(static_cast<std::uint32_t>(kBlockWords));
    session.Print(document.EndObject());
  } else {
    session.Print("stored: " + arguments.front());
  }
  return ExitStatus::kDone;
}

ExitStatus RunWrite(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.size() != 1) return session.UsageError("write needs the file to load");
  if (const ExitStatus status = CheckCanAsk(session); status != ExitStatus::kDone) return status;
  // A file that cannot be loaded is no reason to look for an ECU.
  const std::string& name = arguments.front();
  const LoadedConfiguration file = ReadFile(session, name);
  if (!file.Usable()) return ExitStatus::kFileFailure;
  if (!file.damage.empty() && !session.Environment().in_is_terminal) {
    session.Message(name + " is damaged; there is no terminal to ask on whether to load the rest");
    return ExitStatus::kFileFailure;
  }
  CliConnection connection(session);
  if (const ExitStatus status = connection.ConnectToEcu(); status != ExitStatus::kDone) {
    return status;
  }
  AnsweredBoxes boxes(session, WriteIsAnswered);
  const LoadResult result = LoadProcedure(session.Document(), boxes)
                                .Run({.file = PathFromText(name),
                                      .backup_folder = BackupFolder(WorkingFolder()),
                                      .both_maps = session.Option("--both-maps").has_value()});
  const ExitStatus status = StatusOf(result.outcome);
  if (status == ExitStatus::kFileFailure) return status;
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("file").String(name);
    document.Key("written").Number(static_cast<std::uint32_t>(result.words_written));
    document.Key("checked").Bool(result.outcome == LoadResult::Outcome::kLoaded ||
                                 result.outcome == LoadResult::Outcome::kDifferent);
    document.Key("backup").String(PathText(result.backup));
    AppendDifferences(document, result.differences);
    session.Print(document.EndObject());
  } else if (result.outcome == LoadResult::Outcome::kDifferent) {
    PrintDifferences(session, result.differences);
  } else if (status == ExitStatus::kDone) {
    session.Print("loaded: " + name);
    if (!result.backup.empty()) {
      session.Print("what the ECU held before: " + PathText(result.backup));
    }
  }
  return status;
}

ExitStatus RunShow(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.size() != 1) return session.UsageError("show needs a file");
  const std::string& name = arguments.front();
  return IsRecordingName(name) ? ShowRecording(session, name) : ShowConfiguration(session, name);
}

ExitStatus RunDiff(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.size() != 2 || (arguments[0] == kEcu && arguments[1] == kEcu)) {
    return session.UsageError("diff needs two files, or a file and ecu");
  }
  std::array<std::optional<LoadedConfiguration>, 2> files;
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (arguments[i] == kEcu) continue;
    files[i] = ReadFile(session, arguments[i]);
    if (!IsSound(*files[i])) return ExitStatus::kFileFailure;
  }
  std::vector<BlockDifference> differences;
  if (files[0] && files[1]) {
    differences = CompareFiles(*files[0], *files[1]);
  } else {
    CliConnection connection(session);
    if (const ExitStatus status = connection.ConnectToEcu(); status != ExitStatus::kDone) {
      return status;
    }
    if (const ExitStatus status = ReadEcu(session); status != ExitStatus::kDone) return status;
    differences =
        CompareFileWithBlock(files[0] ? *files[0] : *files[1], session.Document().Snapshot().block);
    if (!files[0]) {
      for (BlockDifference& difference : differences) {
        std::swap(difference.first_raw, difference.second_raw);
        std::swap(difference.first_text, difference.second_text);
      }
    }
  }
  PrintDifferences(session, differences);
  return differences.empty() ? ExitStatus::kDone : ExitStatus::kRefused;
}

}  // namespace zelorgas
