// The whole configuration block as cells with names: scalar parameters, table cells, injector
// routing, and the bits that have no name. Pure; what shows, files or compares a block uses these
// tables.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/ConfigurationBlock.h"

namespace zelorgas {

// How a cell's raw number is written for a person.
enum class CellForm : std::uint8_t {
  kUnsigned,
  kSigned,       // 16 bits in two's complement
  kThousandths,  // "1.234"
  kHundredths,   // "1.23"
  kBits,         // "1;0;0;0;0;0;0;0", bit 0 first
};

// A list of words that the file keeps in one attribute.
struct TableField {
  std::string_view element;  // that carries the attribute
  std::string_view name;     // of the attribute
  std::uint16_t word;        // the first one's index into the block
  std::uint16_t count;
  CellForm form;
};

// All 33, in the order of the file; the fields of one element stand together.
[[nodiscard]] std::span<const TableField> TableFields();

// Injector routing is kept in bytes. Byte 2k of the block is the low byte of word k.
inline constexpr std::size_t kRoutingInjectors = 6;  // petrol injectors, and gas injectors
inline constexpr std::size_t kRoutingMaps = 2;
inline constexpr std::size_t kRoutingMapBytes = kRoutingInjectors * kRoutingInjectors;
inline constexpr std::size_t kFirstRoutingByte = 2 * block_layout::kRoutingMaps;
inline constexpr std::size_t kFirstSwappedByte = 1148;
inline constexpr std::size_t kFirstSetByte = 1154;
inline constexpr std::size_t kRoutingBits = 8;  // of a map's byte
inline constexpr std::size_t kSetBits = 6;      // of a set's byte

inline constexpr std::array<std::string_view, kRoutingInjectors> kPetrolInjectorNames = {
    "Pinj1", "Pinj2", "Pinj3", "Pinj4", "Pinj5", "Pinj6"};
inline constexpr std::array<std::string_view, kRoutingInjectors> kGasInjectorNames = {
    "Ginj1", "Ginj2", "Ginj3", "Ginj4", "Ginj5", "Ginj6"};

// The byte for `petrol` and `gas` injector (0 to 5) in routing map `map`.
[[nodiscard]] constexpr std::size_t RoutingByte(std::size_t map, std::size_t petrol,
                                                std::size_t gas) {
  return kFirstRoutingByte + map * kRoutingMapBytes + petrol * kRoutingInjectors + gas;
}
[[nodiscard]] std::uint8_t BlockByte(const ConfigurationBlock& block, std::size_t byte);
void SetBlockByte(ConfigurationBlock& block, std::size_t byte, std::uint8_t value);

// A run of bits of one word that stands for one thing.
struct BlockCell {
  static constexpr int kNoIndex = -1;

  // "NCYLINDERS", "GridRow[2]", "CorrTPSAcc.Thrshld", "mapPinjs.Pinj1.Ginj2" (its index is the
  // map's number), "mapSwappedInjs", "mapPinjSet.Pinj1"; "register 326" for what has no name.
  std::string name;
  int index = kNoIndex;  // into a table
  std::uint16_t word = 0;
  std::uint8_t first_bit = 0;
  std::uint8_t bits = 16;
  CellForm form = CellForm::kUnsigned;
  bool named = true;

  [[nodiscard]] std::uint16_t Mask() const;
  [[nodiscard]] std::uint16_t Raw(const ConfigurationBlock& block) const;
  // The cell's number as a person reads it, with a decimal point.
  [[nodiscard]] std::string Text(const ConfigurationBlock& block) const;
  // The name with the index: "GridRow[2][5]", "NCYLINDERS".
  [[nodiscard]] std::string Label() const;
};

// Every bit of the block is in exactly one cell: the scalars in the order of their words, the
// tables, the routing, then what has no name.
[[nodiscard]] const std::vector<BlockCell>& BlockCells();

}  // namespace zelorgas
