#include "sim/SimulatedEcu.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace zelorgas {
namespace {

using Response = std::vector<std::uint8_t>;

constexpr std::uint8_t kIllegalFunction = 1;
constexpr std::uint8_t kIllegalAddress = 2;
constexpr std::uint8_t kIllegalValue = 3;

constexpr std::uint16_t kBoardInformation = 16384;  // three holding registers
constexpr std::array<std::uint16_t, 3> kBoardWords{0x5A47, 0x0102, 0x2B39};
constexpr std::uint16_t kTemporaryErrorRegister = 16400;
constexpr std::uint16_t kPermanentErrorRegister = 16432;
constexpr std::uint16_t kFirstCoil = 32;
constexpr std::uint16_t kEnterBootloaderCoil = 33;
constexpr std::uint16_t kFuelCoil = 36;
constexpr std::uint16_t kRestartCoil = 43;
constexpr std::uint16_t kMaxFifoRecords = 7;  // 31 registers fit an answer
constexpr std::uint16_t kMaxBits = 2000;
constexpr std::uint16_t kMaxRegisters = 125;
constexpr std::uint16_t kMaxWritten = 123;

Response Exception(std::span<const std::uint8_t> request, std::uint8_t code) {
  return {request[0], static_cast<std::uint8_t>(request[1] | 0x80U), code};
}

std::uint16_t WordAt(std::span<const std::uint8_t> bytes, std::size_t position) {
  return static_cast<std::uint16_t>((bytes[position] << 8U) | bytes[position + 1]);
}

void Append(Response& response, std::uint16_t word) {
  response.push_back(static_cast<std::uint8_t>(word >> 8U));
  response.push_back(static_cast<std::uint8_t>(word & 0xFFU));
}

std::uint16_t Rounded(double value, double lowest, double highest) {
  return static_cast<std::uint16_t>(
      static_cast<std::int32_t>(std::lround(std::clamp(value, lowest, highest))));
}

std::uint16_t Rounded(double value) { return Rounded(value, 0, 65535); }

// A signed quantity in the low byte.
std::uint16_t SignedByte(double value) { return Rounded(value, -128, 127) & 0xFFU; }
std::uint16_t Byte(double value) { return Rounded(value, 0, 255); }

}  // namespace

SimulatedEcu::SimulatedEcu(Clock& clock, SimulatedEcuOptions options)
    : clock_(clock), options_(options), engine_(options.seed), block_(FactoryConfiguration()) {
  started_ = clock_.Now();
  temporary_errors_[1] = 5;
  temporary_errors_[8] = 2;
  permanent_errors_[3] = 1;
  Boot(options.in_bootloader);
}

void SimulatedEcu::Boot(bool into_bootloader) {
  in_bootloader_ = into_bootloader || !bootloader_.ImageStarts();
  coils_ = {};
  coils_[kRestartCoil] = true;
  bootloader_.LosePower();
}

void SimulatedEcu::Restart() {
  const std::lock_guard guard(lock_);
  Boot(false);
}

void SimulatedEcu::LosePower() { Restart(); }

std::optional<Response> SimulatedEcu::Answer(std::span<const std::uint8_t> request) {
  if (request.size() < 2 || request[0] != ECU_SLAVE_ADDRESS) return std::nullopt;
  const std::lock_guard guard(lock_);
  return Execute(request);
}

SimulatedEcu::Response SimulatedEcu::Execute(std::span<const std::uint8_t> request) {
  const auto function = static_cast<ModbusFunction>(request[1]);
  // The shortest request of each function; a shorter one holds no valid values.
  const std::size_t needed = function == ModbusFunction::kReadFifoQueue            ? 4
                             : function == ModbusFunction::kEncapsulatedInterface  ? 5
                             : function == ModbusFunction::kWriteMultipleRegisters ? 7
                                                                                   : 6;
  if (request.size() < needed) return Exception(request, kIllegalValue);
  switch (function) {
    case ModbusFunction::kReadCoils:
    case ModbusFunction::kReadDiscreteInputs:
      return ReadBits(request);
    case ModbusFunction::kReadHoldingRegisters:
    case ModbusFunction::kReadInputRegisters:
      return ReadRegisters(request);
    case ModbusFunction::kWriteSingleCoil:
      return WriteCoilUnit(request);
    case ModbusFunction::kWriteSingleRegister:
      return WriteRegisterUnit(request);
    case ModbusFunction::kWriteMultipleRegisters:
      return WriteRegistersUnit(request);
    case ModbusFunction::kReadFifoQueue:
      return ReadFifo(request);
    case ModbusFunction::kEncapsulatedInterface:
      return Identify(request);
  }
  return Exception(request, kIllegalFunction);
}

Response SimulatedEcu::ReadBits(std::span<const std::uint8_t> request) {
  const std::uint16_t start = WordAt(request, 2);
  const std::uint16_t count = WordAt(request, 4);
  if (count == 0 || count > kMaxBits) return Exception(request, kIllegalValue);
  const std::size_t bytes = (count + 7U) / 8U;
  Response response{request[0], request[1], static_cast<std::uint8_t>(bytes)};
  response.resize(3 + bytes);
  for (unsigned i = 0; i < count; ++i) {
    const std::optional<bool> bit =
        Bit(static_cast<ModbusFunction>(request[1]), static_cast<std::uint16_t>(start + i));
    if (!bit) return Exception(request, kIllegalAddress);
    if (*bit) response[3 + i / 8] |= static_cast<std::uint8_t>(1U << (i % 8));
  }
  return response;
}

Response SimulatedEcu::ReadRegisters(std::span<const std::uint8_t> request) {
  const bool holding =
      static_cast<ModbusFunction>(request[1]) == ModbusFunction::kReadHoldingRegisters;
  const std::uint16_t start = WordAt(request, 2);
  const std::uint16_t count = WordAt(request, 4);
  if (count == 0 || count > kMaxRegisters) return Exception(request, kIllegalValue);
  Response response{request[0], request[1], static_cast<std::uint8_t>(2 * count)};
  response.reserve(3 + 2U * count);
  for (unsigned i = 0; i < count; ++i) {
    const auto number = static_cast<std::uint16_t>(start + i);
    const std::optional<std::uint16_t> word =
        holding ? HoldingRegister(number) : InputRegister(number);
    if (!word) return Exception(request, kIllegalAddress);
    Append(response, *word);
  }
  return response;
}

Response SimulatedEcu::WriteCoilUnit(std::span<const std::uint8_t> request) {
  const std::uint16_t value = WordAt(request, 4);
  if (value != 0xFF00 && value != 0x0000) return Exception(request, kIllegalValue);
  if (!WriteCoil(WordAt(request, 2), value != 0)) return Exception(request, kIllegalAddress);
  ++writes_;
  return {request.begin(), request.begin() + 6};
}

Response SimulatedEcu::WriteRegisterUnit(std::span<const std::uint8_t> request) {
  std::uint16_t* const target = WritableRegister(WordAt(request, 2));
  if (target == nullptr) return Exception(request, kIllegalAddress);
  *target = WordAt(request, 4);
  ++writes_;
  return {request.begin(), request.begin() + 6};
}

Response SimulatedEcu::WriteRegistersUnit(std::span<const std::uint8_t> request) {
  const std::uint16_t start = WordAt(request, 2);
  const std::uint16_t count = WordAt(request, 4);
  if (count == 0 || count > kMaxWritten || request[6] != 2 * count ||
      request.size() < 7 + 2U * count) {
    return Exception(request, kIllegalValue);
  }
  for (unsigned i = 0; i < count; ++i) {
    if (WritableRegister(static_cast<std::uint16_t>(start + i)) == nullptr) {
      return Exception(request, kIllegalAddress);
    }
  }
  for (unsigned i = 0; i < count; ++i) {
    *WritableRegister(static_cast<std::uint16_t>(start + i)) = WordAt(request, 7 + 2 * i);
  }
  ++writes_;
  return {request.begin(), request.begin() + 6};
}

Response SimulatedEcu::ReadFifo(std::span<const std::uint8_t> request) {
  const std::uint16_t pointer = WordAt(request, 2);
  if (in_bootloader_ || pointer >= kFifoRecords) return Exception(request, kIllegalAddress);
  // The ring's newest place is the one before the next record's. Its reader names the place it
  // wants next; everything from there to the newest is given, at most what an answer holds.
  const std::uint64_t total = RecordsSoFar();
  const std::uint64_t waiting =
      std::min<std::uint64_t>((total + kFifoRecords - pointer) % kFifoRecords, total);
  const std::uint64_t given = std::min<std::uint64_t>(waiting, kMaxFifoRecords);
  const auto registers = static_cast<std::uint16_t>(4 * given);
  Response response{request[0], request[1]};
  Append(response, static_cast<std::uint16_t>(2 + 2 * registers));
  Append(response, registers);
  for (std::uint64_t i = 0; i < given; ++i) {
    for (const std::uint16_t word : RecordAt(total - waiting + i)) Append(response, word);
  }
  return response;
}

Response SimulatedEcu::Identify(std::span<const std::uint8_t> request) const {
  constexpr std::uint8_t kIndividual = 4;
  const std::uint8_t code = request[3];
  if (request[2] != kMeiReadDeviceIdentification) return Exception(request, kIllegalFunction);
  if (code < 1 || code > kIndividual) return Exception(request, kIllegalValue);
  const auto version = [](unsigned major, unsigned minor) {
    return std::to_string(major) + "." + std::to_string(minor);
  };
  const std::array<std::string, 4> objects{
      "Tarnwick Ltd.",
      "Petrol<=>GAS ECU Conversion kit",
      in_bootloader_ ? "P42V" + std::to_string(options_.software_major) + "T" +
                           std::to_string(options_.software_minor) + "M1B7"
                     : "SV " + version(options_.software_major, options_.software_minor) + "@HV " +
                           version(options_.hardware_major, options_.hardware_minor),
      in_bootloader_ ? "Bootloader" : "Sequential injection",
  };
  // Basic identification ends with object 2. An unknown object starts a stream from its beginning,
  // and is an error when it alone is asked for.
  const std::size_t end = code == 1 ? 3 : objects.size();
  std::size_t first = request[4];
  if (first >= end && code == kIndividual) return Exception(request, kIllegalAddress);
  if (first >= end) first = 0;
  const std::size_t last = code == kIndividual ? first + 1 : end;
  Response response{request[0], request[1], request[2], code,
                    0x82,       0,          0,          static_cast<std::uint8_t>(last - first)};
  for (std::size_t object = first; object < last; ++object) {
    response.push_back(static_cast<std::uint8_t>(object));
    response.push_back(static_cast<std::uint8_t>(objects[object].size()));
    response.insert(response.end(), objects[object].begin(), objects[object].end());
  }
  return response;
}

std::optional<bool> SimulatedEcu::Bit(ModbusFunction function, std::uint16_t number) const {
  const bool coil = function == ModbusFunction::kReadCoils;
  if (in_bootloader_) {
    if (coil) {
      if (!Bootloader::IsCoil(number)) return std::nullopt;
      return bootloader_.Coil(number);
    }
    if (number >= Bootloader::kStatusInputs) return std::nullopt;
    return bootloader_.StatusInput(number);
  }
  if (coil) {
    const unsigned count = options_.software_minor < 38    ? 29
                           : options_.software_minor == 38 ? 30
                                                           : 35;
    if (number < kFirstCoil || number >= kFirstCoil + count) return std::nullopt;
    if (number == kFuelCoil) return engine_.At(Seconds(clock_.Now())).on_gas;
    return coils_[number];
  }
  if (number < 32 || number > 38) return std::nullopt;
  const EngineState engine = engine_.At(Seconds(clock_.Now()));
  switch (number) {
    case 32:
      return true;  // ignition
    case 33:
      return engine.speed_rpm > 400;
    case 34:
      return engine.on_gas;
    case 35:
      return engine.mode == 2;
    default:
      return false;
  }
}

std::optional<std::uint16_t> SimulatedEcu::HoldingRegister(std::uint16_t number) {
  if (!in_bootloader_ && number >= kBoardInformation &&
      number < kBoardInformation + kBoardWords.size()) {
    return kBoardWords[number - kBoardInformation];
  }
  const std::uint16_t* const word = WritableRegister(number);
  if (word == nullptr) return std::nullopt;
  return *word;
}

std::uint16_t* SimulatedEcu::WritableRegister(std::uint16_t number) {
  const auto within = [number](auto& words, std::uint16_t first) -> std::uint16_t* {
    const std::size_t index = static_cast<std::size_t>(number) - first;
    return number >= first && index < words.size() ? &words[index] : nullptr;
  };
  if (in_bootloader_) {
    auto holding = bootloader_.Holding();
    return within(holding, 0);
  }
  if (std::uint16_t* word = within(block_, kBlockFirstRegister)) return word;
  if (std::uint16_t* word = within(temporary_errors_, kTemporaryErrorRegister)) return word;
  return within(permanent_errors_, kPermanentErrorRegister);
}

std::optional<std::uint16_t> SimulatedEcu::InputRegister(std::uint16_t number) const {
  if (in_bootloader_) {
    if (number >= Bootloader::kInputRegisters) return std::nullopt;
    return bootloader_.Inputs()[number];
  }
  const EngineState engine = engine_.At(Seconds(clock_.Now()));
  const double gas_time = GasTimeMicroseconds(engine);
  if (number >= 47 && number <= 58) {
    const double spread = 1 + 0.01 * ((number - 47) % 6);
    return Rounded((number < 53 ? engine.petrol_time_us : gas_time) * spread);
  }
  switch (number) {
    case 32:
      return static_cast<std::uint16_t>((options_.hardware_major << 8U) | options_.hardware_minor);
    case 33:
      return static_cast<std::uint16_t>((options_.software_major << 8U) | options_.software_minor);
    case 35:
      return static_cast<std::uint16_t>(options_.serial & 0xFFFFU);
    case 36:
      return static_cast<std::uint16_t>(options_.serial >> 16U);
    case 34:
    case 37:
    case 38:
      return 0;
    case 43:
      return Rounded(engine.gas_pressure_bar * 100);
    case 71:
      return Rounded(engine.petrol_time_us);
    case 72:
      return Rounded(gas_time);
    case 73:
      return SignedByte(engine.throttle_percent);
    case 74:
      return engine.mode;
    case 75:
      return engine.on_gas ? 1 : 0;
    case 76:
      return Rounded(engine.gas_level_percent);
    default:
      if (number >= 77 && number <= 86) return 0;
      return std::nullopt;
  }
}

bool SimulatedEcu::WriteCoil(std::uint16_t number, bool on) {
  if (in_bootloader_) {
    // The order to enter the bootloader is understood there too.
    if (number == kEnterBootloaderCoil) return true;
    if (!Bootloader::IsCoil(number)) return false;
    bootloader_.WriteCoil(number, on);
    return true;
  }
  if (number < kFirstCoil || number > 66) return false;
  const bool was_on = coils_[number];
  coils_[number] = on;
  if (on && number == kEnterBootloaderCoil) Boot(true);
  if (on && !was_on && number == ClearErrorsCoil()) {
    temporary_errors_ = {};
    permanent_errors_ = {};
  }
  return true;
}

std::uint16_t SimulatedEcu::ClearErrorsCoil() const {
  return options_.software_minor >= 39 ? 66 : 61;
}

double SimulatedEcu::Seconds(Clock::TimePoint time) const {
  return std::chrono::duration<double>(time - started_).count();
}

std::uint64_t SimulatedEcu::RecordsSoFar() const {
  return static_cast<std::uint64_t>((clock_.Now() - started_) / kRecordPeriod);
}

double SimulatedEcu::GasTimeMicroseconds(const EngineState& engine) const {
  if (!engine.on_gas) return 0;
  return engine.petrol_time_us * GridCoefficient(block_, engine.speed_rpm, engine.petrol_time_us);
}

std::array<std::uint16_t, 4> SimulatedEcu::RecordAt(std::uint64_t number) const {
  const EngineState engine = engine_.At(std::chrono::duration<double>(kRecordPeriod).count() *
                                        static_cast<double>(number + 1));
  const auto pair = [](std::uint16_t low, std::uint16_t high) {
    return static_cast<std::uint16_t>(low | (high << 8U));
  };
  return {pair(Byte(engine.lambda1_volts * 100), Byte(engine.lambda2_volts * 50)),
          pair(SignedByte(engine.coolant_celsius), Byte(engine.battery_volts * 10)),
          pair(SignedByte(engine.gas_celsius), Byte(engine.manifold_bar * 10)),
          Rounded(engine.speed_rpm)};
}

std::uint16_t SimulatedEcu::Register(std::uint16_t number) const {
  const std::lock_guard guard(lock_);
  return block_.at(static_cast<std::size_t>(number) - kBlockFirstRegister);
}

void SimulatedEcu::SetRegister(std::uint16_t number, std::uint16_t value) {
  const std::lock_guard guard(lock_);
  block_.at(static_cast<std::size_t>(number) - kBlockFirstRegister) = value;
}

ConfigurationBlock SimulatedEcu::Block() const {
  const std::lock_guard guard(lock_);
  return block_;
}

void SimulatedEcu::SetErrorCount(bool permanent, std::size_t code, std::uint16_t count) {
  const std::lock_guard guard(lock_);
  (permanent ? permanent_errors_.at(code) : temporary_errors_.at(code)) = count;
}

std::uint16_t SimulatedEcu::ErrorCount(bool permanent, std::size_t code) const {
  const std::lock_guard guard(lock_);
  return permanent ? permanent_errors_.at(code) : temporary_errors_.at(code);
}

bool SimulatedEcu::Coil(std::uint16_t number) const {
  const std::lock_guard guard(lock_);
  return coils_.at(number);
}

void SimulatedEcu::SetCoil(std::uint16_t number, bool on) {
  const std::lock_guard guard(lock_);
  coils_.at(number) = on;
}

bool SimulatedEcu::InBootloader() const {
  const std::lock_guard guard(lock_);
  return in_bootloader_;
}

std::vector<std::uint8_t> SimulatedEcu::Flash() const {
  const std::lock_guard guard(lock_);
  return {bootloader_.Application().begin(), bootloader_.Application().end()};
}

std::size_t SimulatedEcu::WriteCount() const {
  const std::lock_guard guard(lock_);
  return writes_;
}

}  // namespace zelorgas
