#include "cli/CliConnection.h"

namespace zelorgas {

FirmwareUpdate::End FirmwareAdvice::Start(bool in_bootloader) {
  if (in_bootloader) {
    boxes_.Inform(Message::Verbatim(
                      "The ECU is in its bootloader and stays there until it gets its firmware."),
                  MessageIcon::kInformation);
  }
  boxes_.Inform(
      Message::Verbatim("This command does not replace firmware: zelorgas-cli flash does, and the "
                        "firmware update of ZelorGAS."),
      MessageIcon::kInformation);
  return End::kUntouched;
}

CliConnection::CliConnection(CliSession& session)
    : session_(session),
      boxes_(session),
      advice_(boxes_),
      connection_(session.Document(), boxes_, session.Environment().settings, advice_) {}

EcuConnection::Outcome CliConnection::Connect() {
  const EcuConnection::Outcome outcome = connection_.Connect(false);
  if (const ModbusResult result = connection_.FailureResult(); result != ModbusResult::kOk) {
    session_.Message(session_.Ecu().ErrorText(result).English());
  }
  return outcome;
}

ExitStatus CliConnection::ConnectToEcu() {
  if (const ExitStatus status = session_.SelectLink(); status != ExitStatus::kDone) return status;
  const bool connected = Connect() == EcuConnection::Outcome::kConnected;
  return connected ? ExitStatus::kDone : ExitStatus::kRefused;
}

}  // namespace zelorgas
