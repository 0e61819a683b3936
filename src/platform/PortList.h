// The serial ports of this machine.
#pragma once

#include <string>
#include <vector>

namespace zelorgas {

struct SerialPortInfo {
  std::string name;     // what SerialOpener takes: "COM3", "/dev/ttyUSB0"
  std::string product;  // the adapter's own text, empty where the system does not know it
};

// Ports in the order a person expects (COM2 before COM10). Empty when there are none.
[[nodiscard]] std::vector<SerialPortInfo> ListSerialPorts();

}  // namespace zelorgas
