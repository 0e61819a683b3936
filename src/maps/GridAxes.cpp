#include "maps/GridAxes.h"

#include <algorithm>

#include "config/ConfigurationBlock.h"
#include "config/ConfigurationNumbers.h"
#include "maps/DecimalNumber.h"

namespace zelorgas {
namespace {

constexpr double kSpeedStepRpm = 600;
constexpr double kTimeStepMs = 2;
constexpr double kPastTheEnd = 0.99;
constexpr double kLargestSpeedRpm = 65535;
constexpr double kLargestTimeMs = 65.535;

std::optional<double> ParseCentre(std::string_view text, double largest) {
  const std::optional<double> value = ParseDecimal(Trimmed(text));
  return value && *value >= 0 && *value <= largest ? value : std::nullopt;
}

// Digits alone: the point of "6.000" is for some a decimal point, for others not.
std::optional<double> ParseSpeed(std::string_view text) {
  if (Trimmed(text).find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  return ParseCentre(text, kLargestSpeedRpm);
}

}  // namespace

std::uint16_t GridCell::Register() const {
  return RegisterOfWord(block_layout::kGridCells + row * block_layout::kGridAxisPoints + column);
}

GridAxes DefaultAxes() {
  GridAxes axes;
  for (std::size_t i = 0; i < kGridSize; ++i) {
    axes.speeds_rpm[i] = kSpeedStepRpm * static_cast<double>(i + 1);
    axes.times_ms[i] = kTimeStepMs * static_cast<double>(i + 1);
  }
  return axes;
}

GridMatrix DefaultCoefficients() {
  GridMatrix matrix;
  matrix.fill({1.60, 1.60, 1.60, 1.50, 1.50, 1.45, 1.45, 1.40, 1.40, 1.40, 1.40, 1.40});
  return matrix;
}

std::string SpeedText(double speed_rpm) { return FormatFixed(speed_rpm, 0); }
std::string TimeText(double time_ms) { return FormatFixed(time_ms, 1); }
std::string CoefficientText(double coefficient) { return FormatFixed(coefficient, 2); }

AxisPlace LocateOnAxis(const AxisCentres& centres, double value) {
  // No engine runs below 0; there the first band would have no part below its centre.
  value = std::max(value, 0.0);
  constexpr std::size_t kLast = kGridSize - 1;
  double lower = 0;
  for (std::size_t band = 0; band < kGridSize; ++band) {
    const double centre = centres[band];
    const double upper = band == kLast ? 2 * centre - lower : (centre + centres[band + 1]) / 2;
    if (upper > value) {
      // lower <= value < upper here, so neither difference below can be 0.
      const double fraction = value < centre ? 0.5 * (value - lower) / (centre - lower)
                                             : 0.5 * (1 + (value - centre) / (upper - centre));
      return {static_cast<std::uint16_t>(band), fraction};
    }
    lower = upper;
  }
  return {kLast, kPastTheEnd};
}

GridPosition Locate(const GridAxes& axes, double speed_rpm, double time_ms) {
  const AxisPlace row = LocateOnAxis(axes.times_ms, time_ms);
  const AxisPlace column = LocateOnAxis(axes.speeds_rpm, speed_rpm);
  return {{row.band, column.band}, row.band + row.fraction, column.band + column.fraction};
}

std::optional<GridAxes> ParseCentres(std::span<const std::string, kGridSize> speeds,
                                     std::span<const std::string, kGridSize> times,
                                     Message& message) {
  GridAxes axes;
  for (std::size_t i = 0; i < kGridSize; ++i) {
    const std::optional<double> speed = ParseSpeed(speeds[i]);
    if (!speed) {
      message = {FixedText::Of("Column %1: \"%2\" is not a whole number from 0 to 65535!"), i + 1,
                 speeds[i]};
      return std::nullopt;
    }
    const std::optional<double> time = ParseCentre(times[i], kLargestTimeMs);
    if (!time) {
      message = {FixedText::Of("Row %1: \"%2\" is not a number from 0 to 65.535!"), i + 1,
                 times[i]};
      return std::nullopt;
    }
    axes.speeds_rpm[i] = *speed;
    axes.times_ms[i] = *time;
  }
  return axes;
}

}  // namespace zelorgas
