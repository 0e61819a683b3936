// One run of zelorgas-cli: the options it was given, the link it opens when a command needs one,
// and where results and messages go. Used by one thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "cli/CliEnvironment.h"
#include "cli/FrameLog.h"
#include "cli/JsonWriter.h"
#include "link/ModbusSerialPort.h"

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
};

class CliSession {
 public:
  CliSession(CliEnvironment& environment, CliOptions options);
  CliSession(const CliSession&) = delete;
  CliSession& operator=(const CliSession&) = delete;

  // The lines that UsageError shows below its message.
  void SetUsage(std::string usage) { usage_ = std::move(usage); }

  // Opens the port of the options, and the trace file. Every status but kDone has been explained to
  // the user and ends the command.
  ExitStatus Connect();
  // The ECU's link, after Connect.
  [[nodiscard]] ModbusMaster& Ecu() { return *link_; }

  [[nodiscard]] bool Json() const { return options_.json; }
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
  // Makes the link to the device that options_.port names; false when it names none.
  [[nodiscard]] bool ChoosePort(std::string& problem);
  // False when the trace file cannot be written.
  [[nodiscard]] bool StartTrace();

  CliEnvironment& environment_;
  const CliOptions options_;
  std::string usage_;
  FrameLog log_;
  std::unique_ptr<ModbusSerialPort> link_;  // writes into log_
};

}  // namespace zelorgas
