#include "config/Parameters.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "platform/IgnoreCase.h"

namespace zelorgas {
namespace {

// Words 70, 71 and 76 to 79 carry no named parameter.
constexpr auto kParameters = std::to_array<Parameter>({
    {"TEMP_COLD_ENG", 0, 0, 16, FixedText::Of("engine temperature that counts as cold")},
    {"DELAY_COLD_ENG", 1, 0, 16, FixedText::Of("change-over delay with a cold engine")},
    {"RPM_COLD_ENG", 2, 0, 16, FixedText::Of("engine speed condition with a cold engine")},
    {"TEMP_HOT_ENG", 3, 0, 16, FixedText::Of("engine temperature that counts as hot")},
    {"DELAY_HOT_ENG", 4, 0, 16, FixedText::Of("change-over delay with a hot engine")},
    {"RPM_HOT_ENG", 5, 0, 16, FixedText::Of("engine speed condition with a hot engine")},
    {"DELAY_GAS_VALVE", 6, 0, 16, FixedText::Of("delay of the gas valve")},
    {"PETGAS_PULSES", 7, 0, 16, FixedText::Of("pulses for the petrol-to-gas change-over")},
    {"SHIFT_CYL_PG", 8, 0, 16, FixedText::Of("cylinder-by-cylinder shift, petrol to gas")},
    {"SHIFT_CYL_GP", 9, 0, 16, FixedText::Of("cylinder-by-cylinder shift, gas to petrol")},
    {"TIME_GAS_ENABLE", 10, 0, 16, FixedText::Of("time before gas is enabled")},
    {"EMERGENCY_GAS_PRESSURE", 11, 0, 16,
     FixedText::Of("gas pressure that forces a return to petrol")},
    {"EMERGENCY_TWATER", 12, 0, 16,
     FixedText::Of("coolant temperature that forces a return to petrol")},
    {"PULSES_ABSENT", 13, 0, 16, FixedText::Of("missing-pulse limit")},
    {"RPM_TROUBLE", 14, 0, 16, FixedText::Of("engine speed fault limit")},
    {"FREQ_GAS_INJ", 15, 0, 16, FixedText::Of("gas injector drive frequency")},
    {"DC_GAS_INJ", 16, 0, 16, FixedText::Of("gas injector duty cycle")},
    {"TSPEEDUP_DELAY", 17, 0, 16, FixedText::Of("speed-up (acceleration) delay")},
    {"TSPEEDUP", 18, 0, 16, FixedText::Of("speed-up (acceleration) time")},
    {"TRPM_A", 19, 0, 16, FixedText::Of("engine speed breakpoint A")},
    {"TRPM_B", 20, 0, 16, FixedText::Of("engine speed breakpoint B")},
    {"TRPM_C", 21, 0, 16, FixedText::Of("engine speed breakpoint C")},
    {"GASLEVEL_25", 22, 0, 16, FixedText::Of("gas level sensor threshold for 25 %")},
    {"GASLEVEL_50", 23, 0, 16, FixedText::Of("gas level sensor threshold for 50 %")},
    {"GASLEVEL_75", 24, 0, 16, FixedText::Of("gas level sensor threshold for 75 %")},
    {"GASLEVEL_100", 25, 0, 16, FixedText::Of("gas level sensor threshold for 100 %")},
    {"GASLEVEL_SENSORTYPE", 26, 0, 16, FixedText::Of("gas level sensor type (index)")},
    {"GAS_TYPE", 27, 0, 16, FixedText::Of("gas type (index)")},
    {"NCYLINDERS", 28, 0, 16, FixedText::Of("number of cylinders")},
    {"INJECTOR_TYPE", 29, 0, 16,
     FixedText::Of("gas injector type (index into the injector catalogue)")},
    {"TW_SENSOR_TYPE", 30, 0, 16, FixedText::Of("coolant temperature sensor type (index)")},
    {"TGAS_SENSOR_TYPE", 31, 0, 16, FixedText::Of("gas temperature sensor type (index)")},
    {"PRESSURE_SENSOR_TPYE", 32, 0, 16, FixedText::Of("gas pressure sensor type (index)")},
    {"ONOFF_PRESSURE_SENSOR_TPYE", 33, 0, 16, FixedText::Of("on/off pressure sensor type (index)")},
    {"RPM_SOURCE", 34, 0, 16, FixedText::Of("engine speed signal source (index)")},
    {"RPM_RATIO", 35, 0, 16, FixedText::Of("engine speed signal ratio")},
    {"ENGINE_TYPE", 36, 0, 16, FixedText::Of("engine type (index)")},
    {"ENGINE_SIZE", 37, 0, 16, FixedText::Of("engine size")},
    {"TGAS_SENSOR_INSTALLED", 38, 0, 16, FixedText::Of("gas temperature sensor fitted (flag)")},
    {"GP_CHANGEOVER_ON_TWATER", 39, 0, 16,
     FixedText::Of("return to petrol on coolant temperature (flag)")},
    {"GP_CHANGEOVER_ON_PGAS", 40, 0, 16, FixedText::Of("return to petrol on gas pressure (flag)")},
    {"GP_CHANGEOVER_ON_PULSELACK", 41, 0, 16,
     FixedText::Of("return to petrol on missing pulses (flag)")},
    {"GP_CHANGEOVER_ON_RPM", 42, 0, 16, FixedText::Of("return to petrol on engine speed (flag)")},
    {"PGAS_NOMINAL", 43, 0, 16, FixedText::Of("nominal gas pressure")},
    {"TONMIN_GAS_ON", 44, 0, 16, FixedText::Of("minimum gas injection time for running on gas")},
    {"TONMAX_GAS_ON", 45, 0, 16, FixedText::Of("maximum gas injection time for running on gas")},
    {"TONMIN_PETROL", 46, 0, 16, FixedText::Of("minimum petrol injection time")},
    {"L2_INSTALLED", 47, 0, 16, FixedText::Of("second lambda sensor fitted (flag)")},
    {"MAP_INSTALLED", 48, 0, 16, FixedText::Of("manifold pressure sensor fitted (flag)")},
    {"MAP_SENSORTYPE", 49, 0, 16, FixedText::Of("manifold pressure sensor type (index)")},
    {"EXTRA_INJ", 50, 0, 16, FixedText::Of("extra injection")},
    {"TPS0", 51, 0, 16, FixedText::Of("throttle sensor reading at closed throttle")},
    {"TPSMAX", 52, 0, 16, FixedText::Of("throttle sensor reading at full throttle")},
    {"PGAS0", 53, 0, 16, FixedText::Of("gas pressure sensor zero point")},
    {"PGASMAX", 54, 0, 16, FixedText::Of("gas pressure sensor full-scale point")},
    {"MAP0", 55, 0, 16, FixedText::Of("manifold pressure sensor zero point")},
    {"MAPMAX", 56, 0, 16, FixedText::Of("manifold pressure sensor full-scale point")},
    {"RETIDLE_GP_RPM", 57, 0, 16, FixedText::Of("return-to-idle speed, gas to petrol")},
    {"RETIDLE_PG_RPM", 58, 0, 16, FixedText::Of("return-to-idle speed, petrol to gas")},
    {"RETIDLE_DURATION", 59, 0, 16, FixedText::Of("return-to-idle duration")},
    {"CUTOFF_MAXRPM", 60, 0, 16, FixedText::Of("fuel cut-off speed limit")},
    {"CUTOFF_DUR_NOINJ", 61, 0, 16, FixedText::Of("cut-off duration without injection")},
    {"REDRPM_ENRICH", 62, 0, 16, FixedText::Of("enrichment on falling engine speed")},
    {"REDRPM_DURATION", 63, 0, 16, FixedText::Of("duration of that enrichment")},
    {"REDRPM_DISS", 64, 0, 16, FixedText::Of("decay of that enrichment")},
    {"NOZZLEDIAM", 65, 0, 16, FixedText::Of("gas injector nozzle diameter")},
    {"TIPIN_ENABLE", 66, 0, 16, FixedText::Of("tip-in correction enabled (flag)")},
    {"TIPOUT_ENABLE", 67, 0, 16, FixedText::Of("tip-out correction enabled (flag)")},
    {"LAMBDA_INVERSE", 68, 15, 1, FixedText::Of("lambda signal inverted (flag)")},
    {"LAMBDA_OXYGENRANGE", 68, 0, 15, FixedText::Of("lambda sensor voltage range (index)")},
    {"RPM_RATIO_MUL", 69, 0, 16, FixedText::Of("multiplier for RPM_RATIO")},
    {"TOFF_HOLDFREQ_INJ", 72, 0, 16, FixedText::Of("injector hold frequency during off time")},
    {"RPM_SENSORTYPE", 73, 0, 16, FixedText::Of("engine speed sensor type (index)")},
    {"LOWGASPRESSURE_DUR", 74, 0, 16,
     FixedText::Of("duration of low gas pressure before reacting")},
    {"TONINJ_MIN", 75, 0, 16, FixedText::Of("minimum injection time")},
});

// Levenshtein distance without regard to case, one row of the table at a time.
std::size_t EditDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (ToLower(a[i]) == ToLower(b[j]) ? 0U : 1U);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
    }
  }
  return row.back();
}

}  // namespace

std::uint16_t Parameter::ValueIn(std::uint16_t register_word) const {
  return static_cast<std::uint16_t>((register_word >> first_bit) & MaxValue());
}

std::uint16_t Parameter::PutInto(std::uint16_t register_word, std::uint16_t value) const {
  const unsigned mask = static_cast<unsigned>(MaxValue()) << first_bit;
  return static_cast<std::uint16_t>((register_word & ~mask) |
                                    ((static_cast<unsigned>(value) << first_bit) & mask));
}

std::span<const Parameter> Parameters() { return kParameters; }

const Parameter* FindParameter(std::string_view name) {
  const auto found = std::ranges::find(kParameters, name, &Parameter::name);
  return found == kParameters.end() ? nullptr : &*found;
}

std::vector<std::string_view> NearestParameterNames(std::string_view name, std::size_t count) {
  std::vector<std::pair<std::size_t, std::string_view>> ranked;
  ranked.reserve(kParameters.size());
  for (const Parameter& parameter : kParameters) {
    ranked.emplace_back(EditDistance(name, parameter.name), parameter.name);
  }
  std::ranges::stable_sort(ranked, {}, &std::pair<std::size_t, std::string_view>::first);
  std::vector<std::string_view> names;
  for (std::size_t i = 0; i < std::min(count, ranked.size()); ++i)
    names.push_back(ranked[i].second);
  return names;
}

std::uint16_t GetParameter(const ConfigurationBlock& block, const Parameter& parameter) {
  return parameter.ValueIn(block[parameter.word]);
}

void SetParameter(ConfigurationBlock& block, const Parameter& parameter, std::uint16_t value) {
  block[parameter.word] = parameter.PutInto(block[parameter.word], value);
}

}  // namespace zelorgas
