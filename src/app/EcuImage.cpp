#include "app/EcuImage.h"

#include <algorithm>

namespace zelorgas {
namespace {

constexpr std::size_t kSecondLambdaWord = 47;
constexpr std::size_t kManifoldSensorWord = 48;

bool IsBlockRegister(std::uint16_t reg) {
  return reg >= kBlockFirstRegister && reg <= kBlockLastRegister;
}

}  // namespace

void CoilImage::Store(std::span<const std::uint8_t> coils) {
  in_one_piece_ = coils.size() >= kCoilsOf39;
  const std::size_t in_first =
      std::min(coils.size(), in_one_piece_ ? first_.size() : kFirstAreaCoils);
  std::ranges::copy(coils.first(in_first), first_.begin());
  const std::size_t in_second = std::min(coils.size() - in_first, second_.size());
  std::ranges::copy(coils.subspan(in_first, in_second), second_.begin());
}

std::uint8_t CoilImage::Coil(std::uint16_t number) const {
  if (number < kFirstCoil) return 0;
  const std::size_t index = number - kFirstCoil;
  if (in_one_piece_ || index < kFirstAreaCoils) return index < first_.size() ? first_[index] : 0;
  return index - kFirstAreaCoils < second_.size() ? second_[index - kFirstAreaCoils] : 0;
}

OperatingMode EcuImage::Mode() const {
  return live_block_b[3] <= 2 ? static_cast<OperatingMode>(live_block_b[3])
                              : OperatingMode::kUnknown;
}

bool EcuImage::ManifoldSensorFitted() const { return block[kManifoldSensorWord] != 0; }
bool EcuImage::SecondLambdaFitted() const { return block[kSecondLambdaWord] != 0; }

bool EcuImage::TakeStatus(std::span<const std::uint16_t> words) {
  std::ranges::copy(words, status_words.begin());
  if (StatusSoftware() != software) return false;
  if (words.size() < status_words.size()) return true;
  if (!serial) serial = StatusSerial();
  return StatusSerial() == serial;
}

Version EcuImage::StatusSoftware() const {
  return VersionOfRegister(status_words[kSoftwareVersionRegister - kStatusFirstRegister]);
}

std::uint32_t EcuImage::StatusSerial() const {
  constexpr std::size_t kLowHalf = kSerialNumberRegister - kStatusFirstRegister;
  return SerialOfRegisters(status_words[kLowHalf], status_words[kLowHalf + 1]);
}

std::uint16_t EcuImage::RegisterCopy(std::uint16_t reg) const {
  if (IsBlockRegister(reg)) return block[reg - kBlockFirstRegister];
  if (reg == kIdentificationRegister) {
    return static_cast<std::uint16_t>(software.major | (software.minor << 8U));
  }
  return 0;
}

void EcuImage::StoreRegister(std::uint16_t reg, std::uint16_t value) {
  if (IsBlockRegister(reg)) block[reg - kBlockFirstRegister] = value;
}

char EcuImage::FirmwareIdentification() const {
  return static_cast<char>(RegisterCopy(kIdentificationRegister) >> 8U);
}

FixedText ModeText(OperatingMode mode) {
  switch (mode) {
    case OperatingMode::kNormal:
      return FixedText::Of("Normal");
    case OperatingMode::kEconomical:
      return FixedText::Of("Economical");
    case OperatingMode::kTurbo:
      return FixedText::Of("Turbo");
    default:
      return FixedText::Of("Unknown");
  }
}

}  // namespace zelorgas
