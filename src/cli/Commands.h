// The commands of zelorgas-cli. A new command is one handler and one row of the table.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/CliSession.h"

namespace zelorgas {

struct Command {
  std::string_view name;
  std::string_view usage;  // how it is called, one line a form, the name included
  std::string_view summary;
  // `arguments` are those behind the command's name, the program's own options taken out.
  ExitStatus (*run)(CliSession& session, std::span<const std::string> arguments);
};

// In the order of the help.
[[nodiscard]] std::span<const Command> Commands();

[[nodiscard]] ExitStatus RunPorts(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunIdentify(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunGet(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunSet(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunModbus(CliSession& session, std::span<const std::string> arguments);

}  // namespace zelorgas
