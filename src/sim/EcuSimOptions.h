// The command line of zelorgas-ecusim.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "sim/SimulatedLine.h"

namespace zelorgas {

struct EcuSimOptions {
  SimulatedEcuOptions ecu;
  SimulatedLineOptions line;
  std::vector<std::string> faults;  // checked, in the form that LineFaults::Add takes
  std::string link;                 // symbolic link to the port, empty: none
  std::string log;                  // file for a line a request, empty: none
  std::string port;                 // an existing serial port to serve instead of a pty
  bool help = false;
};

// Empty on success; otherwise what is wrong with the words, in one line.
[[nodiscard]] std::string ParseEcuSimOptions(std::span<const std::string> words,
                                             EcuSimOptions& options);
[[nodiscard]] std::string EcuSimUsage();

}  // namespace zelorgas
