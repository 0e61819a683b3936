#include "ui/LiveFields.h"

#include <QCoreApplication>

#include "ui/Text.h"

namespace zelorgas {
namespace {

struct Words {
  Q_DECLARE_TR_FUNCTIONS(zelorgas::LiveFields)
};

LiveText Fixed(double value, int decimals) { return {QString::number(value, 'f', decimals)}; }
LiveText Whole(int value) { return {QString::number(value)}; }
LiveText Word(const QString& word) { return {word, false}; }
LiveText NotFitted() { return Word(Words::tr("Not fitted")); }

LiveText ManifoldPressure(const EcuImage& image) {
  if (!image.ManifoldSensorFitted()) return NotFitted();
  return Fixed(image.record.ManifoldPressureHundredths() / 100.0, 2);
}

LiveText Lambda2(const EcuImage& image) {
  if (!image.SecondLambdaFitted()) return NotFitted();
  return Fixed(image.record.Lambda2Volts(), 2);
}

LiveText FuelText(const EcuImage& image) {
  return Word(image.FuelInUse() == Fuel::kGas ? Words::tr("Gas") : Words::tr("Petrol"));
}

}  // namespace

std::vector<LiveField> MainLiveFields() {
  return {
      {"live_engine_speed", Words::tr("Engine speed"), Words::tr("1/min"),
       Words::tr("Live record, bytes 6 and 7"),
       [](const EcuImage& image) { return Whole(image.record.EngineSpeed()); }},
      {"live_petrol_time", Words::tr("Petrol injection"), Words::tr("ms"),
       Words::tr("Petrol injection time, input register 71"),
       [](const EcuImage& image) { return Fixed(image.PetrolTimeMicroseconds() / 1000.0, 2); }},
      {"live_gas_time", Words::tr("Gas injection"), Words::tr("ms"),
       Words::tr("Gas injection time, input register 72"),
       [](const EcuImage& image) { return Fixed(image.GasTimeMicroseconds() / 1000.0, 2); }},
      {"live_gas_pressure", Words::tr("Gas pressure"), Words::tr("bar"),
       Words::tr("Gas pressure P1, input register 43"),
       [](const EcuImage& image) { return Fixed(image.gas_pressure_bar, 2); }},
      {"live_manifold_pressure", Words::tr("Manifold pressure"), Words::tr("bar"),
       Words::tr("Live record, byte 5"), ManifoldPressure},
      {"live_throttle", Words::tr("Throttle"), Words::tr("%"),
       Words::tr("Throttle position, input register 73"),
       [](const EcuImage& image) { return Whole(image.ThrottlePercent()); }},
      {"live_mode",
       Words::tr("Mode"),
       {},
       Words::tr("Operating mode, input register 74"),
       [](const EcuImage& image) { return Word(TranslatedMessage(ModeText(image.Mode()))); }},
      {"live_coolant", Words::tr("Coolant"), Words::tr("°C"),
       Words::tr("Coolant temperature, live record, byte 2"),
       [](const EcuImage& image) { return Whole(image.record.CoolantCelsius()); }},
      {"live_gas_temperature", Words::tr("Gas temperature"), Words::tr("°C"),
       Words::tr("Live record, byte 4"),
       [](const EcuImage& image) { return Whole(image.record.GasTemperatureTenths() / 10); }},
      {"live_lambda1", Words::tr("Lambda 1"), Words::tr("V"),
       Words::tr("Lambda 1 voltage, live record, byte 0"),
       [](const EcuImage& image) { return Fixed(image.record.Lambda1Volts(), 2); }},
      {"live_lambda2", Words::tr("Lambda 2"), Words::tr("V"),
       Words::tr("Lambda 2 voltage, live record, byte 1"), Lambda2},
      {"live_battery", Words::tr("Battery"), Words::tr("V"),
       Words::tr("Battery voltage, live record, byte 3"),
       [](const EcuImage& image) { return Fixed(image.record.BatteryVolts(), 1); }},
      {"live_gas_level", Words::tr("Gas level"), Words::tr("%"),
       Words::tr("Gas level, input register 76"),
       [](const EcuImage& image) { return Whole(image.GasLevelPercent()); }},
      {"live_fuel", Words::tr("Fuel"), {}, Words::tr("Fuel in use, input register 75"), FuelText},
  };
}

std::vector<LiveField> CylinderLiveFields() {
  std::vector<LiveField> fields;
  for (const bool gas : {false, true}) {
    for (std::size_t i = 0; i < kCylinders; ++i) {
      const int number = static_cast<int>(i) + 1;
      const int reg = kExtraChannelsRegister + static_cast<int>(gas ? kCylinders + i : i);
      fields.push_back({QString(gas ? "live_gas_cylinder%1" : "live_petrol_cylinder%1").arg(number),
                        (gas ? Words::tr("Gas %1") : Words::tr("Petrol %1")).arg(number),
                        Words::tr("ms"),
                        (gas ? Words::tr("Gas injection time of cylinder %1, input register %2")
                             : Words::tr("Petrol injection time of cylinder %1, input register %2"))
                            .arg(number)
                            .arg(reg),
                        [gas, i](const EcuImage& image) {
                          return Fixed((gas ? image.gas_times_ms : image.petrol_times_ms).at(i), 2);
                        }});
    }
  }
  return fields;
}

}  // namespace zelorgas
