#include "firmware/LinkPreparation.h"

#include <algorithm>
#include <utility>

#include "app/EcuConnection.h"
#include "app/LinkSession.h"

namespace zelorgas {
namespace {

constexpr std::uint16_t kEnterBootloaderCoil = 33;
constexpr std::chrono::milliseconds kEnterTime{100};

}  // namespace

bool OpenForUpdate(ModbusSerialPort& link) {
  return (link.IsOpen() && !link.PortLost()) || link.Open(0, 0, 255);
}

IdentifyOutcome FindUpdateTarget(ClpgecuDoc& document, EcuIdentity& identity) {
  ModbusSerialPort& link = document.Link();
  if (!OpenForUpdate(link)) return {ModbusResult::kPortNotOpen, kPortBusy};
  const MoreAttempts attempts(link);
  if (const auto step = ReadBasicIdentification(link, identity); !step.Ok()) return step;
  if (const auto step = ReadModel(link, identity); !step.Ok()) return step;
  if (identity.bootloader) {
    // Without it the application may start while the person is still reading a question.
    static_cast<void>(link.WriteSingleCoil(ECU_SLAVE_ADDRESS, kStayInBootloaderCoil, 1));
    return {};
  }
  if (const auto step = ReadVersions(link, identity); !step.Ok()) return step;
  return ReadSerialNumber(link, identity);
}

IdentifyOutcome CheckUpdateTarget(ClpgecuDoc& document, const EcuIdentity& identity) {
  EcuIdentity now;
  if (const auto step = FindUpdateTarget(document, now); !step.Ok()) return step;
  const bool same = now.bootloader == identity.bootloader && now.revision == identity.revision &&
                    now.software == identity.software && now.serial == identity.serial;
  if (!same) return {ModbusResult::kOk, kAnotherTarget};
  return {};
}

Message NameOfTarget(const EcuIdentity& identity) {
  if (identity.bootloader) return {FixedText::Of("bootloader %1"), identity.revision};
  Message software(FixedText::Of("firmware %1"), FormatVersion(identity.software));
  if (!identity.serial) return software;
  Message name = Message::Verbatim(FormatSerialNumber(*identity.serial));
  name.Append(", ", std::move(software));
  return name;
}

IdentifyOutcome PrepareLink(ClpgecuDoc& document, EcuIdentity& identity) {
  ModbusSerialPort& link = document.Link();
  if (!OpenForUpdate(link)) return {ModbusResult::kPortNotOpen, kPortBusy};
  const MoreAttempts attempts(link);
  // An ECU that restarts at once has no time to answer. What it has become shows below.
  static_cast<void>(link.WriteSingleCoil(ECU_SLAVE_ADDRESS, kEnterBootloaderCoil, 1));
  document.SleepSliced(kEnterTime);
  return ReadBootloaderIdentification(link, identity);
}

}  // namespace zelorgas
