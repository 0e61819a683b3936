#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/RunCli.h"
#include "sim/SimulatedEcu.h"
#include "sim/SimulatedPort.h"

int main(int argc, char** argv) {
  using namespace zelorgas;
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  SimulatedEcu ecu(*clock);
  SimulatedLine line(ecu, *clock, {.paced = false});
  CliEnvironment environment{
      .out = std::cout,
      .err = std::cerr,
      .clock = *clock,
      .serial_ports = SystemSerialPorts(*clock),
      .simulated_ecu = SimulatedPort(line, *clock),
      .list_ports = ListSerialPorts,
  };
  return RunCli(arguments, environment);
}
