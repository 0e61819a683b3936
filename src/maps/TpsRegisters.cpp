#include "maps/TpsRegisters.h"

#include "config/ConfigurationNumbers.h"

namespace zelorgas {
namespace {

constexpr std::uint16_t kEnableAcceleration = 322;  // TIPIN_ENABLE
constexpr std::uint16_t kEnableDeceleration = 323;  // TIPOUT_ENABLE

std::uint16_t FirstRegister(TpsTable table) {
  return RegisterOfWord(table == TpsTable::kAcceleration ? block_layout::kAccelerationTable
                                                         : block_layout::kDecelerationTable);
}

}  // namespace

FixedText TitleOf(TpsTable table) {
  return table == TpsTable::kAcceleration ? FixedText::Of("TPS acceleration Enrichment/Enleanment")
                                          : FixedText::Of("TPS deceleration Enrichment/Enleanment");
}

FixedText RowLabel(TpsQuantity quantity) {
  switch (quantity) {
    case TpsQuantity::kThreshold:
      return FixedText::Of("Threshold, %/s");
    case TpsQuantity::kCorrection:
      return FixedText::Of("Correction, %");
    case TpsQuantity::kDuration:
      return FixedText::Of("Duration, Cycles");
    case TpsQuantity::kDissolve:
      break;
  }
  return FixedText::Of("Dissolve, Cycles");
}

std::uint16_t CellRegister(TpsTable table, TpsQuantity quantity, std::size_t band) {
  return static_cast<std::uint16_t>(FirstRegister(table) +
                                    static_cast<std::size_t>(quantity) * kTpsBands + band);
}

std::uint16_t OutletRegister(TpsTable table) {
  return static_cast<std::uint16_t>(FirstRegister(table) + kTpsQuantities.size() * kTpsBands);
}

std::uint16_t EnableRegister(TpsTable table) {
  return table == TpsTable::kAcceleration ? kEnableAcceleration : kEnableDeceleration;
}

std::string_view UnitOf(TpsQuantity quantity) {
  if (quantity == TpsQuantity::kThreshold) return "%/s";
  return quantity == TpsQuantity::kCorrection ? "%" : "";
}

std::string TpsCellText(TpsQuantity quantity, std::uint16_t word) {
  if (!IsSigned(quantity)) return std::to_string(word);
  const char* const space = quantity == TpsQuantity::kThreshold ? " " : "";
  return std::to_string(static_cast<std::int16_t>(word)) + space + std::string(UnitOf(quantity));
}

std::string IdleText(const IdleSetting& setting, std::uint16_t word) {
  return setting.in_tenths ? FormatFixed(word / 10.0, 1) : std::to_string(word);
}

}  // namespace zelorgas
