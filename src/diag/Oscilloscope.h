// The oscilloscope without its graph: twelve channels that fill up to what the time axis shows and
// then shift, the time scale, run and stop, the notes, and whether anything of it is unsaved. One
// thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "diag/ScopeChannels.h"

namespace zelorgas {

// What the oscilloscope held at one moment, for a file that is named and written later.
struct ScopeSnapshot {
  ScopeTraces traces;
  std::uint64_t changes = 0;
};

class Oscilloscope {
 public:
  static constexpr double kLargestTimeScale = 16;
  static constexpr double kSmallestTimeScale = 0.0625;

  [[nodiscard]] bool Recording() const { return recording_; }
  // Run and stop. Stopping clears nothing.
  void SetRecording(bool recording) { recording_ = recording; }

  // The time axis shows the newest sample at 0 and ends at SpanSeconds. Changing the scale drops no
  // sample: a channel that is longer than the new capacity keeps its length.
  [[nodiscard]] double TimeScale() const { return time_scale_; }
  void StretchTime();  // twice the scale
  void ShrinkTime();   // half the scale
  // Up to a scale whose capacity takes `samples`, or the largest.
  void FitTimeScale(std::size_t samples);
  [[nodiscard]] double SpanSeconds() const { return 40 * time_scale_; }
  [[nodiscard]] double MajorDivisionSeconds() const { return 2 * time_scale_; }
  [[nodiscard]] double MinorDivisionSeconds() const { return time_scale_; }
  // How many samples a channel grows to.
  [[nodiscard]] std::size_t Capacity() const;

  // Takes one sample of all channels for each record, the oldest record first. Does nothing while
  // not recording.
  void AddSamples(const EcuImage& image, std::span<const LiveRecord> records);
  void AddSample(const ScopeSample& sample);

  [[nodiscard]] const ScopeTraces& Traces() const { return traces_; }
  [[nodiscard]] const std::deque<double>& Samples(ScopeChannel channel) const {
    return traces_.channels[static_cast<std::size_t>(channel)];
  }
  // What all channels show at a place of the time axis.
  [[nodiscard]] std::array<std::optional<double>, kScopeChannels> ReadOut(double seconds) const;

  [[nodiscard]] const std::string& Notes() const { return traces_.notes; }
  void SetNotes(std::string notes);

  // Grows by one with every sample of all channels, and with every other change of what a file
  // would hold.
  [[nodiscard]] std::uint64_t Changes() const { return changes_; }
  [[nodiscard]] ScopeSnapshot Snapshot() const { return {traces_, changes_}; }
  // True when the traces or the notes are in no file.
  [[nodiscard]] bool Unsaved() const;
  // What was there at that number of changes is in a file.
  void MarkSaved(std::uint64_t changes) { saved_changes_ = changes; }
  // Shows a recording from a file in place of what was there.
  void Show(ScopeTraces traces);

 private:
  ScopeTraces traces_;
  double time_scale_ = 1;
  bool recording_ = true;
  std::uint64_t changes_ = 0;
  std::uint64_t saved_changes_ = 0;
};

}  // namespace zelorgas
