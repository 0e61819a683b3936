// What the command line takes from the process it runs in, so that tests supply their own.
#pragma once

#include <atomic>
#include <functional>
#include <istream>
#include <ostream>
#include <vector>

#include "platform/Clock.h"
#include "platform/PortList.h"
#include "platform/SerialDevice.h"
#include "platform/SettingsStore.h"

namespace zelorgas {

struct CliEnvironment {
  std::ostream& out;
  std::ostream& err;
  std::istream& in;
  bool in_is_terminal;  // a person answers on `in`
  Clock& clock;
  SerialOpener serial_ports;
  SerialOpener simulated_ecu;  // opens the port "sim"
  std::function<std::vector<SerialPortInfo>()> list_ports;
  SettingsStore& settings;
  // From the call on, the first `count` interrupts from the keyboard are counted in `interrupted`
  // instead of ending the program; the next one ends it all the same.
  std::function<void(unsigned count)> catch_interrupts;
  std::atomic<unsigned>& interrupted;
  bool err_is_terminal = false;  // a line on `err` can be drawn over
};

}  // namespace zelorgas
