// The window program's command line: zelorgas [admin] [demo] [documents] [FILE.fob|FILE.osc]. Pure,
// safe from any thread.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/Message.h"

namespace zelorgas {

struct CommandLine {
  bool admin = false;      // administrator mode
  bool demo = false;       // connect to the simulated ECU
  bool documents = false;  // work in "ZelorGAS" among the person's documents
  std::string file;        // the document to open; empty when none is given
  Message problem;         // why the program cannot go on, for a person; empty when all is well
};

// `arguments` without the program's name and without those that the toolkit takes for itself.
[[nodiscard]] CommandLine ParseCommandLine(std::span<const std::string> arguments);

// "admin" in any case, with one "-" or "/" before it or none.
[[nodiscard]] bool IsAdminSwitch(std::string_view argument);

}  // namespace zelorgas
