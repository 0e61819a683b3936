// The lists of the configuration page and what choosing an entry of one writes to the ECU, register
// by register, in the order of the writes. Pure functions.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "config/Parameters.h"

namespace zelorgas {

enum class ChoiceList : std::uint8_t {
  kInjectorType,
  kWaterTemperatureSensor,
  kGasTemperatureSensor,
  kGasPressureSensor,
  kMapSensor,
  kLambdaRange,
};
inline constexpr std::array kChoiceLists{
    ChoiceList::kInjectorType,
    ChoiceList::kWaterTemperatureSensor,
    ChoiceList::kGasTemperatureSensor,
    ChoiceList::kGasPressureSensor,
    ChoiceList::kMapSensor,
    ChoiceList::kLambdaRange,
};

// The parameter that keeps the choice, and the list of a parameter, if it has one.
[[nodiscard]] const Parameter& ParameterOf(ChoiceList list);
[[nodiscard]] std::optional<ChoiceList> ListOf(const Parameter& parameter);

// The names of the list's entries; an entry's place is its index in the catalogue.
[[nodiscard]] std::vector<std::string_view> EntryNames(ChoiceList list);
// The entry of exactly this name.
[[nodiscard]] std::optional<std::size_t> EntryNamed(ChoiceList list, std::string_view name);
// The entry that a value of the list's parameter stands for; nothing for a value that the catalogue
// does not know.
[[nodiscard]] std::optional<std::size_t> EntryOfValue(ChoiceList list, std::uint16_t value);

// PRESSURE_SENSOR_TPYE of an ECU with an on/off switch in the place of a pressure sensor.
inline constexpr std::uint16_t kSwitchSensorType = 0;

// What the writes depend on, besides the entry.
struct ChoiceContext {
  char firmware_identification = 0;  // EcuImage::FirmwareIdentification
  bool switch_mode = false;          // the gas pressure comes from an on/off switch
  bool lambda_inverse = false;       // LAMBDA_INVERSE, which shares the register of the range
};

struct RegisterWrite {
  std::uint16_t reg;
  std::uint16_t value;

  friend bool operator==(const RegisterWrite&, const RegisterWrite&) = default;
};

// Nothing for an entry that cannot be applied ("EMPTY", and "NONE" where the list has it) or that
// the list does not have.
[[nodiscard]] std::vector<RegisterWrite> WritesOf(ChoiceList list, std::size_t entry,
                                                  const ChoiceContext& context);

// The upper end of the live gas pressure indicator for a sensor of this full scale.
[[nodiscard]] constexpr unsigned PressureIndicatorMaximum(unsigned full_scale) {
  return full_scale / 100 * 100 + 100;
}

}  // namespace zelorgas
