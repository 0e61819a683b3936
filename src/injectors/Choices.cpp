#include "injectors/Choices.h"

#include <algorithm>
#include <iterator>

#include "injectors/Catalogues.h"

namespace zelorgas {
namespace {

// With this identification the ECU has the older register layout: it takes the older firmware's
// value in register 273 and does not know TONINJ_MIN.
constexpr char kOlderFirmware = '$';
constexpr std::uint16_t kLambdaInverseBit = 0x8000;

constexpr std::array<std::string_view, kChoiceLists.size()> kListParameters{
    "INJECTOR_TYPE",        "TW_SENSOR_TYPE", "TGAS_SENSOR_TYPE",
    "PRESSURE_SENSOR_TPYE", "MAP_SENSORTYPE", "LAMBDA_OXYGENRANGE",
};

// Runs `use` with the records of the list's catalogue.
template <typename Use>
auto WithRecords(ChoiceList list, Use use) {
  switch (list) {
    case ChoiceList::kInjectorType:
      return use(InjectorTypes().Records());
    case ChoiceList::kWaterTemperatureSensor:
      return use(WaterTemperatureSensors().Records());
    case ChoiceList::kGasTemperatureSensor:
      return use(GasTemperatureSensors().Records());
    case ChoiceList::kGasPressureSensor:
      return use(GasPressureSensors().Records());
    case ChoiceList::kMapSensor:
      return use(MapSensors().Records());
    case ChoiceList::kLambdaRange:
      break;
  }
  return use(LambdaRanges().Records());
}

// The index of the first record that `matches`.
template <typename Matches>
std::optional<std::size_t> FindEntry(ChoiceList list, Matches matches) {
  return WithRecords(list, [&](auto records) -> std::optional<std::size_t> {
    const auto found = std::ranges::find_if(records, matches);
    if (found == records.end()) return std::nullopt;
    return static_cast<std::size_t>(std::distance(records.begin(), found));
  });
}

std::uint16_t Word(std::uint32_t type_code) { return static_cast<std::uint16_t>(type_code); }

RegisterWrite Write(std::string_view parameter, std::uint16_t value) {
  return {FindParameter(parameter)->Register(), value};
}

std::vector<RegisterWrite> WritesOf(const InjectorTypeRecord& injector, std::size_t entry,
                                    const ChoiceContext& context) {
  const bool older = context.firmware_identification == kOlderFirmware;
  return {Write("FREQ_GAS_INJ", injector.freq_gas_inj),
          Write("DC_GAS_INJ", injector.dc_gas_inj),
          older ? Write("TSPEEDUP_DELAY", injector.older_firmware)
                : Write("TONINJ_MIN", injector.toninj_min),
          Write("TSPEEDUP", injector.register_274),
          Write("TOFF_HOLDFREQ_INJ", injector.toff_holdfreq_inj),
          Write("INJECTOR_TYPE", static_cast<std::uint16_t>(entry))};
}

std::vector<RegisterWrite> WritesOfPressureSensor(const SensorTypeRecord& sensor) {
  return {Write("PGAS0", sensor.zero_point), Write("PGASMAX", sensor.full_scale),
          Write("PRESSURE_SENSOR_TPYE", Word(sensor.type_code))};
}

std::vector<RegisterWrite> WritesOfMapSensor(const SensorTypeRecord& sensor) {
  const RegisterWrite type = Write("MAP_SENSORTYPE", Word(sensor.type_code));
  // The points of a calibrated sensor are those in the ECU, not the catalogue's.
  if (sensor.type_code == kCustomSensorCode) return {type};
  return {Write("MAP0", sensor.zero_point), Write("MAPMAX", sensor.full_scale), type};
}

bool IsPlaceholder(ChoiceList list, std::string_view name) {
  return name == (list == ChoiceList::kInjectorType ? kEmptyInjector : kNoSensor);
}

}  // namespace

const Parameter& ParameterOf(ChoiceList list) {
  return *FindParameter(kListParameters[static_cast<std::size_t>(list)]);
}

std::optional<ChoiceList> ListOf(const Parameter& parameter) {
  const auto found = std::ranges::find(kListParameters, parameter.name);
  if (found == kListParameters.end()) return std::nullopt;
  return kChoiceLists[static_cast<std::size_t>(std::distance(kListParameters.begin(), found))];
}

std::vector<std::string_view> EntryNames(ChoiceList list) {
  return WithRecords(list, [](auto records) {
    std::vector<std::string_view> names;
    for (const auto& record : records) names.push_back(record.name);
    return names;
  });
}

std::optional<std::size_t> EntryNamed(ChoiceList list, std::string_view name) {
  return FindEntry(list, [name](const auto& record) { return record.name == name; });
}

std::optional<std::size_t> EntryOfValue(ChoiceList list, std::uint16_t value) {
  if (list == ChoiceList::kInjectorType) {
    return value < InjectorTypes().count() ? std::optional<std::size_t>(value) : std::nullopt;
  }
  return FindEntry(list, [value](const auto& record) {
    if constexpr (requires { record.type_code; }) return record.type_code == value;
    return false;
  });
}

std::vector<RegisterWrite> WritesOf(ChoiceList list, std::size_t entry,
                                    const ChoiceContext& context) {
  const std::vector<std::string_view> names = EntryNames(list);
  if (entry >= names.size()) return {};
  if (list == ChoiceList::kGasPressureSensor && context.switch_mode) {
    return {Write("ONOFF_PRESSURE_SENSOR_TPYE", static_cast<std::uint16_t>(entry)),
            Write("PRESSURE_SENSOR_TPYE", kSwitchSensorType)};
  }
  if (IsPlaceholder(list, names[entry])) return {};
  switch (list) {
    case ChoiceList::kInjectorType:
      return WritesOf(*InjectorTypes().at(entry), entry, context);
    case ChoiceList::kWaterTemperatureSensor:
      return {Write("TW_SENSOR_TYPE", Word(WaterTemperatureSensors().at(entry)->type_code))};
    case ChoiceList::kGasTemperatureSensor:
      return {Write("TGAS_SENSOR_TYPE", Word(GasTemperatureSensors().at(entry)->type_code)),
              Write("TGAS_SENSOR_INSTALLED", 1)};
    case ChoiceList::kGasPressureSensor:
      return WritesOfPressureSensor(*GasPressureSensors().at(entry));
    case ChoiceList::kMapSensor:
      return WritesOfMapSensor(*MapSensors().at(entry));
    case ChoiceList::kLambdaRange:
      break;
  }
  const std::uint16_t inverse = context.lambda_inverse ? kLambdaInverseBit : 0;
  const std::uint16_t code = Word(LambdaRanges().at(entry)->type_code);
  return {Write("LAMBDA_OXYGENRANGE", static_cast<std::uint16_t>(inverse + code))};
}

}  // namespace zelorgas
