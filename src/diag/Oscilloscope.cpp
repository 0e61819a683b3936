#include "diag/Oscilloscope.h"

#include <algorithm>
#include <cmath>

namespace zelorgas {
namespace {

constexpr double kSamplesAtScaleOne = 400;

}  // namespace

void Oscilloscope::StretchTime() { time_scale_ = std::min(time_scale_ * 2, kLargestTimeScale); }
void Oscilloscope::ShrinkTime() { time_scale_ = std::max(time_scale_ / 2, kSmallestTimeScale); }

void Oscilloscope::FitTimeScale(std::size_t samples) {
  while (Capacity() < samples && time_scale_ < kLargestTimeScale) StretchTime();
}

std::size_t Oscilloscope::Capacity() const {
  return static_cast<std::size_t>(kSamplesAtScaleOne * time_scale_);
}

void Oscilloscope::AddSamples(const EcuImage& image, std::span<const LiveRecord> records) {
  for (const LiveRecord& record : records) AddSample(ScopeSampleOf(image, record));
}

void Oscilloscope::AddSample(const ScopeSample& sample) {
  if (!recording_) return;
  const std::size_t capacity = Capacity();
  for (std::size_t i = 0; i < kScopeChannels; ++i) {
    std::deque<double>& samples = traces_.channels[i];
    if (samples.size() >= capacity) samples.pop_back();
    samples.push_front(sample[i]);
  }
  ++changes_;
}

std::array<std::optional<double>, kScopeChannels> Oscilloscope::ReadOut(double seconds) const {
  const double place = std::round(seconds / kScopeSamplePeriodSeconds);
  // Also what is no number is nowhere on the axis.
  if (!(place >= 0 && place < static_cast<double>(traces_.Length()))) return {};
  return ScopeReadOut(traces_, static_cast<std::size_t>(place));
}

void Oscilloscope::SetNotes(std::string notes) {
  if (notes == traces_.notes) return;
  traces_.notes = std::move(notes);
  ++changes_;
}

bool Oscilloscope::Unsaved() const {
  return changes_ != saved_changes_ && (traces_.Length() > 0 || !traces_.notes.empty());
}

void Oscilloscope::Show(ScopeTraces traces) {
  traces_ = std::move(traces);
  saved_changes_ = ++changes_;
}

}  // namespace zelorgas
