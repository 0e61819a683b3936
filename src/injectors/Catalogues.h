// The gas injectors, sensors and lambda ranges that the program knows: small read-only lists whose
// order is that of the lists in the window. Constant data; any thread may read it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "platform/Message.h"

namespace zelorgas {

template <typename Record>
class Catalogue {
 public:
  constexpr explicit Catalogue(std::span<const Record> records) : records_(records) {}

  [[nodiscard]] std::size_t count() const { return records_.size(); }
  // Null when there are not so many.
  [[nodiscard]] const Record* at(std::size_t index) const {
    return index < records_.size() ? &records_[index] : nullptr;
  }
  // The first of exactly this name; null when there is none.
  [[nodiscard]] const Record* find(std::string_view name) const {
    const auto found = std::ranges::find(records_, name, &Record::name);
    return found == records_.end() ? nullptr : &*found;
  }
  [[nodiscard]] std::span<const Record> Records() const { return records_; }

 private:
  std::span<const Record> records_;
};

// A gas injector. Its values go to the ECU as they stand here.
struct InjectorTypeRecord {
  std::string_view name;
  std::uint16_t freq_gas_inj;
  std::uint16_t dc_gas_inj;
  std::uint16_t older_firmware;  // register 273 of firmware that does not know TONINJ_MIN
  std::uint16_t register_274;
  std::uint16_t fixed_nozzle;  // 1: the model's nozzle is what it is; 0: its diameter is entered
  std::uint16_t toff_holdfreq_inj;
  std::uint16_t toninj_min;
};

// A pressure sensor; zero point and full scale in the unit of PGAS0, PGASMAX, MAP0 and MAPMAX.
struct SensorTypeRecord {
  std::string_view name;
  std::uint16_t zero_point;
  std::uint16_t full_scale;
  std::uint32_t type_code;
};

struct SensorCodeRecord {
  std::string_view name;
  std::uint32_t type_code;
};

struct LambdaRangeRecord {
  std::string_view name;
  std::uint32_t type_code;
  double axis_maximum_volts;  // upper end of the axis on which the probe is plotted
};

// Placeholders of a list, which are never applied.
inline constexpr std::string_view kEmptyInjector = FixedText::Of("EMPTY");
inline constexpr std::string_view kNoSensor = FixedText::Of("NONE");
// The type code of the manifold sensor whose points come from a calibration.
inline constexpr std::uint32_t kCustomSensorCode = 255;

[[nodiscard]] Catalogue<InjectorTypeRecord> InjectorTypes();
[[nodiscard]] Catalogue<SensorTypeRecord> GasPressureSensors();
[[nodiscard]] Catalogue<SensorTypeRecord> MapSensors();
[[nodiscard]] Catalogue<SensorCodeRecord> GasTemperatureSensors();
[[nodiscard]] Catalogue<SensorCodeRecord> WaterTemperatureSensors();
[[nodiscard]] Catalogue<LambdaRangeRecord> LambdaRanges();

}  // namespace zelorgas
