// One run of zelorgas-cli: the options it was given, the document whose link a command opens when
// it needs one, and where results and messages go. Used by one thread.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "app/ClpgecuDoc.h"
#include "cli/CliEnvironment.h"
#include "cli/FrameLog.h"
#include "cli/JsonWriter.h"
#include "cli/StatusQueue.h"

namespace zelorgas {

enum class [[nodiscard]] ExitStatus : std::uint8_t{
    kDone = 0,
    kRefused = 1,      // by the ECU or the link
    kWrongUsage = 2,   // the command line
    kFileFailure = 3,  // a file could not be read, written or understood
};

struct CliOptions {
  std::string port;  // empty: none given
  std::string trace_file;
  // A single command is worth a second and a third try; a person is waiting for its answer.
  std::uint16_t attempts = 3;
  bool json = false;
  bool help = false;
  bool version = false;  // the program's own
  // The command's own options by their names; a switch has an empty value.
  std::map<std::string, std::string, std::less<>> of_command;
};

class CliSession {
 public:
  CliSession(CliEnvironment& environment, CliOptions options);
  CliSession(const CliSession&) = delete;
  CliSession& operator=(const CliSession&) = delete;

  // The lines that UsageError shows below its message.
  void SetUsage(std::string usage) { usage_ = std::move(usage); }

  // Points the document's link at the port of the options, or at the stored one when they name
  // none, and starts the trace. Every status but kDone has been explained to the user and ends the
  // command.
  ExitStatus SelectLink();
  // The same, and opens the port for exchanges with whatever ECU is there.
  ExitStatus OpenLink();
  // The ECU's link, after OpenLink.
  [[nodiscard]] ModbusMaster& Ecu() { return document_.Link(); }
  [[nodiscard]] ClpgecuDoc& Document() { return document_; }
  // What the document's worker posts.
  [[nodiscard]] StatusQueue& Statuses() { return statuses_; }

  [[nodiscard]] bool Json() const { return options_.json; }
  // The value of the command's option `name`; nothing when it was not given.
  [[nodiscard]] std::optional<std::string> Option(std::string_view name) const;
  [[nodiscard]] CliEnvironment& Environment() { return environment_; }

  // Results go to standard output: lines of text, or the one JSON document.
  void Print(std::string_view line);
  void Print(const JsonWriter& document);

  // Messages go to standard error, with the program's name in front.
  void Message(std::string_view text);
  ExitStatus UsageError(std::string_view text);
  // `what` went wrong with `result`, whose text follows it.
  ExitStatus LinkError(std::string_view what, ModbusResult result);

  // The status of the whole run: `status`, unless output or trace could not be written to the end.
  ExitStatus Finish(ExitStatus status);

 private:
  // Points the link at the port `name`; false when there can be no such port.
  [[nodiscard]] bool SelectPort(const std::string& name, std::string& problem);
  // False when the trace file cannot be written.
  [[nodiscard]] bool StartTrace();

  CliEnvironment& environment_;
  const CliOptions options_;
  std::string usage_;
  FrameLog log_;
  StatusQueue statuses_;
  ClpgecuDoc document_;  // writes into the two above
};

}  // namespace zelorgas
