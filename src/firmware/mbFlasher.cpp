#include "firmware/mbFlasher.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace zelorgas {
namespace {

constexpr std::uint8_t kErasedByte = 0xFF;

// Holding registers.
constexpr std::uint16_t kAddressRegister = 0;
constexpr std::uint16_t kFirstHalfRegister = 2;
constexpr std::uint16_t kSecondHalfRegister = 66;
constexpr std::uint16_t kLengthRegister = 130;
constexpr std::uint16_t kArgumentRegister = 131;

// Coils.
constexpr std::uint16_t kSupplyCoil = 4;
constexpr std::uint16_t kPreEraseCoil = 5;
constexpr std::uint16_t kSecondPreEraseCoil = 6;
constexpr std::uint16_t kBlockEndCoil = 7;
constexpr std::uint16_t kBlankCoil = 8;
constexpr std::uint16_t kEraseCoil = 9;
constexpr std::uint16_t kWriteCoil = 10;
constexpr std::uint16_t kBlockValueCoil = 11;
constexpr std::uint16_t kStatusCoil = 12;
constexpr std::uint16_t kReservedCoil = 14;
constexpr std::uint16_t kFlashModeCoil = 16;

// Input registers, each the first of two.
constexpr std::uint16_t kResult = 2;
constexpr std::uint16_t kSecondPreEraseResult = 4;
constexpr std::uint16_t kBlockEndResult = 6;
constexpr std::uint16_t kValueResult = 8;

constexpr std::uint16_t kStatusInputs = 5;
constexpr std::size_t kHalfPage = mbFlasher::kPageSize / 2;
constexpr std::uint16_t kHalfPageRegisters = kHalfPage / 2;
constexpr unsigned kTries = 3;

std::uint16_t LowHalf(std::uint32_t value) { return static_cast<std::uint16_t>(value & 0xFFFFU); }
std::uint16_t HighHalf(std::uint32_t value) { return static_cast<std::uint16_t>(value >> 16U); }

}  // namespace

mbFlasher::mbFlasher(ModbusMaster* master, Pause pause)
    : master_(master), pause_(std::move(pause)) {}

bool mbFlasher::IsBlank(std::span<const std::uint8_t> data) {
  return std::ranges::all_of(data, [](std::uint8_t byte) { return byte == kErasedByte; });
}

bool mbFlasher::Check(ModbusResult result) {
  if (link_failure_ == ModbusResult::kOk) link_failure_ = result;
  return result == ModbusResult::kOk;
}

ModbusResult mbFlasher::SetFlashMode(bool on) {
  if (master_ == nullptr) return ModbusResult::kPortNotOpen;
  const ModbusResult result =
      master_->WriteSingleCoil(ECU_SLAVE_ADDRESS, kFlashModeCoil, on ? 1 : 0);
  Check(result);
  if (on) pause_(kSettleTime);
  return result;
}

// Coils that failed do not keep the command from its result; Check remembers them.
void mbFlasher::Pulse(std::uint16_t coil) {
  Check(master_->WriteSingleCoil(ECU_SLAVE_ADDRESS, coil, 0));
  Check(master_->WriteSingleCoil(ECU_SLAVE_ADDRESS, coil, 1));
}

std::uint32_t mbFlasher::ReadResult(std::uint16_t first_register) {
  std::vector<std::uint16_t> words;
  if (!Check(master_->ReadInputRegisters(ECU_SLAVE_ADDRESS, first_register, 2, words))) {
    return kNoResult;
  }
  return words[0] | (std::uint32_t{words[1]} << 16U);
}

std::uint32_t mbFlasher::Run(std::uint16_t coil, std::uint16_t first_register) {
  if (master_ == nullptr) return kNoMaster;
  Pulse(coil);
  return ReadResult(first_register);
}

std::uint32_t mbFlasher::Run(std::uint16_t coil, std::uint16_t first_register,
                             std::uint16_t argument) {
  if (master_ == nullptr) return kNoMaster;
  // A pulse would run the command on the block of an earlier one, the bootloader's own among them.
  if (!Check(master_->WriteSingleRegister(ECU_SLAVE_ADDRESS, kArgumentRegister, argument))) {
    return kNoResult;
  }
  return Run(coil, first_register);
}

std::uint32_t mbFlasher::SupplyCheck() { return Run(kSupplyCoil, kResult); }

std::uint32_t mbFlasher::PreEraseValue() { return Run(kPreEraseCoil, kValueResult); }

std::uint32_t mbFlasher::SecondPreEraseValue() {
  return Run(kSecondPreEraseCoil, kSecondPreEraseResult);
}

std::uint32_t mbFlasher::BlockEnd(std::uint16_t block) {
  return Run(kBlockEndCoil, kBlockEndResult, block);
}

std::uint32_t mbFlasher::KeptBlockEnd() {
  return master_ == nullptr ? kNoMaster : ReadResult(kBlockEndResult);
}

std::uint32_t mbFlasher::BlankCheck(std::uint16_t block) { return Run(kBlankCoil, kResult, block); }

std::uint32_t mbFlasher::Erase(std::uint16_t block) {
  if (master_ == nullptr) return kNoMaster;
  const std::uint32_t result = Run(kEraseCoil, kResult, block);
  pause_(kSettleTime);
  return result;
}

std::uint32_t mbFlasher::BlockValue(std::uint16_t block) {
  return Run(kBlockValueCoil, kValueResult, block);
}

std::uint32_t mbFlasher::Command14() { return Run(kReservedCoil, kResult); }

std::uint32_t mbFlasher::StatusMask() {
  if (master_ == nullptr) return kNoMaster;
  // Failures of both are remembered; the mask is asked for all the same.
  static_cast<void>(SetFlashMode(true));
  Pulse(kStatusCoil);
  std::vector<std::uint8_t> bits;
  std::uint32_t mask = kNoResult;
  if (Check(master_->ReadDiscreteInputs(ECU_SLAVE_ADDRESS, 0, kStatusInputs, bits))) {
    mask = 0;
    for (std::size_t i = 0; i < bits.size(); ++i) mask |= std::uint32_t{bits[i]} << i;
  }
  static_cast<void>(SetFlashMode(false));
  return mask;
}

bool mbFlasher::LoadBuffer(std::uint16_t first_register, std::span<const std::uint8_t> bytes) {
  std::array<std::uint8_t, kHalfPage> half{};
  half.fill(kErasedByte);
  std::ranges::copy(bytes, half.begin());
  std::array<std::uint16_t, kHalfPageRegisters> words{};
  for (std::size_t i = 0; i < words.size(); ++i) {
    words[i] = static_cast<std::uint16_t>(half[2 * i] | (half[2 * i + 1] << 8U));
  }
  return Check(master_->WriteMultipleRegisters(ECU_SLAVE_ADDRESS, first_register, words));
}

std::uint32_t mbFlasher::Write(std::span<const std::uint8_t> data, std::uint32_t address) {
  if (master_ == nullptr) return kNoMaster;
  if (IsBlank(data)) return 0;
  if (address != kKeepAddress) {
    const std::array<std::uint16_t, 2> words{LowHalf(address), HighHalf(address)};
    if (!Check(master_->WriteMultipleRegisters(ECU_SLAVE_ADDRESS, kAddressRegister, words))) {
      return kNoResult;
    }
  }
  if (!Check(
          master_->WriteSingleRegister(ECU_SLAVE_ADDRESS, kLengthRegister, kHalfPageRegisters))) {
    return kNoResult;
  }
  std::uint32_t result = 0;
  unsigned failures = 0;
  while (!data.empty()) {
    if (failures > 0) page_spoilt_ = true;
    const std::span<const std::uint8_t> chunk = data.first(std::min(data.size(), kPageSize));
    const std::span<const std::uint8_t> first = chunk.first(std::min(chunk.size(), kHalfPage));
    const std::span<const std::uint8_t> second = chunk.subspan(first.size());
    if (!LoadBuffer(kFirstHalfRegister, first)) return kNoResult;
    // Gone at once, also for a second try: the bootloader's client has always gone on like this.
    data = data.subspan(first.size());
    if (!LoadBuffer(kSecondHalfRegister, second)) return kNoResult;
    Pulse(kWriteCoil);
    result = ReadResult(kResult);
    if (result == 0) {
      data = data.subspan(second.size());
      failures = 0;
    } else if (++failures == kTries) {
      return result;
    }
  }
  return result;
}

}  // namespace zelorgas
