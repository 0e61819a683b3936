#include "cli/CliSession.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "cli/Text.h"

namespace zelorgas {
namespace {

constexpr std::string_view kProgram = "zelorgas-cli: ";
constexpr std::string_view kSimulatedPort = "sim";
constexpr std::string_view kComPrefix = "COM";
constexpr std::uint32_t kLineBaud = 19200;
constexpr std::uint8_t kLineDataBits = 7;

// The digits of "COM12", whatever the case of its letters; nothing for another text.
std::optional<std::string_view> ComPortDigits(std::string_view port) {
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  const auto upper = [](char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  };
  if (port.size() <= kComPrefix.size()) return std::nullopt;
  if (!std::ranges::equal(port.substr(0, kComPrefix.size()), kComPrefix, {}, upper)) {
    return std::nullopt;
  }
  const std::string_view digits = port.substr(kComPrefix.size());
  if (!std::ranges::all_of(digits, is_digit)) return std::nullopt;
  return digits;
}

}  // namespace

CliSession::CliSession(CliEnvironment& environment, CliOptions options)
    : environment_(environment), options_(std::move(options)) {}

ExitStatus CliSession::Connect() {
  if (options_.port.empty()) {
    return UsageError("no port given: --port takes a device path, COMn, or sim");
  }
  if (std::string problem; !ChoosePort(problem)) return UsageError(problem);
  link_->SetFraming(FramingMode::kAscii);
  link_->SetBaudRate(kLineBaud);
  link_->SetDataBits(kLineDataBits);
  link_->SetParity(Parity::kEven);
  link_->SetStopBits(StopBits::kOne);
  link_->SetAttemptCount(options_.attempts);
  if (!StartTrace()) {
    Message("cannot write " + options_.trace_file);
    return ExitStatus::kFileFailure;
  }
  if (!link_->Open(0, 0, 255)) {
    Message("Sorry! The specified COM port is busy!");
    return ExitStatus::kRefused;
  }
  return ExitStatus::kDone;
}

bool CliSession::ChoosePort(std::string& problem) {
  const bool simulated = options_.port == kSimulatedPort;
  link_ = std::make_unique<ModbusSerialPort>(
      simulated ? environment_.simulated_ecu : environment_.serial_ports, environment_.clock);
  const auto digits = ComPortDigits(options_.port);
  if (!digits) {
    link_->SetPortName(options_.port);
    return true;
  }
  const auto number = ReadNumber({"COM", 1, 255}, *digits, problem);
  if (number) link_->SetPortNumber(static_cast<std::uint8_t>(*number));
  return number.has_value();
}

bool CliSession::StartTrace() {
  if (options_.trace_file.empty()) return true;
  if (!log_.Open(options_.trace_file, environment_.clock.Now())) return false;
  link_->SetTraceSink(
      [this](const FrameTrace& trace) { log_.Write(trace, link_->ErrorText(trace.result)); });
  return true;
}

void CliSession::Print(std::string_view line) { environment_.out << line << '\n'; }

void CliSession::Print(const JsonWriter& document) { Print(document.Text()); }

void CliSession::Message(std::string_view text) { environment_.err << kProgram << text << '\n'; }

ExitStatus CliSession::UsageError(std::string_view text) {
  Message(text);
  environment_.err << usage_;
  return ExitStatus::kWrongUsage;
}

ExitStatus CliSession::LinkError(std::string_view what, ModbusResult result) {
  Message(std::string(what) + ": " + link_->ErrorText(result));
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
