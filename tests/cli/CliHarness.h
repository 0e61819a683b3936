// Runs whole command lines of zelorgas-cli in the test's process and keeps what they print.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/RunCli.h"
#include "support/VirtualClock.h"

namespace zelorgas {

class CliHarness {
 public:
  // What a run gave, standard output and error included.
  struct Outcome {
    int status;
    std::string out;
    std::string err;
  };

  VirtualClock clock;
  SerialOpener serial_ports = [](const std::string&) { return nullptr; };
  SerialOpener simulated_ecu = [](const std::string&) { return nullptr; };
  std::vector<SerialPortInfo> ports;

  Outcome Run(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    CliEnvironment environment{out,          err,           clock,
                               serial_ports, simulated_ecu, [this] { return ports; }};
    const int status = RunCli(arguments, environment);
    return {status, out.str(), err.str()};
  }
};

}  // namespace zelorgas
