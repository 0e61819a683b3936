#include "app/Identification.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <utility>
#include <vector>

namespace zelorgas {
namespace {

constexpr FixedText kNoConnection = FixedText::Of(
    "Couldn't establish connection with GASECU!\nPlease check out cables and power supply!");
constexpr FixedText kWrongVendor = FixedText::Of("Unrecognized Vendor Name!");
constexpr FixedText kWrongProduct = FixedText::Of("Unrecognized Product Code!");
constexpr FixedText kNoRevision = FixedText::Of("Could not get revision number!");
constexpr FixedText kNoBoardInformation =
    FixedText::Of("Error while loading installation information!\nPlease try again!");

constexpr std::string_view kBootloaderRevision = "P%uV%uT%uM%uB%u";

constexpr std::size_t kBasicObjects = 3;
constexpr std::uint8_t kFirstBoardInformationMinor = 20;

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

void SkipSpace(std::string_view& text) {
  text.remove_prefix(
      static_cast<std::size_t>(std::ranges::find_if_not(text, IsSpace) - text.begin()));
}

// Takes a number off the front of `text`: white space, a sign, digits. Gives its lowest byte, which
// is all that a version keeps of it.
std::optional<std::uint8_t> TakeNumberByte(std::string_view& text) {
  SkipSpace(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || !IsDigit(text.front())) return std::nullopt;
  unsigned number = 0;
  for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
    number = number * 10 + static_cast<unsigned>(text.front() - '0');
  }
  return static_cast<std::uint8_t>(negative ? 0U - number : number);
}

// Matches `text` against `format`, where "%u" is a number, a blank any white space or none, and
// everything else itself. Gives the numbers when all of them are there; what follows the last one
// is not looked at.
template <std::size_t kCount>
std::optional<std::array<std::uint8_t, kCount>> ScanNumbers(std::string_view text,
                                                            std::string_view format) {
  std::array<std::uint8_t, kCount> numbers{};
  for (std::uint8_t& number : numbers) {
    for (; !format.starts_with("%u"); format.remove_prefix(1)) {
      if (format.front() == ' ') {
        SkipSpace(text);
        continue;
      }
      if (!text.starts_with(format.front())) return std::nullopt;
      text.remove_prefix(1);
    }
    format.remove_prefix(2);
    const std::optional<std::uint8_t> taken = TakeNumberByte(text);
    if (!taken) return std::nullopt;
    number = *taken;
  }
  return numbers;
}

// From 0.12 on the ECU answers for its hardware version and serial number.
bool KnowsHardwareAndSerial(Version software) { return software.major == 0 && software.minor > 11; }

}  // namespace

std::string FormatVersion(Version version) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "%02d.%02d", version.major, version.minor);
  return text.data();
}

std::optional<Revision> ParseRevision(std::string_view text) {
  if (const auto four = ScanNumbers<4>(text, "SV %u.%u@HV %u.%u")) {
    return Revision{{(*four)[0], (*four)[1]}, {(*four)[2], (*four)[3]}};
  }
  if (const auto five = ScanNumbers<5>(text, kBootloaderRevision)) {
    return Revision{{(*five)[1], (*five)[2]}, {}};
  }
  return std::nullopt;
}

std::string FormatSerialNumber(std::uint32_t serial) {
  constexpr std::size_t kDigits = 6;
  std::string digits = std::to_string(serial);
  if (digits.size() < kDigits) digits.insert(0, kDigits - digits.size(), '0');
  return "ECU" + digits;
}

IdentifyOutcome ReadBasicIdentification(ModbusMaster& master, EcuIdentity& identity) {
  DeviceIdentification answer;
  const ModbusResult result =
      master.ReadDeviceIdentification(ECU_SLAVE_ADDRESS, kBasicIdentification, 0, answer);
  if (result != ModbusResult::kOk) return {result, kNoConnection};
  if (answer.objects.size() != kBasicObjects) return {result, kNoTargetInfo};
  if (answer.objects[0] != kVendorName) return {result, kWrongVendor};
  if (answer.objects[1] != kProductCode) return {result, kWrongProduct};
  const std::optional<Revision> revision = ParseRevision(answer.objects[2]);
  if (!revision) return {result, kNoRevision};
  identity.vendor = std::move(answer.objects[0]);
  identity.product = std::move(answer.objects[1]);
  identity.revision = std::move(answer.objects[2]);
  identity.software = revision->software;
  identity.hardware = revision->hardware;
  return {};
}

IdentifyOutcome ReadModel(ModbusMaster& master, EcuIdentity& identity) {
  DeviceIdentification answer;
  const ModbusResult result = master.ReadDeviceIdentification(
      ECU_SLAVE_ADDRESS, kRegularIdentification, kModelObject, answer);
  if (result != ModbusResult::kOk || answer.objects.empty()) return {result, kNoTargetInfo};
  identity.bootloader = answer.objects.front() == kBootloaderModel;
  return {};
}

IdentifyOutcome ReadBootloaderIdentification(ModbusMaster& master, EcuIdentity& identity) {
  EcuIdentity found;
  if (const IdentifyOutcome step = ReadBasicIdentification(master, found); !step.Ok()) return step;
  if (const IdentifyOutcome step = ReadModel(master, found); !step.Ok()) return step;
  if (!found.bootloader) return {ModbusResult::kOk, kNoTargetInfo};
  if (!ScanNumbers<5>(found.revision, kBootloaderRevision)) return {ModbusResult::kOk, kNoRevision};
  identity = std::move(found);
  return {};
}

IdentifyOutcome ReadVersions(ModbusMaster& master, EcuIdentity& identity) {
  std::vector<std::uint16_t> words;
  const ModbusResult result =
      master.ReadInputRegisters(ECU_SLAVE_ADDRESS, kHardwareVersionRegister, 2, words);
  if (result != ModbusResult::kOk) return {result, kNoTargetInfo};
  if (KnowsHardwareAndSerial(identity.software)) {
    identity.hardware = VersionOfRegister(words[0]);
  } else {
    identity.hardware.major = 0;
  }
  identity.software = VersionOfRegister(words[1]);
  return {};
}

IdentifyOutcome ReadSerialNumber(ModbusMaster& master, EcuIdentity& identity) {
  if (!KnowsHardwareAndSerial(identity.software)) return {};
  std::vector<std::uint16_t> words;
  const ModbusResult result =
      master.ReadInputRegisters(ECU_SLAVE_ADDRESS, kSerialNumberRegister, 2, words);
  if (result != ModbusResult::kOk) return {result, kNoTargetInfo};
  identity.serial = SerialOfRegisters(words[0], words[1]);
  return {};
}

IdentifyOutcome ReadBoardInformation(ModbusMaster& master, EcuIdentity& identity) {
  if (identity.software.minor < kFirstBoardInformationMinor) return {};
  std::array<std::uint16_t, 3> board{};
  std::vector<std::uint16_t> words;
  const ModbusResult result = master.ReadHoldingRegisters(
      ECU_SLAVE_ADDRESS, kBoardInformationRegister, board.size(), words);
  if (result != ModbusResult::kOk) return {result, kNoBoardInformation};
  std::ranges::copy(words, board.begin());
  identity.board = board;
  return {};
}

}  // namespace zelorgas
