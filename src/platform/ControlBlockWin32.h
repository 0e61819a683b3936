// LineSettings and PortTimeouts as the records of the Windows serial driver. Pure functions, safe
// from any thread.
#pragma once

#include <windows.h>

#include "platform/SerialDevice.h"

namespace zelorgas {

// The whole control block: nothing in it is left as another program may have set it.
[[nodiscard]] DCB MakeControlBlock(const LineSettings& settings);

[[nodiscard]] COMMTIMEOUTS ToCommTimeouts(const PortTimeouts& timeouts);
[[nodiscard]] PortTimeouts FromCommTimeouts(const COMMTIMEOUTS& timeouts);

}  // namespace zelorgas
