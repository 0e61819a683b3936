// Where in the correction grid the engine runs, and where it ran in the last seconds. Any thread
// may call anything.
#pragma once

#include <chrono>
#include <deque>
#include <mutex>
#include <optional>
#include <vector>

#include "maps/GridAxes.h"
#include "platform/Clock.h"

namespace zelorgas {

struct TrailPoint {
  GridPosition position;
  Clock::TimePoint when{};
  double strength = 0;  // 1 when it is new, falling to 0 as it fades
};

class LiveMarker {
 public:
  static constexpr std::chrono::seconds kTrailTime{5};

  void MoveTo(GridPosition position, Clock::TimePoint now);
  // Empty until the engine has been seen.
  [[nodiscard]] std::optional<GridPosition> Position() const;
  // The cell in which the engine last ran; (0, 0) until then.
  [[nodiscard]] GridCell Cell() const;
  // The positions of the last kTrailTime, oldest first, the marker's own among them.
  [[nodiscard]] std::vector<TrailPoint> Trail(Clock::TimePoint now) const;
  // The engine is out of sight: no marker, no trail. The live cell stays.
  void Hide();
  // As if no engine had ever been seen.
  void Forget();

 private:
  struct Stamped {
    GridPosition position;
    Clock::TimePoint when;
  };

  mutable std::mutex lock_;
  std::optional<GridPosition> position_;  // guarded by lock_, as are the others
  GridCell cell_;
  std::deque<Stamped> trail_;
};

}  // namespace zelorgas
