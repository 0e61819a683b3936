#include "platform/LineTiming.h"

#include <algorithm>
#include <chrono>

namespace zelorgas {
namespace {

// Bound of a write whose port has no write time-outs: what is stuck behind flow control for longer
// than this will not go out.
constexpr std::chrono::milliseconds kWriteGrace{1000};

// Keeps the sum of a clock reading and a limit inside what a time point holds.
constexpr std::chrono::milliseconds kLongest{std::chrono::hours{24 * 365}};

}  // namespace

Clock::Duration CharacterTime(const LineSettings& settings) {
  if (settings.baud == 0) return Clock::Duration{0};
  const unsigned half_bits = 2U * (1U + settings.data_bits) +
                             (settings.parity == Parity::kNone ? 0U : 2U) + 2U +
                             static_cast<unsigned>(settings.stop_bits);
  return Clock::Duration{std::chrono::seconds{half_bits}} / 2 / settings.baud;
}

Clock::Duration TotalLimit(std::uint32_t multiplier, std::uint32_t constant, std::size_t count) {
  const auto most = static_cast<std::uint64_t>(kLongest.count());
  if (multiplier != 0 && count > most / multiplier) return kLongest;
  return std::min(kLongest,
                  std::chrono::milliseconds{std::uint64_t{multiplier} * count + constant});
}

Clock::Duration WriteLimit(const PortTimeouts& timeouts, std::size_t count,
                           Clock::Duration wire_time) {
  const Clock::Duration limit =
      TotalLimit(timeouts.write_total_multiplier, timeouts.write_total_constant, count);
  return wire_time + (limit > Clock::Duration{0} ? limit : kWriteGrace);
}

}  // namespace zelorgas
