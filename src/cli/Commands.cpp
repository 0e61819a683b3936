#include "cli/Commands.h"

#include <algorithm>
#include <array>

namespace zelorgas {
namespace {

constexpr std::array<CommandOption, 2> kFirmwareOptions{{{"--yes", false}, {"--no-backup", false}}};
constexpr std::array<CommandOption, 2> kReadOptions{{{"--notes"}, {"--yes", false}}};
constexpr std::array<CommandOption, 2> kWriteOptions{{{"--yes", false}, {"--both-maps", false}}};
constexpr std::array<CommandOption, 2> kLiveOptions{{{"--seconds"}, {"--csv"}}};
constexpr std::array<CommandOption, 3> kRecordOptions{
    {{"--seconds"}, {"--notes"}, {"--yes", false}}};
constexpr std::array<CommandOption, 1> kErrorOptions{{{"--yes", false}}};

constexpr auto kCommands = std::to_array<Command>({
    {"ports", "ports", "the serial ports of this machine, one a line", RunPorts},
    {"identify", "identify",
     "vendor, product, revision, software and hardware version, serial number, board\n"
     "information, application or bootloader",
     RunIdentify},
    {"read", "read FILE.fob [--notes TEXT] [--yes]",
     "reads the configuration and stores it; asks before it writes over a file, without a\n"
     "terminal it needs --yes for that",
     RunRead, kReadOptions},
    {"write", "write FILE.fob [--both-maps] [--yes]",
     "loads the file into the ECU: stores what the ECU holds in storage/backup, writes, reads\n"
     "back and compares; asks first, without a terminal it needs --yes. With --both-maps it is a\n"
     "backup of both routing maps, and FILE_map2.fob beside it is loaded too",
     RunWrite, kWriteOptions},
    {"show", "show FILE.fob|FILE.osc", "prints a configuration, or what a recording holds",
     RunShow},
    {"diff", "diff A B",
     "compares two, each a file or ecu: a line for each parameter or cell that differs; exit\n"
     "status 1 when there is one",
     RunDiff},
    {"get", "get NAME...", "parameters by name, or holding registers by number", RunGet},
    {"set", "set NAME=VALUE...",
     "writes parameters or holding registers and reads them back; nothing is written when one\n"
     "of the assignments is wrong. The name of an injector, sensor or lambda range as VALUE\n"
     "(INJECTOR_TYPE=VALTEK) writes all that choosing it writes",
     RunSet},
    {"live", "live [--seconds S] [--csv FILE]",
     "live values, a line an update, until S seconds have passed since the first or Ctrl+C is\n"
     "pressed; with --json one JSON object a line; FILE gets the same values, comma separated.\n"
     "--attempts counts for connecting; the live values' exchanges are tried once each",
     RunLive, kLiveOptions},
    {"record", "record FILE.osc --seconds S [--notes TEXT] [--yes]",
     "records the oscilloscope's twelve channels for S seconds (640 at most) since the first\n"
     "values, or until Ctrl+C is pressed, and stores them; asks before it writes over a file,\n"
     "without a terminal it needs --yes. --attempts counts for connecting, as with live",
     RunRecord, kRecordOptions},
    {"errors", "errors", "the errors that the ECU has stored, with how often each has occurred",
     RunErrors},
    {"clear-error", "clear-error temporary|permanent CODE [--yes]",
     "deletes one stored error; asks first, without a terminal it needs --yes", RunClearError,
     kErrorOptions},
    {"clear-errors", "clear-errors [--yes]",
     "deletes all stored errors; asks first, without a terminal it needs --yes", RunClearErrors,
     kErrorOptions},
    {"erase", "erase [--no-backup] [--yes]",
     "erases the ECU's firmware; asks first, without a terminal it needs --yes. Stores what the\n"
     "ECU holds in storage/backup before, and does not go on when that fails",
     RunErase, kFirmwareOptions},
    {"flash", "flash IMAGE.ebi [--no-backup] [--yes]",
     "replaces the ECU's firmware by the image; asks first, without a terminal it needs --yes.\n"
     "Stores what the ECU holds in storage/backup before, and does not go on when that fails. Do\n"
     "not switch the ignition off before it is done. Ctrl+C stops it as long as nothing is\n"
     "erased, and later when pressed twice.\n"
     "--attempts counts from 3 up",
     RunFlash, kFirmwareOptions},
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
