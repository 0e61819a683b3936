// Runs whole command lines of zelorgas-cli in the test's process and keeps what they print.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "cli/RunCli.h"
#include "support/MemorySettings.h"
#include "support/VirtualClock.h"

namespace zelorgas {

// A file for the running test, and for no other run of it.
inline std::string TestFile(const std::string& extension) {
  std::random_device chance;
  return testing::TempDir() + "zelorgas-" +
         testing::UnitTest::GetInstance()->current_test_info()->name() + "-" +
         std::to_string(chance()) + extension;
}

// The words of `line`, between single blanks; '' is an empty one.
inline std::vector<std::string> SplitWords(const std::string& line) {
  std::vector<std::string> words;
  std::istringstream in(line);
  for (std::string word; std::getline(in, word, ' ');) words.push_back(word == "''" ? "" : word);
  return words;
}

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
  MemorySettings settings;
  // What a person types at the terminal, when there is one.
  std::string typed;
  bool terminal = false;
  bool err_terminal = false;
  std::atomic<unsigned> interrupted{0};
  int interrupts_caught = 0;  // how often a command asked for them

  Outcome Run(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    return Run(arguments, out);
  }
  // With an output that does more than keep what is printed.
  Outcome Run(const std::vector<std::string>& arguments, std::ostringstream& out) {
    std::ostringstream err;
    std::istringstream in(typed);
    CliEnvironment environment{.out = out,
                               .err = err,
                               .in = in,
                               .in_is_terminal = terminal,
                               .clock = clock,
                               .serial_ports = serial_ports,
                               .simulated_ecu = simulated_ecu,
                               .list_ports = [this] { return ports; },
                               .settings = settings,
                               .catch_interrupts = [this](unsigned) { ++interrupts_caught; },
                               .interrupted = interrupted,
                               .err_is_terminal = err_terminal};
    const int status = RunCli(arguments, environment);
    return {status, out.str(), err.str()};
  }
};

}  // namespace zelorgas
