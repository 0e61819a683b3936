// The commands of zelorgas-cli. A new command is one handler and one row of the table.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "cli/CliSession.h"

namespace zelorgas {

// An option of one command, beside the program's own.
struct CommandOption {
  std::string_view name;    // "--seconds"
  bool takes_value = true;  // the word behind it
};

struct Command {
  std::string_view name;
  std::string_view usage;  // how it is called, one line a form, the name included
  std::string_view summary;
  // `arguments` are those behind the command's name, all options taken out.
  ExitStatus (*run)(CliSession& session, std::span<const std::string> arguments);
  std::span<const CommandOption> options = {};  // CliSession::Option gives what was said
};

// In the order of the help.
[[nodiscard]] std::span<const Command> Commands();
// Null when there is none of this name.
[[nodiscard]] const Command* FindCommand(std::string_view name);

[[nodiscard]] ExitStatus RunPorts(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunIdentify(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunRead(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunWrite(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunShow(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunDiff(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunGet(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunSet(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunLive(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunRecord(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunErrors(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunClearError(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunClearErrors(CliSession& session,
                                        std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunErase(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunFlash(CliSession& session, std::span<const std::string> arguments);
[[nodiscard]] ExitStatus RunModbus(CliSession& session, std::span<const std::string> arguments);

}  // namespace zelorgas
