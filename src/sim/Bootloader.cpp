#include "sim/Bootloader.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

namespace zelorgas {
namespace {

constexpr std::uint8_t kBlank = 0xFF;
constexpr std::uint32_t kFailure = 1;
constexpr std::uint16_t kFirstApplicationBlock = 2;
constexpr std::size_t kImageHeader = 8;  // length and checksum, low byte first

// Holding registers: target address, data, buffer length in registers, command argument.
constexpr std::size_t kAddressRegister = 0;
constexpr std::size_t kDataRegister = 2;
constexpr std::size_t kLengthRegister = 130;
constexpr std::size_t kArgumentRegister = 131;
constexpr std::uint16_t kBufferRegisters = 64;

std::uint32_t Load32(std::span<const std::uint8_t> bytes) {
  return bytes[0] | (std::uint32_t{bytes[1]} << 8U) | (std::uint32_t{bytes[2]} << 16U) |
         (std::uint32_t{bytes[3]} << 24U);
}

void Store32(std::span<std::uint8_t> bytes, std::uint32_t value) {
  for (unsigned i = 0; i < 4; ++i) bytes[i] = static_cast<std::uint8_t>(value >> (8 * i));
}

// Depends on the place of every byte, so that two exchanged pages show.
std::uint32_t Checksum(std::span<const std::uint8_t> bytes) {
  return std::accumulate(bytes.begin(), bytes.end(), std::uint32_t{1},
                         [](std::uint32_t sum, std::uint8_t byte) { return sum * 31 + byte; });
}

// A block that there is not, or that is not the client's, counts as written.
bool IsBlank(std::span<const std::uint8_t> bytes) {
  // All are as the first one: quicker than byte by byte, and tests do it very often.
  return !bytes.empty() && bytes.front() == kBlank &&
         std::memcmp(bytes.data(), bytes.data() + 1, bytes.size() - 1) == 0;
}

}  // namespace

Bootloader::Bootloader() : flash_(kApplicationSize, kBlank) {
  static const std::vector<std::uint8_t> kFromTheFactory = MakeImage(40000, 39);
  std::ranges::copy(kFromTheFactory, flash_.begin());
}

std::vector<std::uint8_t> Bootloader::MakeImage(std::size_t size, std::uint32_t seed) {
  std::vector<std::uint8_t> image(std::max(size, kImageHeader + 4));
  std::uint32_t state = seed;
  for (std::uint8_t& byte : std::span(image).subspan(kImageHeader)) {
    state = state * 1664525U + 1013904223U;
    byte = static_cast<std::uint8_t>(state >> 24U);
  }
  Store32(image, static_cast<std::uint32_t>(image.size()));
  Store32(std::span(image).subspan(4), Checksum(std::span(image).subspan(kImageHeader)));
  return image;
}

bool Bootloader::ImageStarts() const {
  const std::uint32_t size = Load32(flash_);
  if (size < kImageHeader || size > flash_.size()) return false;
  const std::span<const std::uint8_t> body =
      std::span(flash_).subspan(kImageHeader, size - kImageHeader);
  return Load32(std::span(flash_).subspan(4)) == Checksum(body);
}

bool Bootloader::IsCoil(std::uint16_t coil) {
  return coil == kStayCoil || (coil >= 4 && coil <= 12) || coil == 14 || coil == kFlashModeCoil;
}

void Bootloader::WriteCoil(std::uint16_t coil, bool on) {
  const bool was_on = std::exchange(coils_[coil], on);
  if (on && !was_on) Run(coil);
  // Whoever has finished a download wants it to start.
  if (!on && was_on && coil == kFlashModeCoil && ImageStarts()) coils_[kStayCoil] = false;
}

void Bootloader::BeginWork(std::span<const std::uint8_t> area) {
  const std::span<const std::uint8_t> half = area.subspan(area.size() / 2);
  interrupted_ = HalfDone{static_cast<std::size_t>(half.data() - flash_.data()),
                          std::vector<std::uint8_t>(half.begin(), half.end())};
}

void Bootloader::LosePower() {
  if (interrupted_) {
    std::ranges::copy(interrupted_->bytes, std::span(flash_).subspan(interrupted_->offset).begin());
    interrupted_.reset();
  }
  holding_ = {};
  inputs_ = {};
  coils_ = {};
  last_failed_ = false;
}

bool Bootloader::StatusInput(std::uint16_t input) const {
  switch (input) {
    case 0:
      return coils_[kFlashModeCoil];
    case 1:
      return !no_supply_;
    case 2:
      return last_failed_;
    case 3:
      return ImageStarts();
    default:
      return false;
  }
}

void Bootloader::SetResult(std::uint16_t first_register, std::uint32_t value) {
  inputs_[first_register] = static_cast<std::uint16_t>(value & 0xFFFFU);
  inputs_[first_register + 1U] = static_cast<std::uint16_t>(value >> 16U);
}

void Bootloader::Run(std::uint16_t coil) {
  const std::uint16_t block = holding_[kArgumentRegister];
  const bool known_block = block < kBlocks.size();
  switch (coil) {
    case 4:
      SetResult(2, no_supply_ ? 1 : 0);
      break;
    case 5:
      SetResult(8, 0x0042);
      break;
    case 6:
      SetResult(4, 0x0001);
      break;
    case 7:
      SetResult(6, known_block ? kBlocks[block].last : 0);
      break;
    case 8:
      SetResult(2, IsBlank(FlashOf(block)) ? 0 : 1);
      break;
    case 9:
      SetResult(2, Erase(block));
      break;
    case 10:
      SetResult(2, WritePage());
      break;
    case 11:
      SetResult(8, known_block ? kBlocks[block].first : 0);
      break;
    case 14:
      SetResult(2, 0);
      break;
    default:
      break;
  }
}

std::span<std::uint8_t> Bootloader::FlashOf(std::uint16_t block) {
  if (block < kFirstApplicationBlock || block >= kBlocks.size()) return {};
  const FlashBlock& range = kBlocks[block];
  return std::span(flash_).subspan(range.first - kApplicationStart, range.last - range.first + 1);
}

std::uint32_t Bootloader::Erase(std::uint16_t block) {
  const std::span<std::uint8_t> flash = FlashOf(block);
  last_failed_ = flash.empty() || !coils_[kFlashModeCoil] || no_supply_ || failing_erases_ > 0;
  if (failing_erases_ > 0) --failing_erases_;
  if (last_failed_) return kFailure;
  BeginWork(flash);
  std::ranges::fill(flash, kBlank);
  return 0;
}

std::uint32_t Bootloader::WritePage() {
  const std::uint32_t address =
      holding_[kAddressRegister] | (std::uint32_t{holding_[kAddressRegister + 1]} << 16U);
  const bool inside = address >= kApplicationStart &&
                      address - kApplicationStart + kPageSize <= flash_.size() &&
                      (address - kApplicationStart) % kPageSize == 0;
  last_failed_ = !inside || !coils_[kFlashModeCoil] || no_supply_ || failing_writes_ > 0 ||
                 holding_[kLengthRegister] != kBufferRegisters;
  if (failing_writes_ > 0) --failing_writes_;
  if (last_failed_) return kFailure;
  const std::span<std::uint8_t> page =
      std::span(flash_).subspan(address - kApplicationStart, kPageSize);
  if (!IsBlank(page)) {
    last_failed_ = true;
    return kFailure;
  }
  BeginWork(page);
  for (std::size_t i = 0; i < kPageSize; ++i) {
    const std::uint16_t word = holding_[kDataRegister + i / 2];
    page[i] = static_cast<std::uint8_t>(i % 2 == 0 ? word & 0xFFU : word >> 8U);
  }
  const std::uint32_t next = address + static_cast<std::uint32_t>(kPageSize);
  holding_[kAddressRegister] = static_cast<std::uint16_t>(next & 0xFFFFU);
  holding_[kAddressRegister + 1] = static_cast<std::uint16_t>(next >> 16U);
  return 0;
}

}  // namespace zelorgas
