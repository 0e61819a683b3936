#include "diag/ScopeChannels.h"

#include <algorithm>
#include <cmath>

namespace zelorgas {

const std::array<ScopeChannelInfo, kScopeChannels>& ScopeChannelTable() {
  static constexpr std::array<ScopeChannelInfo, kScopeChannels> kTable{{
      {"RPM", 255, 0, 0},
      {"Tgas", 128, 0, 0},
      {"Twat", 255, 255, 0},
      {"P1", 0, 255, 0},
      {"MAP", 0, 255, 255},
      {"deltaP", 0, 128, 0},
      {"Lambda", 0, 128, 128},
      {"Lambda2", 128, 128, 0},
      {"Accum", 0, 0, 255},
      {"Tpet", 128, 0, 128},
      {"Tinj", 255, 0, 255},
      {"TPS", 255, 255, 255},
  }};
  return kTable;
}

bool IsScopeChannelPresent(const EcuImage& image, ScopeChannel channel) {
  switch (channel) {
    case ScopeChannel::kMap:
    case ScopeChannel::kDeltaP:
      return image.ManifoldSensorFitted();
    case ScopeChannel::kLambda2:
      return image.SecondLambdaFitted();
    default:
      return true;
  }
}

ScopeSample ScopeSampleOf(const EcuImage& image, const LiveRecord& record) {
  // In hundredths of a bar, as the ECU gives it.
  const double pressure = std::round(image.gas_pressure_bar * 100);
  const double manifold = record.ManifoldPressureHundredths();
  const ScopeSample all{
      record.EngineSpeed() / 1000.0,
      record.GasTemperatureTenths() / 100.0,
      record.CoolantCelsius() / 10.0,
      pressure / 100,
      manifold / 100,
      (pressure - manifold) / 100,
      record.bytes[0] / 10.0,
      record.Lambda2Volts(),
      record.BatteryVolts(),
      image.PetrolTimeMicroseconds() / 1000.0,
      image.GasTimeMicroseconds() / 1000.0,
      image.ThrottlePercent() / 10.0,
  };
  ScopeSample sample{};
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    if (IsScopeChannelPresent(image, static_cast<ScopeChannel>(i))) sample[i] = all[i];
  }
  return sample;
}

std::size_t ScopeTraces::Length() const {
  std::size_t longest = 0;
  for (const std::deque<double>& samples : channels) longest = std::max(longest, samples.size());
  return longest;
}

std::array<std::optional<double>, kScopeChannels> ScopeReadOut(const ScopeTraces& traces,
                                                               std::size_t samples_ago) {
  std::array<std::optional<double>, kScopeChannels> values;
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    const std::deque<double>& samples = traces.channels[i];
    if (samples_ago < samples.size()) values[i] = samples[samples_ago];
  }
  return values;
}

}  // namespace zelorgas
