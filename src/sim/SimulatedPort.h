// The simulated line as a serial port of this process.
#pragma once

#include "platform/SerialDevice.h"
#include "sim/SimulatedLine.h"

namespace zelorgas {

// Opens `line` by whatever name, one user at a time; null while the adapter is unplugged or the
// port is in use. Waits cost the clock's time, so with a virtual clock none. `line` and `clock`
// outlive the opener and its devices.
[[nodiscard]] SerialOpener SimulatedPort(SimulatedLine& line, Clock& clock);

}  // namespace zelorgas
