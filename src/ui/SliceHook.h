// Keeps the window alive while a procedure on the user-interface thread waits for the ECU.
#pragma once

#include "platform/SerialDevice.h"

namespace zelorgas {

// A hook for ClpgecuDoc::SetSliceHook: on the thread that made it, it dispatches what is pending
// (paints, timers, posted messages) but no input of the person; on any other thread it does
// nothing. What it dispatches must not start an exchange: see CEcuControl.
[[nodiscard]] SerialDevice::SliceHook MakeUiSliceHook();

}  // namespace zelorgas
