// The program's copy of the ECU: the configuration block, status words and bits, and the live
// values. Plain data; who reads or writes it holds the document's image lock.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "app/Identification.h"
#include "app/LiveRecord.h"
#include "config/ConfigurationBlock.h"
#include "platform/Message.h"

namespace zelorgas {

inline constexpr std::uint16_t kStatusFirstRegister = 32;  // input
inline constexpr std::uint16_t kStatusWords = 7;
inline constexpr std::uint16_t kLiveBlockARegister = 43;     // input
inline constexpr std::uint16_t kLiveBlockBRegister = 71;     // input, 16 words
inline constexpr std::uint16_t kExtraChannelsRegister = 47;  // input, 12 words
inline constexpr std::uint16_t kFirstCoil = 32;
inline constexpr std::uint16_t kDisconnectCoil = 34;  // pulsed when the worker ends
inline constexpr std::uint16_t kRestartCoil = 43;     // 1 after the ECU has restarted
inline constexpr std::uint16_t kFirstInputBit = 32;
inline constexpr std::uint16_t kIdentificationRegister = 24;

inline constexpr std::size_t kCoilsBelow38 = 29;
inline constexpr std::size_t kCoilsOf38 = 30;
inline constexpr std::size_t kCoilsOf39 = 35;
inline constexpr std::size_t kCylinders = 6;

// How many coils from kFirstCoil an ECU of this software minor version has.
[[nodiscard]] constexpr std::size_t CoilCount(std::uint8_t minor) {
  if (minor < 38) return kCoilsBelow38;
  return minor == 38 ? kCoilsOf38 : kCoilsOf39;
}

// Coil values 0 or 1 in the two areas in which the ECU's versions differ: up to minor version 38
// the first 11 coils (32 to 42) and the rest; from 39 on all in the first.
class CoilImage {
 public:
  static constexpr std::size_t kFirstAreaCoils = 11;

  // `coils`: one byte a coil, coil 32 first, as many as CoilCount gives.
  void Store(std::span<const std::uint8_t> coils);
  // 0 for a coil that the ECU does not have.
  [[nodiscard]] std::uint8_t Coil(std::uint16_t number) const;

 private:
  std::array<std::uint8_t, kCoilsOf39> first_{};
  std::array<std::uint8_t, kCoilsOf38 - kFirstAreaCoils> second_{};
  bool in_one_piece_ = false;
};

enum class OperatingMode : std::uint8_t { kNormal, kEconomical, kTurbo, kUnknown };
enum class Fuel : std::uint8_t { kPetrol, kGas };

struct EcuImage {
  Version software;
  Version hardware;
  // Of the connection. Until it is known, the first full read tells it.
  std::optional<std::uint32_t> serial;
  ConfigurationBlock block{};
  std::array<std::uint16_t, kStatusWords> status_words{};
  CoilImage coils;
  std::array<std::uint8_t, 7> input_bits{};
  double gas_pressure_bar = 0;                       // live block A: word / 100
  std::array<std::uint16_t, 16> live_block_b{};      // as the ECU gives it
  std::array<double, kCylinders> petrol_times_ms{};  // extra channels: word / 1000
  std::array<double, kCylinders> gas_times_ms{};
  LiveRecord record;

  [[nodiscard]] std::uint16_t PetrolTimeMicroseconds() const { return live_block_b[0]; }
  [[nodiscard]] std::uint16_t GasTimeMicroseconds() const { return live_block_b[1]; }
  [[nodiscard]] int ThrottlePercent() const {
    return static_cast<std::int8_t>(live_block_b[2] & 0xFFU);
  }
  [[nodiscard]] OperatingMode Mode() const;
  [[nodiscard]] Fuel FuelInUse() const { return live_block_b[4] == 0 ? Fuel::kPetrol : Fuel::kGas; }
  [[nodiscard]] std::uint16_t GasLevelPercent() const { return live_block_b[5]; }
  [[nodiscard]] bool ManifoldSensorFitted() const;  // MAP_INSTALLED
  [[nodiscard]] bool SecondLambdaFitted() const;    // L2_INSTALLED

  // Keeps `words`, the first two of the status words or all of them as they were read. False when
  // another ECU gave them than the one that was connected to, as far as its software and its serial
  // number are known.
  [[nodiscard]] bool TakeStatus(std::span<const std::uint16_t> words);
  // The software version and the serial number among the status words.
  [[nodiscard]] Version StatusSoftware() const;
  [[nodiscard]] std::uint32_t StatusSerial() const;

  // The word of a register as the program last saw it: the configuration block, and register 24,
  // the software version's bytes as they lie in memory (low byte major, high byte minor). 0
  // elsewhere.
  [[nodiscard]] std::uint16_t RegisterCopy(std::uint16_t reg) const;
  // Takes a word that the ECU has accepted. Registers outside the block are not kept.
  void StoreRegister(std::uint16_t reg, std::uint16_t value);
  // The high byte of register 24; "$", "&" and "'" stand for software 0.36, 0.38 and 0.39.
  [[nodiscard]] char FirmwareIdentification() const;
};

// "Normal", "Economical", "Turbo" or "Unknown".
[[nodiscard]] FixedText ModeText(OperatingMode mode);

}  // namespace zelorgas
