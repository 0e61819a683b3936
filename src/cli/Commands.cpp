#include "cli/Commands.h"

#include <algorithm>
#include <array>

namespace zelorgas {
namespace {

constexpr std::array<CommandOption, 2> kLiveOptions{{{"--seconds"}, {"--csv"}}};

constexpr auto kCommands = std::to_array<Command>({
    {"ports", "ports", "the serial ports of this machine, one a line", RunPorts},
    {"identify", "identify",
     "vendor, product, revision, software and hardware version, serial number, board\n"
     "information, application or bootloader",
     RunIdentify},
    {"get", "get NAME...", "parameters by name, or holding registers by number", RunGet},
    {"set", "set NAME=VALUE...",
     "writes parameters or holding registers and reads them back; nothing is written when one\n"
     "of the assignments is wrong",
     RunSet},
    {"live", "live [--seconds S] [--csv FILE]",
     "live values, a line an update, until S seconds have passed since the first or Ctrl+C is\n"
     "pressed; with --json one JSON object a line; FILE gets the same values, comma separated.\n"
     "--attempts counts for connecting; the live values' exchanges are tried once each",
     RunLive, kLiveOptions},
    {"modbus",
     "modbus coils|inputs|holding|input START COUNT\n"
     "modbus write-coil A on|off\n"
     "modbus write-register A V\n"
     "modbus write-registers A V...\n"
     "modbus fifo P\n"
     "modbus identify CODE OBJECT",
     "one exchange, for diagnosis: coils, discrete inputs, holding and input registers", RunModbus},
});

}  // namespace

std::span<const Command> Commands() { return kCommands; }

const Command* FindCommand(std::string_view name) {
  const auto* const command = std::ranges::find(kCommands, name, &Command::name);
  return command == kCommands.end() ? nullptr : command;
}

}  // namespace zelorgas
