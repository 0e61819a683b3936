#include "sim/EngineModel.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace zelorgas {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kIdleSeconds = 6;  // at idle before the drive begins

// A well-mixed 64-bit value (splitmix64).
std::uint64_t Mix(std::uint64_t value) {
  value += 0x9E3779B97F4A7C15U;
  value = (value ^ (value >> 30U)) * 0xBF58476D1CE4E5B9U;
  value = (value ^ (value >> 27U)) * 0x94D049BB133111EBU;
  return value ^ (value >> 31U);
}

std::size_t BandOf(std::span<const std::uint16_t> centres, double value) {
  std::size_t band = 0;
  while (band + 1 < centres.size() && value >= (centres[band] + centres[band + 1]) / 2.0) ++band;
  return band;
}

}  // namespace

double EngineModel::Wander(unsigned channel, double seconds, double period_s) const {
  const double position = seconds / period_s;
  const double whole = std::floor(position);
  const auto lattice = [&](double index) {
    const auto key = static_cast<std::uint64_t>(static_cast<std::int64_t>(index));
    return static_cast<double>(Mix(seed_ ^ Mix(key * 64 + channel)) >> 11U) / 9007199254740992.0;
  };
  const double blend = (1 - std::cos((position - whole) * kPi)) / 2;
  return lattice(whole) * (1 - blend) + lattice(whole + 1) * blend;
}

EngineState EngineModel::At(double seconds, double change_over_celsius) const {
  EngineState state;
  const double drive = std::clamp((seconds - kIdleSeconds) / 4, 0.0, 1.0);
  // A blip of the throttle now and then, also while idling.
  const double blip = std::pow(std::max(0.0, std::sin(seconds * 2 * kPi / 17)), 24.0);
  const double load = drive * Wander(1, seconds, 3.1);
  const double pace = drive * Wander(2, seconds, 5.3);
  state.speed_rpm = 820 + 25 * (Wander(3, seconds, 0.7) - 0.5) + 6200 * pace * pace + 1400 * blip;
  state.petrol_time_us = 2300 + 150 * (Wander(4, seconds, 0.5) - 0.5) + 20000 * load + 2500 * blip;
  state.throttle_percent = std::clamp(2 + 96 * std::max(load, blip), 0.0, 100.0);
  state.manifold_bar = 0.35 + 0.65 * load + 0.3 * blip;
  state.coolant_celsius = 18 + 70 * (1 - std::exp(-seconds / 45)) + 2 * Wander(5, seconds, 9);
  state.gas_celsius = 15 + 30 * (1 - std::exp(-seconds / 120)) + 3 * Wander(6, seconds, 7);
  state.battery_volts = 13.8 + 0.4 * Wander(7, seconds, 4);
  state.on_gas = state.coolant_celsius >= change_over_celsius;
  // A narrow-band probe swings between lean and rich about once a second.
  const double swing = 0.5 + 0.45 * std::sin(seconds * 2 * kPi * 0.9 + 3 * load);
  state.lambda1_volts = 0.05 + 0.85 * swing;
  state.lambda2_volts = 0.6 + 0.15 * Wander(8, seconds, 6);
  state.gas_pressure_bar = state.on_gas ? 1.35 - 0.25 * load + 0.1 * Wander(9, seconds, 2) : 1.6;
  state.gas_level_percent = std::max(5.0, 75 - seconds / 60);
  state.mode = load > 0.85 ? 2 : (load < 0.15 && drive > 0 ? 1 : 0);
  return state;
}

double GridCoefficient(const ConfigurationBlock& block, double speed_rpm, double petrol_time_us) {
  using namespace block_layout;
  const std::span<const std::uint16_t> words(block);
  const std::size_t rows = std::clamp<std::size_t>(words[kRowCount], 1, kGridAxisPoints);
  const std::size_t columns = std::clamp<std::size_t>(words[kColumnCount], 1, kGridAxisPoints);
  const std::size_t row = BandOf(words.subspan(kGridTimes, rows), petrol_time_us);
  const std::size_t column = BandOf(words.subspan(kGridSpeeds, columns), speed_rpm);
  return words[kGridCells + row * kGridAxisPoints + column] / 100.0;
}

}  // namespace zelorgas
