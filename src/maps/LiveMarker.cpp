#include "maps/LiveMarker.h"

namespace zelorgas {
namespace {

// More than the trail's time can bring at the rate of the live records.
constexpr std::size_t kTrailPoints = 256;

}  // namespace

void LiveMarker::MoveTo(GridPosition position, Clock::TimePoint now) {
  const std::lock_guard guard(lock_);
  position_ = position;
  cell_ = position.cell;
  while (!trail_.empty() &&
         (trail_.size() == kTrailPoints || now - trail_.front().when >= kTrailTime)) {
    trail_.pop_front();
  }
  trail_.push_back({position, now});
}

std::optional<GridPosition> LiveMarker::Position() const {
  const std::lock_guard guard(lock_);
  return position_;
}

GridCell LiveMarker::Cell() const {
  const std::lock_guard guard(lock_);
  return cell_;
}

std::vector<TrailPoint> LiveMarker::Trail(Clock::TimePoint now) const {
  const std::lock_guard guard(lock_);
  std::vector<TrailPoint> points;
  for (const Stamped& point : trail_) {
    const double age = std::chrono::duration<double>(now - point.when) / kTrailTime;
    if (age < 1) points.push_back({point.position, point.when, 1 - age});
  }
  return points;
}

void LiveMarker::Hide() {
  const std::lock_guard guard(lock_);
  position_.reset();
  trail_.clear();
}

void LiveMarker::Forget() {
  Hide();
  const std::lock_guard guard(lock_);
  cell_ = {};
}

}  // namespace zelorgas
