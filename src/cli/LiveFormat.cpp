#include "cli/LiveFormat.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "cli/Text.h"

namespace zelorgas {
namespace {

struct LiveValue {
  std::optional<double> number;  // none: the word, or nothing where the sensor is not fitted
  int decimals = 0;
  std::string_view word = {};
};

struct LiveColumn {
  std::string_view key;
  std::string_view title;
  std::string_view unit;
  std::size_t width;  // of the table's column
  LiveValue (*value)(const LiveSample& sample);
};

LiveValue ManifoldPressure(const LiveSample& sample) {
  if (!sample.image.ManifoldSensorFitted()) return {};
  return {sample.image.record.ManifoldPressureHundredths() / 100.0, 2};
}

LiveValue Lambda2(const LiveSample& sample) {
  if (!sample.image.SecondLambdaFitted()) return {};
  return {sample.image.record.Lambda2Volts(), 2};
}

LiveValue FuelInUse(const LiveSample& sample) {
  return {{}, 0, sample.image.FuelInUse() == Fuel::kGas ? "Gas" : "Petrol"};
}

constexpr auto kColumns = std::to_array<LiveColumn>({
    {"time_s", "time", "s", 8,
     [](const LiveSample& s) -> LiveValue {
       return {s.seconds, 3};
     }},
    {"engine_speed_rpm", "engine", "1/min", 6,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.record.EngineSpeed(), 0};
     }},
    {"petrol_time_ms", "petrol", "ms", 6,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.PetrolTimeMicroseconds() / 1000.0, 3};
     }},
    {"gas_time_ms", "gas", "ms", 6,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.GasTimeMicroseconds() / 1000.0, 3};
     }},
    {"gas_pressure_bar", "P1", "bar", 6,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.gas_pressure_bar, 2};
     }},
    {"manifold_pressure_bar", "MAP", "bar", 5, ManifoldPressure},
    {"throttle_percent", "throttle", "%", 8,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.ThrottlePercent(), 0};
     }},
    {"coolant_celsius", "coolant", "C", 7,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.record.CoolantCelsius(), 0};
     }},
    {"gas_temperature_celsius", "T gas", "C", 5,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.record.GasTemperatureTenths() / 10.0, 0};
     }},
    {"lambda1_volts", "lambda1", "V", 7,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.record.Lambda1Volts(), 2};
     }},
    {"lambda2_volts", "lambda2", "V", 7, Lambda2},
    {"battery_volts", "battery", "V", 7,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.record.BatteryVolts(), 1};
     }},
    {"gas_level_percent", "level", "%", 5,
     [](const LiveSample& s) -> LiveValue {
       return {s.image.GasLevelPercent(), 0};
     }},
    {"mode", "mode", "", 10,
     [](const LiveSample& s) -> LiveValue {
       return {{}, 0, ModeText(s.image.Mode())};
     }},
    {"fuel", "fuel", "", 6, FuelInUse},
});

// Empty where the sensor is not fitted.
std::string TextOf(const LiveValue& value) {
  return value.number ? FormatFixed(*value.number, value.decimals) : std::string(value.word);
}

// The texts of all columns, flush right, as one line. `text` gives that of a column.
template <typename Text>
std::string TableLine(Text text) {
  std::string line;
  for (const LiveColumn& column : kColumns) {
    const std::string cell(text(column));
    if (!line.empty()) line += ' ';
    if (cell.size() < column.width) line.append(column.width - cell.size(), ' ');
    line += cell;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

template <typename Text>
std::string CsvLine(Text text) {
  std::string line;
  for (const LiveColumn& column : kColumns) {
    if (&column != kColumns.begin()) line += ',';
    line += text(column);
  }
  return line;
}

}  // namespace

std::string LiveHeader() {
  return TableLine([](const LiveColumn& column) { return column.title; }) + '\n' +
         TableLine([](const LiveColumn& column) { return column.unit; });
}

std::string LiveLine(const LiveSample& sample) {
  return TableLine([&](const LiveColumn& column) {
    const std::string text = TextOf(column.value(sample));
    return text.empty() ? "-" : text;
  });
}

std::string LiveCsvHeader() {
  return CsvLine([](const LiveColumn& column) { return column.key; });
}

std::string LiveCsvLine(const LiveSample& sample) {
  return CsvLine([&](const LiveColumn& column) { return TextOf(column.value(sample)); });
}

JsonWriter LiveJson(const LiveSample& sample) {
  JsonWriter document;
  document.BeginObject();
  for (const LiveColumn& column : kColumns) {
    const LiveValue value = column.value(sample);
    document.Key(column.key);
    if (value.number) {
      document.Decimal(*value.number, value.decimals);
    } else if (!value.word.empty()) {
      document.String(value.word);
    } else {
      document.Null();
    }
  }
  document.EndObject();
  return document;
}

}  // namespace zelorgas
