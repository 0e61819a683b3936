// Who is on the line: what the ECU's device identification and version registers say. Each step is
// one exchange on the master; any thread that may use the master may call it.
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "link/ModbusMaster.h"
#include "platform/Message.h"

namespace zelorgas {

// Compared exactly, case and spacing included.
inline constexpr std::string_view kVendorName = "Tarnwick Ltd.";
inline constexpr std::string_view kProductCode = "Petrol<=>GAS ECU Conversion kit";
inline constexpr std::string_view kBootloaderModel = "Bootloader";

inline constexpr FixedText kNoTargetInfo = FixedText::Of("Couldn't get target application info!");

inline constexpr std::uint8_t kBasicIdentification = 1;    // objects 0 to 2
inline constexpr std::uint8_t kRegularIdentification = 2;  // objects 3 and up
inline constexpr std::uint8_t kModelObject = 3;

inline constexpr std::uint16_t kHardwareVersionRegister = 32;  // input: high byte major, low minor
inline constexpr std::uint16_t kSoftwareVersionRegister = 33;  // input: high byte major, low minor
inline constexpr std::uint16_t kSerialNumberRegister = 35;     // input, two: low half first
inline constexpr std::uint16_t kBoardInformationRegister = 16384;  // holding, three

struct Version {
  std::uint8_t major = 0;
  std::uint8_t minor = 0;

  friend auto operator<=>(const Version&, const Version&) = default;
};

// "00.39"
[[nodiscard]] std::string FormatVersion(Version version);

// Of a register that holds it: high byte major, low byte minor.
[[nodiscard]] constexpr Version VersionOfRegister(std::uint16_t word) {
  return {static_cast<std::uint8_t>(word >> 8U), static_cast<std::uint8_t>(word & 0xFFU)};
}
// Of the two registers that hold it.
[[nodiscard]] constexpr std::uint32_t SerialOfRegisters(std::uint16_t low, std::uint16_t high) {
  return (static_cast<std::uint32_t>(high) << 16U) | low;
}

struct Revision {
  Version software;
  Version hardware;  // 0.0 where the revision text does not carry it
};

// Understands "SV %u.%u@HV %u.%u" (all four numbers) and "P%uV%uT%uM%uB%u" (all five; V and T are
// the software version), each with any text behind it; white space may stand before a number.
// Nothing for any other text. Of a number that no byte holds its lowest byte counts.
[[nodiscard]] std::optional<Revision> ParseRevision(std::string_view text);

// "ECU%06d" of the serial number.
[[nodiscard]] std::string FormatSerialNumber(std::uint32_t serial);

// What identification leaves behind.
struct EcuIdentity {
  std::string vendor;
  std::string product;
  std::string revision;
  Version software;
  Version hardware;
  bool bootloader = false;
  std::optional<std::uint32_t> serial;                // minor version 12 and up
  std::optional<std::array<std::uint16_t, 3>> board;  // minor version 20 and up
};

// The outcome of one identification step: kOk with an empty message, or what to tell the person.
// `result` is the link's when the link failed, kOk when the ECU answered something unexpected.
struct [[nodiscard]] IdentifyOutcome {
  ModbusResult result = ModbusResult::kOk;
  FixedText message;

  [[nodiscard]] bool Ok() const { return message.empty(); }
};

// The steps, in the order of a connection. Each changes `identity` only when it succeeds.
// Basic identification: vendor, product and revision are the expected ones and are parsed.
IdentifyOutcome ReadBasicIdentification(ModbusMaster& master, EcuIdentity& identity);
// Sets `bootloader` by the model text.
IdentifyOutcome ReadModel(ModbusMaster& master, EcuIdentity& identity);
// Both, of an ECU that has to be in its bootloader: its model and the form of its revision have to
// be the bootloader's.
IdentifyOutcome ReadBootloaderIdentification(ModbusMaster& master, EcuIdentity& identity);
// Hardware and software version from the input registers. An ECU whose revision text is older than
// 0.12, or not of major version 0, does not say its hardware version there: then only the
// hardware's major byte is cleared and its minor byte is left as it was.
IdentifyOutcome ReadVersions(ModbusMaster& master, EcuIdentity& identity);
// The serial number, for software 0.12 up to 0.255; nothing happens for another.
IdentifyOutcome ReadSerialNumber(ModbusMaster& master, EcuIdentity& identity);
// The three board words, for minor version 20 and above; nothing happens below.
IdentifyOutcome ReadBoardInformation(ModbusMaster& master, EcuIdentity& identity);

}  // namespace zelorgas
