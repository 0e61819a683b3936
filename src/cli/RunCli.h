// zelorgas-cli as a function: finds the command, runs it, says how it went.
#pragma once

#include <span>
#include <string>

#include "cli/CliEnvironment.h"

namespace zelorgas {

// `arguments` without the program's name. Gives the process's exit status (see ExitStatus).
[[nodiscard]] int RunCli(std::span<const std::string> arguments, CliEnvironment& environment);

}  // namespace zelorgas
