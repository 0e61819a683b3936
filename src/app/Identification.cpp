#include "app/Identification.h"

#include <algorithm>
#include <limits>
#include <span>
#include <utility>
#include <vector>

namespace zelorgas {
namespace {

constexpr std::string_view kNoConnection =
    "Couldn't establish connection with GASECU!\nPlease check out cables and power supply!";
constexpr std::string_view kWrongVendor = "Unrecognized Vendor Name!";
constexpr std::string_view kWrongProduct = "Unrecognized Product Code!";
constexpr std::string_view kNoRevision = "Could not get revision number!";
constexpr std::string_view kNoBoardInformation =
    "Error while loading installation information!\nPlease try again!";

constexpr std::string_view kBootloaderRevision = "P%uV%uT%uM%uB%u";

constexpr std::size_t kBasicObjects = 3;
constexpr std::uint8_t kFirstBoardInformationMinor = 20;

constexpr std::uint32_t kNumberTooLarge = std::numeric_limits<std::uint32_t>::max();

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

void SkipSpace(std::string_view& text) {
  text.remove_prefix(
      static_cast<std::size_t>(std::ranges::find_if_not(text, IsSpace) - text.begin()));
}

// Takes a number off the front of `text`: white space, a sign, digits. What an unsigned number
// cannot hold, a negative one included, gives kNumberTooLarge.
std::optional<std::uint32_t> TakeNumber(std::string_view& text) {
  SkipSpace(text);
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  if (text.empty() || !IsDigit(text.front())) return std::nullopt;
  std::uint64_t number = 0;
  for (; !text.empty() && IsDigit(text.front()); text.remove_prefix(1)) {
    const auto digit = static_cast<std::uint64_t>(text.front() - '0');
    number = std::min<std::uint64_t>(number * 10 + digit, kNumberTooLarge);
  }
  if (negative && number != 0) return kNumberTooLarge;
  return static_cast<std::uint32_t>(number);
}

// Matches `text` against `format`, where "%u" is a number, a blank any white space or none, and
// everything else itself. Gives the numbers when all of them are there; what follows the last one
// is not looked at.
template <std::size_t kCount>
std::optional<std::array<std::uint32_t, kCount>> ScanNumbers(std::string_view text,
                                                             std::string_view format) {
  std::array<std::uint32_t, kCount> numbers{};
  for (std::uint32_t& number : numbers) {
    for (; !format.starts_with("%u"); format.remove_prefix(1)) {
      if (format.front() == ' ') {
        SkipSpace(text);
        continue;
      }
      if (!text.starts_with(format.front())) return std::nullopt;
      text.remove_prefix(1);
    }
    format.remove_prefix(2);
    const std::optional<std::uint32_t> taken = TakeNumber(text);
    if (!taken) return std::nullopt;
    number = *taken;
  }
  return numbers;
}

std::optional<Version> MakeVersion(std::uint32_t major, std::uint32_t minor) {
  constexpr std::uint32_t kMax = std::numeric_limits<std::uint8_t>::max();
  if (major > kMax || minor > kMax) return std::nullopt;
  return Version{static_cast<std::uint8_t>(major), static_cast<std::uint8_t>(minor)};
}

// From 0.12 on the ECU answers for its hardware version and serial number.
bool KnowsHardwareAndSerial(Version software) { return software.major == 0 && software.minor > 11; }

}  // namespace

std::optional<Revision> ParseRevision(std::string_view text) {
  std::optional<Version> software;
  std::optional<Version> hardware = Version{};
  if (const auto four = ScanNumbers<4>(text, "SV %u.%u@HV %u.%u")) {
    software = MakeVersion((*four)[0], (*four)[1]);
    hardware = MakeVersion((*four)[2], (*four)[3]);
  } else if (const auto five = ScanNumbers<5>(text, kBootloaderRevision)) {
    software = MakeVersion((*five)[1], (*five)[2]);
  }
  if (!software || !hardware) return std::nullopt;
  return Revision{*software, *hardware};
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
