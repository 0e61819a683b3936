// The live trace of petrol and gas injection times, and the one that was put aside when the fuel
// changed, to compare with. Used by the user-interface thread.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "app/EcuImage.h"

namespace zelorgas {

// The last points of a series. A point that shifts the others costs no more than one that does not.
class TraceSeries {
 public:
  static constexpr std::size_t kPoints = 300;

  void Append(double point);
  // Oldest first; valid until the next Append.
  [[nodiscard]] std::span<const double> Points() const;

 private:
  // Every point lies here twice, kPoints apart, so that the last kPoints always lie in one piece.
  std::array<double, 2 * kPoints> twice_{};
  std::size_t next_ = 0;  // below kPoints
  std::size_t count_ = 0;
};

class GridTrace {
 public:
  static constexpr std::string_view kPetrolPlot = "TonPet";
  static constexpr std::string_view kGasPlot = "TonGas";
  static constexpr std::string_view kStoredPetrolPlot = "TonPet_stored";
  static constexpr std::string_view kStoredGasPlot = "TonGas_stored";

  // As many of both as the shorter has; milliseconds.
  void Add(std::span<const double> petrol_ms, std::span<const double> gas_ms);
  // Puts the series as they are aside, until the next time.
  void Store();
  // One live update: a sample of each, and, when the fuel in use is another than in the update
  // before, what was there until then is stored. True when it was.
  bool TakeLive(const EcuImage& image);

  [[nodiscard]] std::span<const double> Petrol() const { return petrol_.Points(); }
  [[nodiscard]] std::span<const double> Gas() const { return gas_.Points(); }
  [[nodiscard]] const std::vector<double>& StoredPetrol() const { return stored_petrol_; }
  [[nodiscard]] const std::vector<double>& StoredGas() const { return stored_gas_; }

 private:
  TraceSeries petrol_;
  TraceSeries gas_;
  std::vector<double> stored_petrol_;
  std::vector<double> stored_gas_;
  std::optional<Fuel> fuel_;
};

}  // namespace zelorgas
