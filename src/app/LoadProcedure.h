// Loading a configuration file into the ECU: the ECU's present configuration is read and stored,
// the file's is written over it, read back and compared. The link may fail at any point; the person
// is then told how far it got and may try again. Runs on the user-interface thread, or the command
// line's only one; the document's slice hook keeps the window alive.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "app/ClpgecuDoc.h"
#include "app/MessageBoxes.h"
#include "config/BlockComparison.h"
#include "config/ConfigurationFile.h"
#include "link/ModbusResult.h"
#include "platform/Message.h"

namespace zelorgas {

class LinkSession;

inline constexpr FixedText kLoadQuestion = FixedText::Of(
    "The current configuration data are giong to be loaded from the selected file!\n"
    "Do you realy want to continue?");
inline constexpr FixedText kConfigurationLoaded =
    FixedText::Of("The configuration data have been loaded successfully!");
inline constexpr FixedText kConfigurationNotLoaded =
    FixedText::Of("An error has occured while trying to load configuration data!");

inline constexpr FixedText kConfigurationUnchecked =
    FixedText::Of("The configuration has been written, but could not be read back and compared");

enum class TransferStage : std::uint8_t { kReading, kWriting, kChecking, kDone };

// Called between two exchanges: how many of the kBlockWords words the stage has moved. kDone comes
// when no exchange follows, before the person is told what became of it.
using TransferProgress = std::function<void(TransferStage stage, std::size_t words)>;

// Reads the ECU's whole block, with the polling held, and only then puts it into the image.
ModbusResult ReadConfigurationIntoImage(ClpgecuDoc& document, const TransferProgress& progress);

struct LoadRequest {
  std::filesystem::path file;
  std::filesystem::path backup_folder;  // as BackupFolder gives it
  // Which routing map the file carries; the document's when nothing is said.
  std::optional<std::size_t> routing_map = std::nullopt;
  // `file` is a backup of both routing maps: it carries the first one, and its second file is
  // loaded with it.
  bool both_maps = false;
};

struct LoadResult {
  enum class Outcome : std::uint8_t {
    kLoaded,
    kNoFile,      // the request names none
    kDeclined,    // by the person; ECU and image are as they were
    kBadFile,     // likewise; `file` says what is wrong with it
    kDamaged,     // likewise; what is left in the damaged file is not wanted
    kNotBegun,    // likewise; the ECU's present configuration could not be read, or another ECU
                  // answers than the one that was connected to
    kNoBackup,    // likewise; it could not be stored, and without that nothing is to be written
    kUnfinished,  // `words_written` words are in the ECU and in the image
    kUnchecked,   // all is written, and nothing is known of what the ECU has made of it
    kDifferent,   // all is written, and the ECU holds something else, which the image has too
  };

  Outcome outcome = Outcome::kNoFile;
  LoadedConfiguration file;
  std::filesystem::path backup;  // of what the ECU held; empty when there is none
  std::size_t words_written = 0;
  std::vector<BlockDifference> differences;  // first: written, second: held by the ECU
  ModbusResult link_result = ModbusResult::kOk;
};

class LoadProcedure {
 public:
  // The document and the boxes outlive the procedure.
  LoadProcedure(ClpgecuDoc& document, MessageBoxes& boxes, TransferProgress progress = {})
      : document_(document), boxes_(boxes), progress_(std::move(progress)) {}

  // Asks, loads, and says what became of it; details go to the status line.
  LoadResult Run(const LoadRequest& request);

 private:
  using Outcome = LoadResult::Outcome;

  Outcome RunSteps(const LoadRequest& request);
  // False when the file is not to be loaded; `outcome` says why.
  [[nodiscard]] bool AcceptFile(const LoadRequest& request, Outcome& outcome);
  [[nodiscard]] bool AcceptContent(const LoadedConfiguration& content, Outcome& outcome);
  [[nodiscard]] bool ReadPresent();
  [[nodiscard]] std::size_t RoutingMap(const LoadRequest& request) const;
  [[nodiscard]] bool StoreBackup(const LoadRequest& request);
  [[nodiscard]] bool Write(const ConfigurationBlock& block);
  // Where what the ECU held before is; empty when it is nowhere.
  [[nodiscard]] Message BackupText() const;
  // Reads back what was written, which is `block`.
  [[nodiscard]] Outcome Check(const ConfigurationBlock& block);
  // Runs `attempt` with the polling held, and the ECU known to be the one that was connected to,
  // until it succeeds or the person gives up; `problem` gives the words of a failure that
  // `link_result` belongs to. Another ECU is told and ends it.
  [[nodiscard]] bool Persist(const std::function<ModbusResult(LinkSession&)>& attempt,
                             const std::function<Message()>& problem);

  ClpgecuDoc& document_;
  MessageBoxes& boxes_;
  const TransferProgress progress_;
  LoadResult result_;
  LoadedConfiguration second_map_;  // of a backup of both; gives nothing otherwise
  ConfigurationBlock present_{};    // what the ECU held
};

// What the ECU holds instead, a line a cell; a long list is cut, with the number of the rest.
[[nodiscard]] Message ListOfDifferences(const std::vector<BlockDifference>& differences);

}  // namespace zelorgas
