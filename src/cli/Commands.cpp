#include "cli/Commands.h"

#include <array>

namespace zelorgas {
namespace {

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

}  // namespace zelorgas
