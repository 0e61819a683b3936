#include "cli/RunCli.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "cli/CliSession.h"
#include "cli/Commands.h"
#include "cli/Text.h"

namespace zelorgas {
namespace {

constexpr std::string_view kUsage =
    "zelorgas-cli [--port PORT] [--json] [--trace FILE] [--attempts N] COMMAND";

constexpr std::string_view kOptionsHelp =
    "Options:\n"
    "  --port PORT     a device path, COMn, or sim (a simulated ECU inside the program)\n"
    "  --json          one JSON document on standard output, and nothing else there\n"
    "  --trace FILE    every frame sent and received, with its time in milliseconds and its "
    "result\n"
    "  --attempts N    how often each exchange is tried, 1 to 100; 3 when not given\n"
    "  --help          this text\n"
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
  std::vector<std::string> words;  // the command and its arguments
  std::string problem;             // why the command line is wrong; empty when it is not
};

// The program's own options may stand before the command or behind it.
CommandLine ReadCommandLine(std::span<const std::string> arguments) {
  CommandLine line;
  const auto take_value = [&](std::size_t& index) -> std::optional<std::string> {
    if (index + 1 < arguments.size() && !arguments[index + 1].empty()) return arguments[++index];
    line.problem = arguments[index] + " needs a value";
    return std::nullopt;
  };
  for (std::size_t i = 0; i < arguments.size() && line.problem.empty(); ++i) {
    const std::string& word = arguments[i];
    if (word == "--help") {
      line.options.help = true;
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
    } else if (word.starts_with("--")) {
      line.problem = "there is no option " + word;
    } else {
      line.words.push_back(word);
    }
  }
  return line;
}

ExitStatus RunCommand(CliSession& session, std::span<const std::string> words) {
  if (words.empty()) return session.UsageError("no command given");
  const auto command = std::ranges::find(Commands(), words.front(), &Command::name);
  if (command == Commands().end()) {
    return session.UsageError("there is no command \"" + words.front() + "\"");
  }
  session.SetUsage(FrameLines("usage: zelorgas-cli [OPTIONS] ", command->usage) +
                   "zelorgas-cli --help lists the options and every command.\n");
  return session.Finish(command->run(session, words.subspan(1)));
}

}  // namespace

int RunCli(std::span<const std::string> arguments, CliEnvironment& environment) {
  CommandLine line = ReadCommandLine(arguments);
  const bool help = line.options.help && line.problem.empty();
  CliSession session(environment, std::move(line.options));
  session.SetUsage(Help());
  ExitStatus status = ExitStatus::kDone;
  if (help) {
    environment.out << Help();
    status = session.Finish(status);
  } else if (!line.problem.empty()) {
    status = session.UsageError(line.problem);
  } else {
    status = RunCommand(session, line.words);
  }
  return static_cast<int>(status);
}

}  // namespace zelorgas
