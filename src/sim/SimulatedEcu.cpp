#include "sim/SimulatedEcu.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "config/Parameters.h"

namespace zelorgas {
namespace {

constexpr std::uint16_t kBoardInformation = 16384;  // three holding registers
constexpr std::array<std::uint16_t, 3> kBoardWords{0x5A47, 0x0102, 0x2B39};
constexpr std::uint16_t kTemporaryErrorRegister = 16400;
constexpr std::uint16_t kPermanentErrorRegister = 16432;
constexpr std::uint16_t kFirstCoil = 32;
constexpr std::uint16_t kEnterBootloaderCoil = 33;
constexpr std::uint16_t kFuelCoil = 36;
constexpr std::uint16_t kRestartCoil = 43;
constexpr std::uint16_t kMaxFifoRecords = 7;      // 31 registers fit an answer
constexpr std::uint16_t kFirstExtraChannel = 47;  // petrol times of six cylinders, then gas times
constexpr std::uint16_t kCylinders = 6;

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
    : clock_(clock),
      options_(std::move(options)),
      engine_(options_.seed),
      serial_(options_.serial),
      started_(clock.Now()),
      now_(started_),
      block_(FactoryConfiguration()) {
  temporary_errors_[1] = 5;
  temporary_errors_[8] = 2;
  permanent_errors_[3] = 1;
  Boot(options_.in_bootloader);
}

void SimulatedEcu::Boot(bool into_bootloader) {
  bootloader_.LosePower();
  in_bootloader_ = into_bootloader || !bootloader_.ImageStarts();
  coils_ = {};
  coils_[kRestartCoil] = true;
}

bool SimulatedEcu::LeavesBootloader() const {
  return in_bootloader_ && !options_.in_bootloader && !bootloader_.Coil(Bootloader::kStayCoil) &&
         !bootloader_.Coil(Bootloader::kFlashModeCoil) && bootloader_.ImageStarts();
}

void SimulatedEcu::Restart() {
  const std::lock_guard guard(lock_);
  Boot(false);
}

void SimulatedEcu::LosePower() {
  const std::lock_guard guard(lock_);
  Boot(options_.starts_late);
  // Its patience begins.
  if (options_.starts_late) now_ = clock_.Now();
}

void SimulatedEcu::EnterBootloader() {
  const std::lock_guard guard(lock_);
  Boot(true);
  bootloader_.WriteCoil(Bootloader::kStayCoil, true);
}

std::optional<std::vector<std::uint8_t>> SimulatedEcu::AnswerAt(
    std::span<const std::uint8_t> request, Clock::TimePoint when) {
  if (request.size() < 2 || request[0] != ECU_SLAVE_ADDRESS) return std::nullopt;
  const std::lock_guard guard(lock_);
  bootloader_.FinishWork();
  if (when - now_ > kBootloaderPatience && LeavesBootloader()) Boot(false);
  now_ = when;
  engine_now_.reset();
  std::vector<std::uint8_t> response = ExecuteRequest(*this, request);
  const auto function = static_cast<ModbusFunction>(response[1]);
  const bool written = function == ModbusFunction::kWriteSingleCoil ||
                       function == ModbusFunction::kWriteSingleRegister ||
                       function == ModbusFunction::kWriteMultipleRegisters;
  if (written) ++writes_;
  return response;
}

std::optional<std::vector<std::uint16_t>> SimulatedEcu::Fifo(std::uint16_t pointer) {
  if (in_bootloader_ || pointer >= kFifoRecords) return std::nullopt;
  // The ring's newest place is the one before the next record's. Its reader names the place it
  // wants next; everything from there to the newest is given, at most what an answer holds.
  const auto total = static_cast<std::uint64_t>((now_ - started_) / kRecordPeriod);
  const std::uint64_t waiting =
      std::min<std::uint64_t>((total + kFifoRecords - pointer) % kFifoRecords, total);
  const std::uint64_t given = std::min<std::uint64_t>(waiting, kMaxFifoRecords);
  std::vector<std::uint16_t> words;
  for (std::uint64_t i = 0; i < given; ++i) {
    const std::array<std::uint16_t, 4> record = RecordAt(total - waiting + i);
    words.insert(words.end(), record.begin(), record.end());
  }
  return words;
}

std::vector<std::string> SimulatedEcu::IdentificationObjects() const {
  const auto version = [](unsigned major, unsigned minor) {
    return std::to_string(major) + "." + std::to_string(minor);
  };
  const std::string software = "SV " + version(options_.software_major, options_.software_minor);
  const std::string hardware = "HV " + version(options_.hardware_major, options_.hardware_minor);
  const std::string bootloader = "P42V" + std::to_string(options_.software_major) + "T" +
                                 std::to_string(options_.software_minor) + "M1B7";
  return {
      options_.vendor,
      options_.product,
      !options_.revision.empty() ? options_.revision
      : in_bootloader_           ? bootloader
                                 : software + "@" + hardware,
      in_bootloader_ ? "Bootloader" : "Sequential injection",
  };
}

std::optional<bool> SimulatedEcu::BootloaderBit(bool coil, std::uint16_t number) const {
  if (coil)
    return Bootloader::IsCoil(number) ? std::optional(bootloader_.Coil(number)) : std::nullopt;
  if (number >= Bootloader::kStatusInputs) return std::nullopt;
  return bootloader_.StatusInput(number);
}

unsigned SimulatedEcu::CoilCount() const {
  if (options_.software_minor < 38) return 29;
  return options_.software_minor == 38 ? 30 : 35;
}

std::optional<bool> SimulatedEcu::Bit(ModbusFunction function, std::uint16_t number) {
  const bool coil = function == ModbusFunction::kReadCoils;
  if (in_bootloader_) return BootloaderBit(coil, number);
  if (coil) {
    if (number < kFirstCoil || number >= kFirstCoil + CoilCount()) return std::nullopt;
    return number == kFuelCoil ? Engine().on_gas : coils_[number];
  }
  if (number < 32 || number > 38) return std::nullopt;
  switch (number) {
    case 32:
      return true;  // ignition
    case 33:
      return Engine().speed_rpm > 400;
    case 34:
      return Engine().on_gas;
    case 35:
      return Engine().mode == 2;
    default:
      return false;
  }
}

std::optional<std::uint16_t> SimulatedEcu::Word(ModbusFunction function, std::uint16_t number) {
  if (function == ModbusFunction::kReadInputRegisters) return InputRegister(number);
  if (!in_bootloader_ && number >= kBoardInformation &&
      number < kBoardInformation + kBoardWords.size() && options_.has_board_information) {
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

// The injection time of one cylinder; cylinders differ a little, and those that the car does not
// have do not inject.
std::uint16_t SimulatedEcu::CylinderTime(std::uint16_t channel) {
  const unsigned cylinder = channel % kCylinders;
  if (cylinder >= GetParameter(block_, *FindParameter("NCYLINDERS"))) return 0;
  const double time = channel < kCylinders ? Engine().petrol_time_us : GasTimeMicroseconds();
  return Rounded(time * (1 + 0.01 * cylinder));
}

std::optional<std::uint16_t> SimulatedEcu::InputRegister(std::uint16_t number) {
  if (in_bootloader_) {
    if (number >= Bootloader::kInputRegisters) return std::nullopt;
    return bootloader_.Inputs()[number];
  }
  if (number >= kFirstExtraChannel && number < kFirstExtraChannel + 2 * kCylinders) {
    return CylinderTime(static_cast<std::uint16_t>(number - kFirstExtraChannel));
  }
  switch (number) {
    case 32:
      return static_cast<std::uint16_t>((options_.hardware_major << 8U) | options_.hardware_minor);
    case 33:
      return static_cast<std::uint16_t>((options_.software_major << 8U) | options_.software_minor);
    case 35:
      return static_cast<std::uint16_t>(serial_ & 0xFFFFU);
    case 36:
      return static_cast<std::uint16_t>(serial_ >> 16U);
    case 34:
    case 37:
    case 38:
      return 0;
    case 43:
      return Rounded(Engine().gas_pressure_bar * 100);
    case 71:
      return Rounded(Engine().petrol_time_us);
    case 72:
      return Rounded(GasTimeMicroseconds());
    case 73:
      return SignedByte(Engine().throttle_percent);
    case 74:
      return Engine().mode;
    case 75:
      return Engine().on_gas ? 1 : 0;
    case 76:
      return Rounded(Engine().gas_level_percent);
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

const EngineState& SimulatedEcu::Engine() {
  if (!engine_now_) engine_now_ = EngineAt(std::chrono::duration<double>(now_ - started_).count());
  return *engine_now_;
}

EngineState SimulatedEcu::EngineAt(double seconds) const {
  if (pinned_engine_) return *pinned_engine_;
  const std::uint16_t hot = GetParameter(block_, *FindParameter("TEMP_HOT_ENG"));
  return engine_.At(seconds, static_cast<std::int16_t>(hot));
}

double SimulatedEcu::GasTimeMicroseconds() {
  const EngineState& engine = Engine();
  if (!engine.on_gas) return 0;
  return engine.petrol_time_us * GridCoefficient(block_, engine.speed_rpm, engine.petrol_time_us);
}

std::array<std::uint16_t, 4> SimulatedEcu::RecordAt(std::uint64_t number) const {
  const EngineState engine = EngineAt(std::chrono::duration<double>(kRecordPeriod).count() *
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

void SimulatedEcu::SetSerial(std::uint32_t serial) {
  const std::lock_guard guard(lock_);
  serial_ = serial;
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

void SimulatedEcu::PinEngine(std::optional<EngineState> state) {
  const std::lock_guard guard(lock_);
  pinned_engine_ = state;
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
