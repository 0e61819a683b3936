// The twelve signals of the oscilloscope: their names and colours, and how each is computed from
// the ECU's live values. Plain data and pure functions, safe from any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "app/EcuImage.h"

namespace zelorgas {

inline constexpr std::size_t kScopeChannels = 12;
// Of the ECU's live records, each of which gives one sample.
inline constexpr double kScopeSamplePeriodSeconds = 0.1;

// In the order of files and tables.
enum class ScopeChannel : std::uint8_t {
  kRpm,
  kTgas,
  kTwat,
  kP1,
  kMap,
  kDeltaP,
  kLambda,
  kLambda2,
  kAccum,
  kTpet,
  kTinj,
  kTps,
};

struct ScopeChannelInfo {
  std::string_view name;  // of the plot, in files and in the settings
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

[[nodiscard]] const std::array<ScopeChannelInfo, kScopeChannels>& ScopeChannelTable();

// One value a channel, scaled as the graph shows it.
using ScopeSample = std::array<double, kScopeChannels>;

// What the channels record for one live record, the other live values being those of `image`. The
// channels of a sensor that is not fitted record 0.
[[nodiscard]] ScopeSample ScopeSampleOf(const EcuImage& image, const LiveRecord& record);

// False for the channels of a sensor that is not fitted.
[[nodiscard]] bool IsScopeChannelPresent(const EcuImage& image, ScopeChannel channel);

// What a recording holds. Samples stand newest first; the channels may differ in length.
struct ScopeTraces {
  std::array<std::deque<double>, kScopeChannels> channels;
  std::string notes;

  // Of the longest channel.
  [[nodiscard]] std::size_t Length() const;
  [[nodiscard]] double Seconds() const {
    return static_cast<double>(Length()) * kScopeSamplePeriodSeconds;
  }
};

// What the channels show `samples_ago`; nothing for a channel that does not reach so far back.
[[nodiscard]] std::array<std::optional<double>, kScopeChannels> ScopeReadOut(
    const ScopeTraces& traces, std::size_t samples_ago);

}  // namespace zelorgas
