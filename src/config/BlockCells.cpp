#include "config/BlockCells.h"

#include <utility>

#include "config/ConfigurationNumbers.h"
#include "config/Parameters.h"

namespace zelorgas {
namespace {

namespace at = block_layout;

constexpr std::uint16_t kPoints = at::kGridAxisPoints;

constexpr TableField GridRow(std::string_view name, std::uint16_t row) {
  return {"GridParams", name,
          static_cast<std::uint16_t>(at::kGridCells + std::size_t{row} * kPoints), kPoints,
          CellForm::kHundredths};
}

constexpr TableField Throttle(std::string_view element, std::size_t table, std::string_view name,
                              std::uint16_t list, std::uint16_t count = kPoints) {
  return {element, name, static_cast<std::uint16_t>(table + std::size_t{list} * kPoints), count,
          CellForm::kSigned};
}

constexpr auto kTableFields = std::to_array<TableField>({
    {"GridParams", "Nrows", at::kRowCount, 1, CellForm::kUnsigned},
    {"GridParams", "Ncols", at::kColumnCount, 1, CellForm::kUnsigned},
    {"GridParams", "Ton", at::kGridTimes, kPoints, CellForm::kThousandths},
    {"GridParams", "RPM", at::kGridSpeeds, kPoints, CellForm::kUnsigned},
    GridRow("GridRow[0]", 0),
    GridRow("GridRow[1]", 1),
    GridRow("GridRow[2]", 2),
    GridRow("GridRow[3]", 3),
    GridRow("GridRow[4]", 4),
    GridRow("GridRow[5]", 5),
    GridRow("GridRow[6]", 6),
    GridRow("GridRow[7]", 7),
    GridRow("GridRow[8]", 8),
    GridRow("GridRow[9]", 9),
    GridRow("GridRow[10]", 10),
    GridRow("GridRow[11]", 11),
    GridRow("GridRow[12]", 12),
    GridRow("GridRow[13]", 13),
    GridRow("GridRow[14]", 14),
    GridRow("GridRow[15]", 15),
    {"GridParams", "CorrEco", at::kEconomicalCorrections, kPoints, CellForm::kSigned},
    {"GridParams", "CorrTurbo", at::kTurboCorrections, kPoints, CellForm::kSigned},
    {"GridParams", "CorrCyl", at::kCylinderCorrections, 6, CellForm::kSigned},
    Throttle("CorrTPSAcc", at::kAccelerationTable, "Thrshld", 0),
    Throttle("CorrTPSAcc", at::kAccelerationTable, "Corr0", 1),
    Throttle("CorrTPSAcc", at::kAccelerationTable, "Dur", 2),
    Throttle("CorrTPSAcc", at::kAccelerationTable, "Diss", 3),
    Throttle("CorrTPSAcc", at::kAccelerationTable, "Outlet", 4, 1),
    Throttle("CorrTPSDec", at::kDecelerationTable, "Thrshld", 0),
    Throttle("CorrTPSDec", at::kDecelerationTable, "Corr0", 1),
    Throttle("CorrTPSDec", at::kDecelerationTable, "Dur", 2),
    Throttle("CorrTPSDec", at::kDecelerationTable, "Diss", 3),
    Throttle("CorrTPSDec", at::kDecelerationTable, "Outlet", 4, 1),
});

BlockCell ByteCell(std::string name, int index, std::size_t byte, std::size_t bits, CellForm form) {
  return {.name = std::move(name),
          .index = index,
          .word = static_cast<std::uint16_t>(byte / 2),
          .first_bit = static_cast<std::uint8_t>(byte % 2 * 8),
          .bits = static_cast<std::uint8_t>(bits),
          .form = form};
}

void AddScalars(std::vector<BlockCell>& cells) {
  for (const Parameter& parameter : Parameters()) {
    cells.push_back({.name = std::string(parameter.name),
                     .word = parameter.word,
                     .first_bit = parameter.first_bit,
                     .bits = parameter.bits});
  }
}

void AddTables(std::vector<BlockCell>& cells) {
  for (const TableField& field : TableFields()) {
    // The two throttle tables have lists of the same names.
    const std::string prefix =
        field.element.starts_with("CorrTPS") ? std::string(field.element) + "." : "";
    for (std::uint16_t i = 0; i < field.count; ++i) {
      cells.push_back({.name = prefix + std::string(field.name),
                       .index = field.count == 1 ? BlockCell::kNoIndex : i,
                       .word = static_cast<std::uint16_t>(field.word + i),
                       .form = field.form});
    }
  }
}

void AddRouting(std::vector<BlockCell>& cells) {
  for (std::size_t map = 0; map < kRoutingMaps; ++map) {
    for (std::size_t petrol = 0; petrol < kRoutingInjectors; ++petrol) {
      for (std::size_t gas = 0; gas < kRoutingInjectors; ++gas) {
        std::string name = "mapPinjs.";
        name.append(kPetrolInjectorNames[petrol]).append(".").append(kGasInjectorNames[gas]);
        cells.push_back(ByteCell(std::move(name), static_cast<int>(map),
                                 RoutingByte(map, petrol, gas), kRoutingBits, CellForm::kBits));
      }
    }
  }
  for (std::size_t i = 0; i < kRoutingInjectors; ++i) {
    cells.push_back(ByteCell("mapSwappedInjs", static_cast<int>(i), kFirstSwappedByte + i, 8,
                             CellForm::kUnsigned));
  }
  for (std::size_t i = 0; i < kRoutingInjectors; ++i) {
    cells.push_back(ByteCell("mapPinjSet." + std::string(kPetrolInjectorNames[i]),
                             BlockCell::kNoIndex, kFirstSetByte + i, kSetBits, CellForm::kBits));
  }
}

// The runs of bits of each word that no cell has yet.
void AddUnnamed(std::vector<BlockCell>& cells) {
  ConfigurationBlock named{};
  for (const BlockCell& cell : cells) {
    named[cell.word] = static_cast<std::uint16_t>(named[cell.word] | cell.Mask());
  }
  for (std::uint16_t word = 0; word < kBlockWords; ++word) {
    for (std::uint8_t bit = 0; bit < 16; ++bit) {
      const auto is_free = [&](unsigned place) { return ((named[word] >> place) & 1U) == 0; };
      if (!is_free(bit)) continue;
      BlockCell cell{.name = "register " + std::to_string(RegisterOfWord(word)),
                     .word = word,
                     .first_bit = bit,
                     .bits = 0,
                     .named = false};
      for (; bit < 16 && is_free(bit); ++bit) ++cell.bits;
      cells.push_back(std::move(cell));
    }
  }
}

std::vector<BlockCell> MakeCells() {
  std::vector<BlockCell> cells;
  AddScalars(cells);
  AddTables(cells);
  AddRouting(cells);
  AddUnnamed(cells);
  return cells;
}

}  // namespace

std::span<const TableField> TableFields() { return kTableFields; }

std::uint8_t BlockByte(const ConfigurationBlock& block, std::size_t byte) {
  return static_cast<std::uint8_t>(block[byte / 2] >> (byte % 2 * 8));
}

void SetBlockByte(ConfigurationBlock& block, std::size_t byte, std::uint8_t value) {
  const unsigned place = byte % 2 * 8;
  block[byte / 2] = static_cast<std::uint16_t>((block[byte / 2] & ~(0xFFU << place)) |
                                               (static_cast<unsigned>(value) << place));
}

std::uint16_t BlockCell::Mask() const {
  return static_cast<std::uint16_t>(((1U << bits) - 1U) << first_bit);
}

std::uint16_t BlockCell::Raw(const ConfigurationBlock& block) const {
  return static_cast<std::uint16_t>((block[word] & Mask()) >> first_bit);
}

std::string BlockCell::Text(const ConfigurationBlock& block) const {
  const std::uint16_t raw = Raw(block);
  std::string text;
  switch (form) {
    case CellForm::kUnsigned:
      AppendInteger(text, raw);
      break;
    case CellForm::kSigned:
      AppendInteger(text, static_cast<std::int16_t>(raw));
      break;
    case CellForm::kThousandths:
      AppendFixed(text, raw / 1000.0, 3);
      break;
    case CellForm::kHundredths:
      AppendFixed(text, raw / 100.0, 2);
      break;
    case CellForm::kBits:
      AppendBits(text, raw, bits);
      break;
  }
  return text;
}

std::string BlockCell::Label() const {
  return index == kNoIndex ? name : name + "[" + std::to_string(index) + "]";
}

const std::vector<BlockCell>& BlockCells() {
  static const std::vector<BlockCell> kCells = MakeCells();
  return kCells;
}

}  // namespace zelorgas
