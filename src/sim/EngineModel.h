// The engine of the simulated car: what its sensors say at a given time. A pure function of time
// and seed, so that every run with the same seed sees the same drive and nothing has to be stepped.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "config/ConfigurationBlock.h"

namespace zelorgas {

struct EngineState {
  double speed_rpm = 0;
  double petrol_time_us = 0;  // injection time that the petrol ECU asks for
  double throttle_percent = 0;
  double manifold_bar = 0;
  double coolant_celsius = 0;
  double gas_celsius = 0;
  double battery_volts = 0;
  double lambda1_volts = 0;
  double lambda2_volts = 0;
  double gas_pressure_bar = 0;
  double gas_level_percent = 0;
  bool on_gas = false;
  std::uint16_t mode = 0;  // 0 normal, 1 economical, 2 turbo
};

class EngineModel {
 public:
  explicit EngineModel(std::uint64_t seed) : seed_(seed) {}

  // `seconds` since the engine was started: it idles, warms up, changes over to gas when its
  // coolant reaches `change_over_celsius`, and drives through the whole map.
  [[nodiscard]] EngineState At(double seconds, double change_over_celsius) const;

 private:
  // Smooth noise from 0 to 1 with a new value every `period_s`; `channel` keeps curves apart.
  [[nodiscard]] double Wander(unsigned channel, double seconds, double period_s) const;

  std::uint64_t seed_;
};

// The coefficient (1.00 = 100 in the block) of the cell in which the engine runs.
[[nodiscard]] double GridCoefficient(const ConfigurationBlock& block, double speed_rpm,
                                     double petrol_time_us);

}  // namespace zelorgas
