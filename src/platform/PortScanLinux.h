// Finds the serial ports that a Linux system describes in its device folders. Safe from any thread.
#pragma once

#include <filesystem>
#include <vector>

#include "platform/PortList.h"

namespace zelorgas {

// The ports below `root`, which is "/" but for a test: what sys/class/tty holds with hardware
// behind it, and adapters that are only in dev. A port that sys/class/tty lists and dev does not is
// left out: it cannot be opened. In the order of ListSerialPorts.
[[nodiscard]] std::vector<SerialPortInfo> ScanSerialPorts(const std::filesystem::path& root);

}  // namespace zelorgas
