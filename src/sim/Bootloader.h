// The bootloader of the simulated ECU and the flash it looks after: data buffer, commands by coil,
// results in input registers, and the rules of real flash. Not thread-safe; the ECU guards it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zelorgas {

struct FlashBlock {
  std::uint32_t first;
  std::uint32_t last;
};

class Bootloader {
 public:
  // Block 1 holds the bootloader; the application lies in blocks 2 and 3.
  static constexpr std::array<FlashBlock, 4> kBlocks{{
      {0x00000, 0x01FFF},
      {0x02000, 0x03FFF},
      {0x04000, 0x0BFFF},
      {0x0C000, 0x17FFF},
  }};
  static constexpr std::uint32_t kApplicationStart = 0x04000;
  static constexpr std::size_t kApplicationSize = 0x14000;
  static constexpr std::size_t kPageSize = 256;

  static constexpr std::uint16_t kHoldingRegisters = 132;  // 0 to 131
  static constexpr std::uint16_t kInputRegisters = 10;     // 0 to 9; results in 2 to 9
  static constexpr std::uint16_t kStatusInputs = 5;        // discrete inputs 0 to 4
  static constexpr std::uint16_t kStayCoil = 2;            // on: the application is not started
  static constexpr std::uint16_t kFlashModeCoil = 16;

  Bootloader();

  [[nodiscard]] static bool IsCoil(std::uint16_t coil);
  [[nodiscard]] bool Coil(std::uint16_t coil) const { return coils_[coil]; }
  // A command runs when its coil goes from off to on.
  void WriteCoil(std::uint16_t coil, bool on);

  [[nodiscard]] std::span<std::uint16_t, kHoldingRegisters> Holding() { return holding_; }
  [[nodiscard]] std::span<const std::uint16_t, kInputRegisters> Inputs() const { return inputs_; }
  [[nodiscard]] bool StatusInput(std::uint16_t input) const;

  // The next request has come: what the flash was doing is done.
  void FinishWork() { interrupted_.reset(); }
  // A power cycle: the flash keeps what it holds, with what it was just doing left half done.
  // Everything else is forgotten.
  void LosePower();
  // True when the flash holds a whole image: MakeImage's header agrees with what follows it.
  [[nodiscard]] bool ImageStarts() const;

  // The application area, as the ECU would run it.
  [[nodiscard]] std::span<const std::uint8_t> Application() const { return flash_; }
  // For tests: supply missing on the programming pin; the next `count` erases or writes fail.
  void SetNoSupply(bool missing) { no_supply_ = missing; }
  void FailErases(int count) { failing_erases_ = count; }
  void FailWrites(int count) { failing_writes_ = count; }

  // An application that this ECU starts: `size` bytes (12 or more) with a length and a checksum in
  // front, the rest made from `seed`.
  [[nodiscard]] static std::vector<std::uint8_t> MakeImage(std::size_t size, std::uint32_t seed);

 private:
  // What becomes of `area` when the power fails before the next request: its second half as it is.
  struct HalfDone {
    std::size_t offset;
    std::vector<std::uint8_t> bytes;
  };
  void BeginWork(std::span<const std::uint8_t> area);
  void Run(std::uint16_t coil);
  [[nodiscard]] std::uint32_t Erase(std::uint16_t block);
  [[nodiscard]] std::uint32_t WritePage();
  [[nodiscard]] std::span<std::uint8_t> FlashOf(std::uint16_t block);
  void SetResult(std::uint16_t first_register, std::uint32_t value);

  std::vector<std::uint8_t> flash_;
  std::optional<HalfDone> interrupted_;
  std::array<std::uint16_t, kHoldingRegisters> holding_{};
  std::array<std::uint16_t, kInputRegisters> inputs_{};
  std::array<bool, kFlashModeCoil + 1> coils_{};
  bool no_supply_ = false;
  bool last_failed_ = false;
  int failing_erases_ = 0;
  int failing_writes_ = 0;
};

}  // namespace zelorgas
