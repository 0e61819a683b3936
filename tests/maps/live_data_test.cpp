#include <gmock/gmock.h>

#include "maps/GridTrace.h"
#include "maps/LiveMarker.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

TEST(GridTrace, KeepsTheLastPointsAndStoresThemWhenTheFuelChanges) {
  GridTrace trace;
  EcuImage image;
  for (std::uint16_t i = 1; i <= 1000; ++i) {
    image.live_block_b[0] = i;
    image.live_block_b[4] = i == 3 || i == 4 ? 1 : 0;
    EXPECT_EQ(trace.TakeLive(image), i == 3 || i == 5) << i;
    const std::span<const double> points = trace.Petrol();
    ASSERT_EQ(points.size(), std::min<std::size_t>(i, 300));
    ASSERT_EQ(points.back(), i / 1000.0);
    ASSERT_EQ(points.front(), (i + 1 - static_cast<int>(points.size())) / 1000.0);
    ASSERT_TRUE(std::ranges::is_sorted(points));
  }
  EXPECT_THAT(trace.StoredPetrol(), ElementsAre(0.001, 0.002, 0.003, 0.004));
}

TEST(LiveMarker, LeavesATrailThatFades) {
  LiveMarker marker;
  EXPECT_FALSE(marker.Position());
  const Clock::TimePoint start{};
  for (std::uint16_t i = 0; i < 100; ++i) {
    marker.MoveTo({{i, 2}, i + 0.5, 2.5}, start + milliseconds(100) * i);
  }
  EXPECT_EQ(marker.Position()->row, 99.5);
  const std::vector<TrailPoint> trail = marker.Trail(start + milliseconds(10000));
  ASSERT_EQ(trail.size(), 49U) << "of the last five seconds";
  EXPECT_NEAR(trail.front().strength, 0.02, 1e-9);
  EXPECT_NEAR(trail.back().strength, 0.98, 1e-9);
  marker.Hide();
  EXPECT_TRUE(marker.Trail(start).empty());
  EXPECT_EQ(marker.Cell(), (GridCell{99, 2})) << "a nudge still knows where";
}

}  // namespace
}  // namespace zelorgas
