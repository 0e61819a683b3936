// Getting an ECU ready for an update: who is there, and its way into the bootloader. Each function
// is a few exchanges, on the thread that updates.
#pragma once

#include <string>

#include "app/ClpgecuDoc.h"
#include "app/Identification.h"

namespace zelorgas {

// Opens the port if it is not open or was unplugged; false as Open says it.
[[nodiscard]] bool OpenForUpdate(ModbusSerialPort& link);

// Whom an update is about to change, when the connection has not found it out: vendor, product and
// mode, and of an application also its versions and serial number. The messages of a failure are
// the connection's.
IdentifyOutcome ReadUpdateTarget(ModbusMaster& master, EcuIdentity& identity);

// The same on the document's port, which is opened first if it is not open or was unplugged.
IdentifyOutcome FindUpdateTarget(ClpgecuDoc& document, EcuIdentity& identity);

// "ECU123456, software 00.39" or "bootloader P42V0T39M1B7": an ECU in a question.
[[nodiscard]] std::string NameOfTarget(const EcuIdentity& identity);

// Opens the document's port if it is not open or was unplugged, orders the ECU into its bootloader
// (it takes the order there too), and makes sure that the bootloader answers. `identity` becomes
// the bootloader's. On a failure the message is the connection procedure's, and the port stays as
// it is.
IdentifyOutcome PrepareLink(ClpgecuDoc& document, EcuIdentity& identity);

}  // namespace zelorgas
