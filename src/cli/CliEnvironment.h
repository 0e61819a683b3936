// What the command line takes from the process it runs in, so that tests supply their own.
#pragma once

#include <functional>
#include <ostream>
#include <vector>

#include "platform/Clock.h"
#include "platform/PortList.h"
#include "platform/SerialDevice.h"

namespace zelorgas {

struct CliEnvironment {
  std::ostream& out;
  std::ostream& err;
  Clock& clock;
  SerialOpener serial_ports;
  SerialOpener simulated_ecu;  // opens the port "sim"
  std::function<std::vector<SerialPortInfo>()> list_ports;
};

}  // namespace zelorgas
