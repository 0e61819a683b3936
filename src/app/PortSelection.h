// Pointing the link at a port by the name that the port list and the settings use.
#pragma once

#include <string_view>

#include "link/ModbusSerialPort.h"

namespace zelorgas {

// "COM1" to "COM255" become the port's number, which the link tries in both of its forms; any other
// name is opened as it stands. Takes effect at the link's next Open.
void SelectPort(ModbusSerialPort& link, std::string_view name);

}  // namespace zelorgas
