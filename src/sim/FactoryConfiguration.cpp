#include <array>
#include <string_view>

#include "config/BlockCells.h"
#include "config/Parameters.h"
#include "sim/SimulatedEcu.h"

namespace zelorgas {
namespace {

struct Setting {
  std::string_view name;
  std::uint16_t value;
};

// A two-litre four-cylinder car on LPG with a manifold sensor and two lambda probes.
constexpr auto kSettings = std::to_array<Setting>({
    {"TEMP_COLD_ENG", 20},
    {"DELAY_COLD_ENG", 60},
    {"RPM_COLD_ENG", 1600},
    {"TEMP_HOT_ENG", 40},
    {"DELAY_HOT_ENG", 10},
    {"RPM_HOT_ENG", 900},
    {"DELAY_GAS_VALVE", 5},
    {"PETGAS_PULSES", 4},
    {"SHIFT_CYL_PG", 2},
    {"SHIFT_CYL_GP", 2},
    {"TIME_GAS_ENABLE", 10},
    {"EMERGENCY_GAS_PRESSURE", 60},
    {"EMERGENCY_TWATER", 30},
    {"PULSES_ABSENT", 20},
    {"RPM_TROUBLE", 7000},
    {"FREQ_GAS_INJ", 10000},
    {"DC_GAS_INJ", 30},
    {"TSPEEDUP_DELAY", 242},
    {"TSPEEDUP", 5000},
    {"TRPM_A", 1000},
    {"TRPM_B", 3000},
    {"TRPM_C", 5000},
    {"GASLEVEL_25", 250},
    {"GASLEVEL_50", 500},
    {"GASLEVEL_75", 750},
    {"GASLEVEL_100", 1000},
    {"NCYLINDERS", 4},
    {"INJECTOR_TYPE", 4},
    {"TW_SENSOR_TYPE", 1},
    {"TGAS_SENSOR_TYPE", 1},
    {"PRESSURE_SENSOR_TPYE", 1},
    {"RPM_RATIO", 2},
    {"RPM_RATIO_MUL", 1},
    {"ENGINE_SIZE", 1998},
    {"TGAS_SENSOR_INSTALLED", 1},
    {"GP_CHANGEOVER_ON_PGAS", 1},
    {"GP_CHANGEOVER_ON_PULSELACK", 1},
    {"PGAS_NOMINAL", 135},
    {"TONMIN_GAS_ON", 1800},
    {"TONMAX_GAS_ON", 25000},
    {"TONMIN_PETROL", 1500},
    {"L2_INSTALLED", 1},
    {"MAP_INSTALLED", 1},
    {"MAP_SENSORTYPE", 3},
    {"TPS0", 51},
    {"TPSMAX", 980},
    {"PGAS0", 93},
    {"PGASMAX", 2609},
    {"MAP0", 11},
    {"MAPMAX", 1180},
    {"RETIDLE_GP_RPM", 1500},
    {"RETIDLE_PG_RPM", 1400},
    {"RETIDLE_DURATION", 12},
    {"CUTOFF_MAXRPM", 6500},
    {"CUTOFF_DUR_NOINJ", 5},
    {"REDRPM_ENRICH", 8},
    {"REDRPM_DURATION", 12},
    {"REDRPM_DISS", 10},
    {"NOZZLEDIAM", 25},
    {"TIPIN_ENABLE", 1},
    {"TIPOUT_ENABLE", 1},
    {"TOFF_HOLDFREQ_INJ", 400},
    {"LOWGASPRESSURE_DUR", 20},
    {"TONINJ_MIN", 3500},
});

constexpr std::uint16_t kUsedPoints = 12;  // of the 16 on each axis
constexpr std::uint16_t kTimeStep = 2000;  // microseconds
constexpr std::uint16_t kSpeedStep = 600;  // 1/min

// Coefficients by column: a rich low end, leaner towards high speed.
constexpr std::uint16_t CoefficientOfColumn(std::size_t column) {
  if (column < 3) return 160;
  if (column < 5) return 150;
  return column < 7 ? 145 : 140;
}

// Thresholds, corrections, durations and decays, 16 each, and the outlet.
void FillThrottleTable(ConfigurationBlock& block, std::size_t first, int correction_percent) {
  constexpr std::size_t kBands = block_layout::kGridAxisPoints;
  for (std::size_t band = 0; band < kBands; ++band) {
    block[first + band] = static_cast<std::uint16_t>(40 + 10 * band);
    block[first + kBands + band] = static_cast<std::uint16_t>(correction_percent);
    block[first + 2 * kBands + band] = static_cast<std::uint16_t>(6 + band / 4);
    block[first + 3 * kBands + band] = static_cast<std::uint16_t>(4 + band / 4);
  }
  block[first + 4 * kBands] = 3;
}

// Each petrol injector drives the gas injector of its own cylinder, in both maps.
void FillRouting(ConfigurationBlock& block) {
  for (std::size_t i = 0; i < kRoutingInjectors; ++i) {
    for (std::size_t map = 0; map < kRoutingMaps; ++map) {
      SetBlockByte(block, RoutingByte(map, i, i), 1);
    }
    SetBlockByte(block, kFirstSwappedByte + i, static_cast<std::uint8_t>(i));
    SetBlockByte(block, kFirstSetByte + i, static_cast<std::uint8_t>(1U << i));
  }
}

}  // namespace

ConfigurationBlock FactoryConfiguration() {
  using namespace block_layout;
  ConfigurationBlock block{};
  for (const Setting& setting : kSettings) {
    SetParameter(block, *FindParameter(setting.name), setting.value);
  }
  block[kRowCount] = kUsedPoints;
  block[kColumnCount] = kUsedPoints;
  for (std::size_t i = 0; i < kGridAxisPoints; ++i) {
    block[kGridTimes + i] = static_cast<std::uint16_t>(kTimeStep * (i + 1));
    block[kGridSpeeds + i] = static_cast<std::uint16_t>(kSpeedStep * (i + 1));
    for (std::size_t column = 0; column < kGridAxisPoints; ++column) {
      block[kGridCells + i * kGridAxisPoints + column] = CoefficientOfColumn(column);
    }
  }
  FillThrottleTable(block, kAccelerationTable, 10);
  FillThrottleTable(block, kDecelerationTable, -8);
  FillRouting(block);
  return block;
}

}  // namespace zelorgas
