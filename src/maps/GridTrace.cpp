#include "maps/GridTrace.h"

#include <algorithm>

namespace zelorgas {

void TraceSeries::Append(double point) {
  twice_[next_] = point;
  twice_[next_ + kPoints] = point;
  next_ = (next_ + 1) % kPoints;
  count_ = std::min(count_ + 1, kPoints);
}

std::span<const double> TraceSeries::Points() const {
  const std::size_t first = count_ < kPoints ? 0 : next_;
  return std::span(twice_).subspan(first, count_);
}

void GridTrace::Add(std::span<const double> petrol_ms, std::span<const double> gas_ms) {
  const std::size_t count = std::min(petrol_ms.size(), gas_ms.size());
  for (std::size_t i = 0; i < count; ++i) {
    petrol_.Append(petrol_ms[i]);
    gas_.Append(gas_ms[i]);
  }
}

void GridTrace::Store() {
  stored_petrol_.assign(petrol_.Points().begin(), petrol_.Points().end());
  stored_gas_.assign(gas_.Points().begin(), gas_.Points().end());
}

bool GridTrace::TakeLive(const EcuImage& image) {
  const bool changed = fuel_ && *fuel_ != image.FuelInUse();
  if (changed) Store();
  fuel_ = image.FuelInUse();
  petrol_.Append(image.PetrolTimeMicroseconds() / 1000.0);
  gas_.Append(image.GasTimeMicroseconds() / 1000.0);
  return changed;
}

}  // namespace zelorgas
