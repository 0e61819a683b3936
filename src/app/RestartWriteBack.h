// After a restart the ECU may have lost what was changed since it last kept its configuration: the
// program writes back the whole block as it knows it. Runs on the thread of the window or of the
// command line; the document's slice hook keeps the window alive.
#pragma once

#include <string_view>

#include "app/ClpgecuDoc.h"
#include "link/ModbusResult.h"
#include "platform/Message.h"

namespace zelorgas {

inline constexpr FixedText kRestartNotice = FixedText::Of(
    "The GASECU has been restarted! Please wait while data are being synchronized...");

// Holds the polling, then writes the image's block to the ECU in chunks, with a short rest after
// each. kOk when the ECU has taken all of it; otherwise the result of the request that failed,
// after which nothing more is written and everything is read anew. With `same` false another ECU is
// on the line, and nothing is written: the polling finds it as well, and says so to who connects.
ModbusResult WriteBackAfterRestart(ClpgecuDoc& document, bool& same);

}  // namespace zelorgas
