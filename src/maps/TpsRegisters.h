// The ECU's throttle corrections: which register holds what, and how it reads. Pure functions and
// tables, for any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "config/ConfigurationBlock.h"
#include "platform/Message.h"

namespace zelorgas {

// Above the enumerations: behind one with a base lupdate 6.8 takes a wrong class for these.
inline constexpr FixedText kTpsPageTitle = FixedText::Of("TPS corrections");
inline constexpr FixedText kTpsIdleTitle = FixedText::Of("Return to IDLE");
inline constexpr FixedText kTpsBandHeading = FixedText::Of("RPM, 1/min");

enum class TpsTable : std::uint8_t { kAcceleration, kDeceleration };
inline constexpr std::array kTpsTables{TpsTable::kAcceleration, TpsTable::kDeceleration};

// The rows of a table, top down.
enum class TpsQuantity : std::uint8_t { kThreshold, kCorrection, kDuration, kDissolve };
inline constexpr std::array kTpsQuantities{TpsQuantity::kThreshold, TpsQuantity::kCorrection,
                                           TpsQuantity::kDuration, TpsQuantity::kDissolve};

inline constexpr std::size_t kTpsBands = 16;  // the columns, speed bands

[[nodiscard]] FixedText TitleOf(TpsTable table);
[[nodiscard]] FixedText RowLabel(TpsQuantity quantity);

[[nodiscard]] std::uint16_t CellRegister(TpsTable table, TpsQuantity quantity, std::size_t band);
[[nodiscard]] std::uint16_t OutletRegister(TpsTable table);
[[nodiscard]] std::uint16_t EnableRegister(TpsTable table);
inline constexpr std::uint16_t kClosedThrottleRegister = 307;
inline constexpr std::uint16_t kFullThrottleRegister = 308;

// Thresholds and corrections are signed.
[[nodiscard]] constexpr bool IsSigned(TpsQuantity quantity) {
  return quantity == TpsQuantity::kThreshold || quantity == TpsQuantity::kCorrection;
}
// What stands behind a number of the table: "%/s", "%" or nothing.
[[nodiscard]] std::string_view UnitOf(TpsQuantity quantity);
// A word as the table shows it: "-12 %/s", "-5%", "30".
[[nodiscard]] std::string TpsCellText(TpsQuantity quantity, std::uint16_t word);

// The settings of the return to idle and of the cut-off.
struct IdleSetting {
  std::string_view name;  // of the parameter; what it means stands in the parameter table
  std::uint16_t reg;
  bool in_tenths;  // shown and typed as a decimal number, ten to the word's one
};
inline constexpr std::array<IdleSetting, 8> kIdleSettings{{
    {"RETIDLE_GP_RPM", 313, false},
    {"RETIDLE_PG_RPM", 314, false},
    {"RETIDLE_DURATION", 315, true},
    {"CUTOFF_MAXRPM", 316, false},
    {"CUTOFF_DUR_NOINJ", 317, false},
    {"REDRPM_ENRICH", 318, false},
    {"REDRPM_DURATION", 319, false},
    {"REDRPM_DISS", 320, false},
}};
[[nodiscard]] std::string IdleText(const IdleSetting& setting, std::uint16_t word);

}  // namespace zelorgas
