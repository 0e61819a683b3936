#include <atomic>
#include <csignal>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/Settings.h"
#include "cli/RunCli.h"
#include "platform/StandardStreams.h"
#include "sim/SimulatedEcu.h"
#include "sim/SimulatedPort.h"

namespace zelorgas {
namespace {

std::atomic<bool>& Interrupted() {
  static std::atomic<bool> interrupted{false};
  return interrupted;
}

extern "C" void HandleInterrupt(int signal) {
  // A second one ends the program, whatever the line does.
  static_cast<void>(std::signal(signal, SIG_DFL));
  Interrupted() = true;
}

void CatchInterrupts() {
  Interrupted() = false;
  static_cast<void>(std::signal(SIGINT, HandleInterrupt));
  static_cast<void>(std::signal(SIGTERM, HandleInterrupt));
}

int RunProgram(const std::vector<std::string>& arguments) {
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  const std::unique_ptr<SettingsStore> settings = OpenSettingsStore(kSettingsCompany);
  SimulatedEcu ecu(*clock);
  SimulatedLine line(ecu, *clock, {.paced = false});
  CliEnvironment environment{
      .out = std::cout,
      .err = std::cerr,
      .in = std::cin,
      .in_is_terminal = StandardInputIsTerminal(),
      .clock = *clock,
      .serial_ports = SystemSerialPorts(*clock),
      .simulated_ecu = SimulatedPort(line, *clock),
      .list_ports = ListSerialPorts,
      .settings = *settings,
      .catch_interrupts = CatchInterrupts,
      .interrupted = Interrupted(),
      .err_is_terminal = StandardErrorIsTerminal(),
  };
  return RunCli(arguments, environment);
}

}  // namespace
}  // namespace zelorgas

int main(int argc, char** argv) {
  zelorgas::KeepStandardStreams();
  return zelorgas::RunProgram({argv + (argc > 0 ? 1 : 0), argv + argc});
}
