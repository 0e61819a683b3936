// A connection to the ECU by the window's own procedure, with the console in the place of its
// message boxes; for commands that need to know whom they talk to. Used by one thread.
#pragma once

#include "app/EcuConnection.h"
#include "cli/CliSession.h"
#include "cli/ConsoleBoxes.h"

namespace zelorgas {

// Connecting replaces no firmware here: it says what does.
class FirmwareAdvice final : public FirmwareUpdate {
 public:
  // `boxes` outlives the advice.
  explicit FirmwareAdvice(MessageBoxes& boxes) : boxes_(boxes) {}

  End Start(bool in_bootloader) override;

 private:
  MessageBoxes& boxes_;
};

class CliConnection {
 public:
  // `session` outlives the connection.
  explicit CliConnection(CliSession& session);
  CliConnection(const CliConnection&) = delete;
  CliConnection& operator=(const CliConnection&) = delete;
  // Stops the worker, if one was started, and closes the port.
  ~CliConnection() { connection_.Disconnect(); }

  // Runs the connect procedure on the port that SelectLink has chosen; no worker is started. Why it
  // failed has been explained to the user.
  EcuConnection::Outcome Connect();

  // Chooses the port and connects on it. Every status but kDone has been explained to the user and
  // ends the command.
  ExitStatus ConnectToEcu();

  // What Connect has found out, whatever its outcome; empty texts when it was too little.
  [[nodiscard]] const EcuIdentity& Identity() const { return connection_.Identity(); }

 private:
  CliSession& session_;
  ConsoleBoxes boxes_;
  FirmwareAdvice advice_;
  EcuConnection connection_;
};

}  // namespace zelorgas
