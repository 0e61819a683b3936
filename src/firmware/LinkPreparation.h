// Getting an ECU ready for an update: who is there, and its way into the bootloader. Each function
// is a few exchanges, on the thread that updates, each of them tried three times at least.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/ClpgecuDoc.h"
#include "app/Identification.h"
#include "platform/Message.h"

namespace zelorgas {

// Opens the port if it is not open or was unplugged; false as Open says it.
[[nodiscard]] bool OpenForUpdate(ModbusSerialPort& link);

// Whom an update is about to change: vendor, product and mode, and of an application also its
// versions and serial number. A bootloader is told to stay one. Opens the document's port if it is
// not open or was unplugged. The messages of a failure are the connection's.
IdentifyOutcome FindUpdateTarget(ClpgecuDoc& document, EcuIdentity& identity);

inline constexpr FixedText kAnotherTarget =
    FixedText::Of("Another ECU answers than the one in the question!\nNothing has been erased.");

// Makes sure, right before something is done to it, that `identity` is still what answers. Fails
// with kAnotherTarget, or as FindUpdateTarget does.
IdentifyOutcome CheckUpdateTarget(ClpgecuDoc& document, const EcuIdentity& identity);

// "ECU123456, firmware 00.39" or "bootloader P42V0T39M1B7": an ECU in a question.
[[nodiscard]] Message NameOfTarget(const EcuIdentity& identity);

// Opens the document's port if it is not open or was unplugged, orders the ECU into its bootloader
// (it takes the order there too), and makes sure that the bootloader answers. `identity` becomes
// the bootloader's. On a failure the message is the connection procedure's, and the port stays as
// it is.
IdentifyOutcome PrepareLink(ClpgecuDoc& document, EcuIdentity& identity);

}  // namespace zelorgas
