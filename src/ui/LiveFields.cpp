#include "ui/LiveFields.h"

#include <QCoreApplication>

namespace zelorgas {
namespace {

QString Tr(const char* text) { return QCoreApplication::translate("LiveFields", text); }

LiveText Fixed(double value, int decimals) { return {QString::number(value, 'f', decimals)}; }
LiveText Whole(int value) { return {QString::number(value)}; }
LiveText Word(const QString& word) { return {word, false}; }
LiveText NotFitted() { return Word(Tr("Not fitted")); }

LiveText ManifoldPressure(const EcuImage& image) {
  if (!image.ManifoldSensorFitted()) return NotFitted();
  return Fixed(image.record.ManifoldPressureHundredths() / 100.0, 2);
}

LiveText Lambda2(const EcuImage& image) {
  if (!image.SecondLambdaFitted()) return NotFitted();
  return Fixed(image.record.Lambda2Volts(), 2);
}

LiveText FuelText(const EcuImage& image) {
  return Word(image.FuelInUse() == Fuel::kGas ? Tr("Gas") : Tr("Petrol"));
}

}  // namespace

std::vector<LiveField> MainLiveFields() {
  return {
      {"live_engine_speed", Tr("Engine speed"), Tr("1/min"), Tr("Live record, bytes 6 and 7"),
       [](const EcuImage& image) { return Whole(image.record.EngineSpeed()); }},
      {"live_petrol_time", Tr("Petrol injection"), Tr("ms"),
       Tr("Petrol injection time, input register 71"),
       [](const EcuImage& image) { return Fixed(image.PetrolTimeMicroseconds() / 1000.0, 2); }},
      {"live_gas_time", Tr("Gas injection"), Tr("ms"), Tr("Gas injection time, input register 72"),
       [](const EcuImage& image) { return Fixed(image.GasTimeMicroseconds() / 1000.0, 2); }},
      {"live_gas_pressure", Tr("Gas pressure"), Tr("bar"), Tr("Gas pressure P1, input register 43"),
       [](const EcuImage& image) { return Fixed(image.gas_pressure_bar, 2); }},
      {"live_manifold_pressure", Tr("Manifold pressure"), Tr("bar"), Tr("Live record, byte 5"),
       ManifoldPressure},
      {"live_throttle", Tr("Throttle"), Tr("%"), Tr("Throttle position, input register 73"),
       [](const EcuImage& image) { return Whole(image.ThrottlePercent()); }},
      {"live_mode",
       Tr("Mode"),
       {},
       Tr("Operating mode, input register 74"),
       [](const EcuImage& image) { return Word(Tr(ModeText(image.Mode()))); }},
      {"live_coolant", Tr("Coolant"), Tr("°C"), Tr("Coolant temperature, live record, byte 2"),
       [](const EcuImage& image) { return Whole(image.record.CoolantCelsius()); }},
      {"live_gas_temperature", Tr("Gas temperature"), Tr("°C"), Tr("Live record, byte 4"),
       [](const EcuImage& image) { return Whole(image.record.GasTemperatureTenths() / 10); }},
      {"live_lambda1", Tr("Lambda 1"), Tr("V"), Tr("Lambda 1 voltage, live record, byte 0"),
       [](const EcuImage& image) { return Fixed(image.record.Lambda1Volts(), 2); }},
      {"live_lambda2", Tr("Lambda 2"), Tr("V"), Tr("Lambda 2 voltage, live record, byte 1"),
       Lambda2},
      {"live_battery", Tr("Battery"), Tr("V"), Tr("Battery voltage, live record, byte 3"),
       [](const EcuImage& image) { return Fixed(image.record.BatteryVolts(), 1); }},
      {"live_gas_level", Tr("Gas level"), Tr("%"), Tr("Gas level, input register 76"),
       [](const EcuImage& image) { return Whole(image.GasLevelPercent()); }},
      {"live_fuel", Tr("Fuel"), {}, Tr("Fuel in use, input register 75"), FuelText},
  };
}

std::vector<LiveField> CylinderLiveFields() {
  std::vector<LiveField> fields;
  for (const bool gas : {false, true}) {
    for (std::size_t i = 0; i < kCylinders; ++i) {
      const int number = static_cast<int>(i) + 1;
      const int reg = kExtraChannelsRegister + static_cast<int>(gas ? kCylinders + i : i);
      fields.push_back({QString(gas ? "live_gas_cylinder%1" : "live_petrol_cylinder%1").arg(number),
                        (gas ? Tr("Gas %1") : Tr("Petrol %1")).arg(number), Tr("ms"),
                        (gas ? Tr("Gas injection time of cylinder %1, input register %2")
                             : Tr("Petrol injection time of cylinder %1, input register %2"))
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
