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

struct Interrupts {
  std::atomic<unsigned> counted{0};
  std::atomic<unsigned> wanted{0};
};

Interrupts& TheInterrupts() {
  static Interrupts interrupts;
  return interrupts;
}

extern "C" void HandleInterrupt(int signal) {
  // After the last one the next ends the program, whatever the line does.
  const bool more = ++TheInterrupts().counted < TheInterrupts().wanted;
  static_cast<void>(std::signal(signal, more ? HandleInterrupt : SIG_DFL));
}

void CatchInterrupts(unsigned count) {
  TheInterrupts().counted = 0;
  TheInterrupts().wanted = count;
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
      .interrupted = TheInterrupts().counted,
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
