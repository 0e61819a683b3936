#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "maps/GridAxes.h"

namespace zelorgas {
namespace {

// Independent of the search by bands: a line through the ends and the centres of the bands, which
// counts half a band between two of its points.
double OnTheLine(const AxisCentres& centres, double value) {
  std::vector<double> knots{0};
  for (std::size_t i = 0; i < kGridSize; ++i) {
    if (i > 0) knots.push_back((centres[i - 1] + centres[i]) / 2);
    knots.push_back(centres[i]);
  }
  knots.push_back(2 * centres.back() - knots[knots.size() - 2]);
  if (value >= knots.back()) return 11.99;
  std::size_t after = 1;
  while (knots[after] <= value) ++after;
  const double share = (value - knots[after - 1]) / (knots[after] - knots[after - 1]);
  return (static_cast<double>(after - 1) + share) / 2;
}

TEST(GridAxes, PlacesAValueBetweenRisingCentres) {
  std::minstd_rand random(7);
  for (int axis = 0; axis < 200; ++axis) {
    AxisCentres centres{};
    double centre = 0;
    for (double& c : centres) c = centre += 1 + static_cast<double>(random() % 900);
    for (double value = 0; value < centre * 1.3; value += centre / 97) {
      const AxisPlace place = LocateOnAxis(centres, value);
      ASSERT_NEAR(place.band + place.fraction, OnTheLine(centres, value), 1e-9) << value;
    }
  }
  EXPECT_EQ(Locate(DefaultAxes(), 20000, 0).column, 11.99);
  EXPECT_EQ(Locate(DefaultAxes(), 20000, 0).row, 0);
}

TEST(GridAxes, FindsABandWhateverTheCentresAre) {
  std::minstd_rand random(3);
  for (int axis = 0; axis < 2000; ++axis) {
    AxisCentres centres{};
    // Many zeros and repeats, in no order.
    for (double& c : centres) c = static_cast<double>(random() % 4) * 500;
    for (double value = -100; value < 4000; value += 250) {
      const AxisPlace place = LocateOnAxis(centres, value);
      ASSERT_LT(place.band, kGridSize);
      ASSERT_TRUE(place.fraction >= 0 && place.fraction <= 1) << place.fraction;
    }
  }
  EXPECT_EQ(LocateOnAxis({}, 0).band, 11);
  EXPECT_EQ(LocateOnAxis({3000, 1000, 2000}, 1700).band, 0) << "the first band that ends above";
}

TEST(GridAxes, NamesTheTypedCentreThatIsWrong) {
  std::array<std::string, kGridSize> texts;
  texts.fill("65.535");
  std::string message;
  EXPECT_FALSE(ParseCentres(texts, texts, message));
  EXPECT_EQ(message, "Column 1: \"65.535\" is not a whole number from 0 to 65535!");
  texts.fill("66");
  EXPECT_FALSE(ParseCentres(texts, texts, message));
  EXPECT_EQ(message, "Row 1: \"66\" is not a number from 0 to 65.535!");
}

}  // namespace
}  // namespace zelorgas
