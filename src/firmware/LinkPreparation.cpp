#include "firmware/LinkPreparation.h"

#include <array>
#include <cstdio>

#include "app/EcuConnection.h"

namespace zelorgas {
namespace {

constexpr std::uint16_t kEnterBootloaderCoil = 33;
constexpr std::chrono::milliseconds kEnterTime{100};

}  // namespace

bool OpenForUpdate(ModbusSerialPort& link) {
  return (link.IsOpen() && !link.PortLost()) || link.Open(0, 0, 255);
}

IdentifyOutcome ReadUpdateTarget(ModbusMaster& master, EcuIdentity& identity) {
  if (const auto step = ReadBasicIdentification(master, identity); !step.Ok()) return step;
  if (const auto step = ReadModel(master, identity); !step.Ok()) return step;
  if (identity.bootloader) return {};
  if (const auto step = ReadVersions(master, identity); !step.Ok()) return step;
  return ReadSerialNumber(master, identity);
}

IdentifyOutcome FindUpdateTarget(ClpgecuDoc& document, EcuIdentity& identity) {
  if (!OpenForUpdate(document.Link())) return {ModbusResult::kPortNotOpen, kPortBusy};
  return ReadUpdateTarget(document.Link(), identity);
}

std::string NameOfTarget(const EcuIdentity& identity) {
  if (identity.bootloader) return "bootloader " + identity.revision;
  std::array<char, 32> software{};
  std::snprintf(software.data(), software.size(), "software %02d.%02d", identity.software.major,
                identity.software.minor);
  if (!identity.serial) return software.data();
  return FormatSerialNumber(*identity.serial) + ", " + software.data();
}

IdentifyOutcome PrepareLink(ClpgecuDoc& document, EcuIdentity& identity) {
  ModbusSerialPort& link = document.Link();
  if (!OpenForUpdate(link)) return {ModbusResult::kPortNotOpen, kPortBusy};
  // An ECU that restarts at once has no time to answer. What it has become shows below.
  static_cast<void>(link.WriteSingleCoil(ECU_SLAVE_ADDRESS, kEnterBootloaderCoil, 1));
  document.SleepSliced(kEnterTime);
  return ReadBootloaderIdentification(link, identity);
}

}  // namespace zelorgas
