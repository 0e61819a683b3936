#include "cli/RunCli.h"

#include <algorithm>
#include <optional>
#include <ostream>
#include <utility>
#include <vector>

#include "cli/CliSession.h"
#include "cli/Commands.h"
#include "cli/Text.h"
#include "platform/ProgramVersion.h"

namespace zelorgas {
namespace {

constexpr std::string_view kUsage =
    "zelorgas-cli [--port PORT] [--json] [--trace FILE] [--attempts N] COMMAND";

constexpr std::string_view kOptionsHelp =
    "Options:\n"
    "  --port PORT     a device path, COMn, or sim (a simulated ECU inside the program); when not\n"
    "                  given, the port that was used last\n"
    "  --json          one JSON document on standard output (live: one a line), and nothing else\n"
    "                  there\n"
    "  --trace FILE    every frame sent and received, with its time in milliseconds and its "
    "result\n"
    "  --attempts N    how often each exchange is tried, 1 to 100; 3 when not given, and never\n"
    "                  less for what reads or writes whole configurations, errors and firmware\n"
    "  --help          this text; with --json on standard error\n"
    "  --version       this program's version, as --help\n"
    "\n"
    "Numbers are decimal or, with 0x in front, hexadecimal.\n"
    "\n"
    "Exit status: 0 done; 1 the ECU or the link refused; 2 the command line is wrong;\n"
    "3 a file could not be read, written or understood.\n";

// `prefix` and a line end around every line of `lines`.
std::string FrameLines(std::string_view prefix, std::string_view lines) {
  std::string text;
  while (!lines.empty()) {
    const std::size_t end = std::min(lines.find('\n'), lines.size());
    text += std::string(prefix) + std::string(lines.substr(0, end)) + "\n";
    lines.remove_prefix(std::min(end + 1, lines.size()));
  }
  return text;
}

std::string Help() {
  std::string text = FrameLines("usage: ", kUsage) + "\nCommands:\n";
  for (const Command& command : Commands()) {
    text += FrameLines("  ", command.usage) + FrameLines("      ", command.summary);
  }
  return text + "\n" + std::string(kOptionsHelp);
}

// What the words of the command line are.
struct CommandLine {
  CliOptions options;
  std::vector<std::string> words;    // the command and its arguments
  const Command* command = nullptr;  // of the first of the words; null: there is no such command
  std::string problem;               // why the command line is wrong; empty when it is not
};

const CommandOption* FindOption(const Command* command, std::string_view name) {
  if (command == nullptr) return nullptr;
  const auto option = std::ranges::find(command->options, name, &CommandOption::name);
  return option == command->options.end() ? nullptr : &*option;
}

// The program's own options may stand before the command or behind it, those of a command behind
// it.
CommandLine ReadCommandLine(std::span<const std::string> arguments) {
  CommandLine line;
  const auto take_value = [&](std::size_t& index) -> std::optional<std::string> {
    const bool has_value = index + 1 < arguments.size() && !arguments[index + 1].empty() &&
                           !arguments[index + 1].starts_with("--");
    if (has_value) return arguments[++index];
    line.problem = arguments[index] + " needs a value";
    return std::nullopt;
  };
  for (std::size_t i = 0; i < arguments.size() && line.problem.empty(); ++i) {
    const std::string& word = arguments[i];
    if (word == "--help") {
      line.options.help = true;
    } else if (word == "--version") {
      line.options.version = true;
    } else if (word == "--json") {
      line.options.json = true;
    } else if (word == "--port") {
      line.options.port = take_value(i).value_or("");
    } else if (word == "--trace") {
      line.options.trace_file = take_value(i).value_or("");
    } else if (word == "--attempts") {
      constexpr NumberArgument kAttempts{"--attempts", 1, 100};
      if (const auto value = take_value(i)) {
        line.options.attempts = ReadNumber(kAttempts, *value, line.problem).value_or(1);
      }
    } else if (const CommandOption* const option = FindOption(line.command, word)) {
      line.options.of_command[word] = option->takes_value ? take_value(i).value_or("") : "";
    } else if (word.starts_with("--")) {
      line.problem = "there is no option " + word;
    } else {
      if (line.words.empty()) line.command = FindCommand(word);
      line.words.push_back(word);
    }
  }
  return line;
}

std::string UsageOf(const Command& command) {
  return FrameLines("usage: zelorgas-cli [OPTIONS] ", command.usage) +
         "zelorgas-cli --help lists the options and every command.\n";
}

ExitStatus RunCommand(CliSession& session, const CommandLine& line) {
  if (!line.problem.empty()) return session.UsageError(line.problem);
  if (line.words.empty()) return session.UsageError("no command given");
  if (line.command == nullptr) {
    return session.UsageError("there is no command \"" + line.words.front() + "\"");
  }
  return line.command->run(session, std::span(line.words).subspan(1));
}

}  // namespace

int RunCli(std::span<const std::string> arguments, CliEnvironment& environment) {
  CommandLine line = ReadCommandLine(arguments);
  std::string said;  // instead of running a command
  if (line.problem.empty() && line.options.help) {
    said = Help();
  } else if (line.problem.empty() && line.options.version) {
    said = "zelorgas-cli " + ReadProgramVersion().file_version + "\n";
  }
  std::ostream& say_to = line.options.json ? environment.err : environment.out;
  CliSession session(environment, std::move(line.options));
  session.SetUsage(line.command == nullptr ? Help() : UsageOf(*line.command));
  ExitStatus status = ExitStatus::kDone;
  if (said.empty()) {
    status = RunCommand(session, line);
  } else {
    say_to << said;
  }
  return static_cast<int>(session.Finish(status));
}

}  // namespace zelorgas
