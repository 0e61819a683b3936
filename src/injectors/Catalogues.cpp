#include "injectors/Catalogues.h"

#include <array>

namespace zelorgas {
namespace {

constexpr auto kInjectorTypes = std::to_array<InjectorTypeRecord>({
    {"KEIHIN-BLUE", 10000, 25, 242, 2600, 1, 0, 2500},
    {"KEIHIN-ORG", 10000, 25, 242, 2600, 1, 0, 2500},
    {"MAGIC", 10000, 30, 242, 4000, 0, 0, 4000},
    {"MATRIX", 20000, 40, 242, 3000, 0, 0, 2500},
    {"VALTEK", 10000, 30, 242, 5000, 0, 400, 3500},
    {"STEFANELLI-GREEN", 10000, 70, 242, 4000, 1, 0, 3000},
    {"STEFANELLI-WHITE", 10000, 70, 242, 4000, 1, 0, 3000},
    {"STEFANELLI-RED", 10000, 70, 242, 4000, 1, 0, 3000},
    {"RAIL", 10000, 30, 242, 4500, 0, 400, 3500},
    {kEmptyInjector, 10000, 30, 242, 4000, 0, 400, 3500},
});

constexpr auto kGasPressureSensors = std::to_array<SensorTypeRecord>({
    {"Zelor-P9250", 93, 2609, 1},
    {"Zelor-P9400", 35, 4150, 2},
    {kNoSensor, 0, 0, 65535},
});

constexpr auto kMapSensors = std::to_array<SensorTypeRecord>({
    {"Zelor-P9115", 11, 1180, 3},
    {"Zelor-P9250", 93, 2609, 2},
    {FixedText::Of("Custom"), 0, 1023, kCustomSensorCode},
});

constexpr auto kGasTemperatureSensors = std::to_array<SensorCodeRecord>({
    {"Zelor-T740429", 1},
});

constexpr auto kWaterTemperatureSensors = std::to_array<SensorCodeRecord>({
    {"BRC-RTH90", 0},
    {"Zelor-T740429", 1},
    {"Romano-CNG", 2},
    {kNoSensor, 65535},
});

// The axis of the 0.8-1.6 V probe has room above the probe's band.
constexpr auto kLambdaRanges = std::to_array<LambdaRangeRecord>({
    {"0-1V", 0, 1.0},
    {"0-5V", 1, 5.0},
    {"0.8-1.6V", 2, 2.0},
    {"0-12V", 3, 12.0},
});

}  // namespace

Catalogue<InjectorTypeRecord> InjectorTypes() {
  return Catalogue<InjectorTypeRecord>(kInjectorTypes);
}
Catalogue<SensorTypeRecord> GasPressureSensors() {
  return Catalogue<SensorTypeRecord>(kGasPressureSensors);
}
Catalogue<SensorTypeRecord> MapSensors() { return Catalogue<SensorTypeRecord>(kMapSensors); }
Catalogue<SensorCodeRecord> GasTemperatureSensors() {
  return Catalogue<SensorCodeRecord>(kGasTemperatureSensors);
}
Catalogue<SensorCodeRecord> WaterTemperatureSensors() {
  return Catalogue<SensorCodeRecord>(kWaterTemperatureSensors);
}
Catalogue<LambdaRangeRecord> LambdaRanges() { return Catalogue<LambdaRangeRecord>(kLambdaRanges); }

}  // namespace zelorgas
