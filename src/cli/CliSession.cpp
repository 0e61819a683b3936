#include "cli/CliSession.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "app/EcuConnection.h"
#include "app/PortListModel.h"
#include "app/Settings.h"
#include "cli/Text.h"
#include "config/Utf8Text.h"
#include "platform/IgnoreCase.h"

namespace zelorgas {
namespace {

constexpr std::string_view kProgram = "zelorgas-cli: ";
constexpr std::string_view kComPrefix = "COM";

// The digits of "COM12", whatever the case of its letters; nothing for another text.
std::optional<std::string_view> ComPortDigits(std::string_view port) {
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  if (port.size() <= kComPrefix.size()) return std::nullopt;
  if (!EqualIgnoringCase(port.substr(0, kComPrefix.size()), kComPrefix)) return std::nullopt;
  const std::string_view digits = port.substr(kComPrefix.size());
  if (!std::ranges::all_of(digits, is_digit)) return std::nullopt;
  return digits;
}

// A pipe or a device: it can hold up whoever opens it, and the trace replaces its file.
bool IsSpecialFile(const std::string& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status);
}

SerialOpener PortsOf(const CliEnvironment& environment) {
  return [&environment](const std::string& name) {
    return name == kSimulatedPortName ? environment.simulated_ecu(name)
                                      : environment.serial_ports(name);
  };
}

}  // namespace

CliSession::CliSession(CliEnvironment& environment, CliOptions options)
    : environment_(environment),
      options_(std::move(options)),
      document_(PortsOf(environment), environment.clock, statuses_) {}

ExitStatus CliSession::SelectLink() {
  const std::string port =
      options_.port.empty() ? Settings(environment_.settings).Port() : options_.port;
  if (port.empty()) {
    return UsageError(
        "no port given, and none used before: --port takes a device path, COMn, or sim");
  }
  if (std::string problem; !SelectPort(port, problem)) return UsageError(problem);
  document_.Link().SetAttemptCount(options_.attempts);
  if (!StartTrace()) {
    Message("cannot write " + options_.trace_file +
            (IsSpecialFile(options_.trace_file) ? ": it is not a regular file" : ""));
    return ExitStatus::kFileFailure;
  }
  return ExitStatus::kDone;
}

ExitStatus CliSession::OpenLink() {
  if (const ExitStatus status = SelectLink(); status != ExitStatus::kDone) return status;
  if (!document_.Link().Open(0, 0, 255)) {
    Message(kPortBusy.English());
    return ExitStatus::kRefused;
  }
  return ExitStatus::kDone;
}

bool CliSession::SelectPort(const std::string& name, std::string& problem) {
  const auto digits = ComPortDigits(name);
  if (!digits) {
    document_.Link().SetPortName(name);
    return true;
  }
  const auto number = ReadNumber({"COM", 1, 255}, *digits, problem);
  if (number) document_.Link().SetPortNumber(static_cast<std::uint8_t>(*number));
  return number.has_value();
}

std::optional<std::string> CliSession::Option(std::string_view name) const {
  const auto option = options_.of_command.find(name);
  if (option == options_.of_command.end()) return std::nullopt;
  return option->second;
}

bool CliSession::StartTrace() {
  if (options_.trace_file.empty()) return true;
  if (IsSpecialFile(options_.trace_file)) return false;
  if (!log_.Open(options_.trace_file, environment_.clock.Now())) return false;
  document_.Link().SetTraceSink([this](const FrameTrace& trace) {
    log_.Write(trace, document_.Link().ErrorText(trace.result).English());
  });
  return true;
}

void CliSession::Print(std::string_view line) { environment_.out << line << '\n'; }

void CliSession::Print(const JsonWriter& document) { Print(document.Text()); }

void CliSession::Message(std::string_view text) {
  environment_.err << kProgram << EscapeControls(Shortened(text), "\n") << '\n';
}

ExitStatus CliSession::UsageError(std::string_view text) {
  // It is one line, whatever the argument that it quotes holds.
  Message(EscapeControls(text));
  environment_.err << usage_;
  return ExitStatus::kWrongUsage;
}

ExitStatus CliSession::LinkError(std::string_view what, ModbusResult result) {
  Message(std::string(what) + ": " + document_.Link().ErrorText(result).English());
  return ExitStatus::kRefused;
}

ExitStatus CliSession::Finish(ExitStatus status) {
  if (log_.IsOpen() && !log_.Close()) {
    Message("could not write all of " + options_.trace_file);
    if (status == ExitStatus::kDone) status = ExitStatus::kFileFailure;
  }
  environment_.out.flush();
  if (!environment_.out) {
    Message("could not write the output");
    if (status == ExitStatus::kDone) status = ExitStatus::kFileFailure;
  }
  return status;
}

}  // namespace zelorgas
