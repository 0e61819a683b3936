#include <gmock/gmock.h>

#include "maps/GridTrace.h"

namespace zelorgas {
namespace {

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

}  // namespace
}  // namespace zelorgas
