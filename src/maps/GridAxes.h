// The correction grid's shape: twelve rows by petrol injection time, twelve columns by engine
// speed, the centres of both, and where between them the engine runs. Pure functions, for any
// thread.
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/Message.h"

namespace zelorgas {

// The ECU keeps 16 x 16 cells; these are shown and edited, whatever its counts in use say.
inline constexpr std::size_t kGridSize = 12;

// Counted from 0.
struct GridCell {
  std::uint16_t row = 0;
  std::uint16_t column = 0;

  [[nodiscard]] constexpr bool InGrid() const { return row < kGridSize && column < kGridSize; }
  // The ECU's holding register of the coefficient.
  [[nodiscard]] std::uint16_t Register() const;

  friend auto operator<=>(const GridCell&, const GridCell&) = default;
};

using GridMatrix = std::array<std::array<double, kGridSize>, kGridSize>;  // [row][column]
using AxisCentres = std::array<double, kGridSize>;

struct GridAxes {
  AxisCentres speeds_rpm{};  // of the columns
  AxisCentres times_ms{};    // of the rows

  friend bool operator==(const GridAxes&, const GridAxes&) = default;
};

// What the program shows until the ECU's values have come: 600 to 7200 1/min, 2 to 24 ms, and
// coefficients from 1.60 at low speed to 1.40.
[[nodiscard]] GridAxes DefaultAxes();
[[nodiscard]] GridMatrix DefaultCoefficients();

inline constexpr FixedText kGridCornerText = FixedText::Of("Tpet/RPM");
inline constexpr FixedText kSurfaceTimeAxis = FixedText::Of("Tpet, ms");
inline constexpr FixedText kSurfaceSpeedAxis = FixedText::Of("RPM, 1/min");
inline constexpr FixedText kSurfaceCoefficientAxis = FixedText::Of("Coef");

[[nodiscard]] std::string SpeedText(double speed_rpm);          // "%d"
[[nodiscard]] std::string TimeText(double time_ms);             // "%.1f"
[[nodiscard]] std::string CoefficientText(double coefficient);  // "%.2f"

// A place on an axis: the band, and how far in it, 0 at its lower end, 0.5 at its centre.
struct AxisPlace {
  std::uint16_t band = 0;
  double fraction = 0;
};

// The bands meet half-way between neighbouring centres; the first begins at 0, the last ends as far
// above its centre as it begins below. Past that end: the last band, 0.99. Centres may be zero, the
// same or out of order: the first band that ends above `value` is the one.
[[nodiscard]] AxisPlace LocateOnAxis(const AxisCentres& centres, double value);

// Where the engine runs: row 2.5 is the centre of row 2.
struct GridPosition {
  GridCell cell;
  double row = 0;
  double column = 0;
};
[[nodiscard]] GridPosition Locate(const GridAxes& axes, double speed_rpm, double time_ms);

// The centres that a person has typed: whole speeds, decimal times. Their order is not checked.
// Nothing, and `message` for the person, when a text is no number or no register can hold it.
[[nodiscard]] std::optional<GridAxes> ParseCentres(std::span<const std::string, kGridSize> speeds,
                                                   std::span<const std::string, kGridSize> times,
                                                   Message& message);

}  // namespace zelorgas
