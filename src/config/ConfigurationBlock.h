// The ECU's whole configuration: 583 holding registers, word k at register 256 + k. Every scalar is
// kept raw, as the ECU stores it; scaling happens where a value is shown or filed.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zelorgas {

inline constexpr std::size_t kBlockWords = 583;
inline constexpr std::uint16_t kBlockFirstRegister = 256;
inline constexpr std::uint16_t kBlockLastRegister = 838;
// The ECU takes and gives at most this many registers in one request.
inline constexpr std::size_t kBlockChunkWords = 32;

// Word 0 first. Pages, files and the link all use this shape.
using ConfigurationBlock = std::array<std::uint16_t, kBlockWords>;

[[nodiscard]] constexpr std::uint16_t RegisterOfWord(std::size_t word) {
  return static_cast<std::uint16_t>(kBlockFirstRegister + word);
}

// Where the tables behind the scalar parameters lie, as word indices.
namespace block_layout {
inline constexpr std::size_t kRowCount = 80;     // Nrows
inline constexpr std::size_t kColumnCount = 81;  // Ncols
inline constexpr std::size_t kGridAxisPoints = 16;
inline constexpr std::size_t kGridTimes = 82;               // Ton: 16 row centres, microseconds
inline constexpr std::size_t kGridSpeeds = 98;              // RPM: 16 column centres, 1/min
inline constexpr std::size_t kGridCells = 114;              // 16 rows of 16 coefficients, times 100
inline constexpr std::size_t kEconomicalCorrections = 370;  // CorrEco: 16, signed
inline constexpr std::size_t kTurboCorrections = 386;       // CorrTurbo: 16, signed
inline constexpr std::size_t kCylinderCorrections = 402;    // CorrCyl: 6, signed
// Throttle corrections: 16 thresholds, 16 corrections, 16 durations, 16 decays, 1 outlet.
inline constexpr std::size_t kAccelerationTable = 408;
inline constexpr std::size_t kDecelerationTable = 473;
inline constexpr std::size_t kRoutingMaps = 538;  // two maps of 36 bytes, low byte of a word first
}  // namespace block_layout

}  // namespace zelorgas
