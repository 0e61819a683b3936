#include <gtest/gtest.h>

#include <random>
#include <utility>

#include "maps/GridAxes.h"

namespace zelorgas {
namespace {

TEST(GridAxes, PlacesAValueBetweenRisingCentres) {
  const AxisCentres centres{1000, 2000, 4000,  5000,  6000,  7000,
                            8000, 9000, 10000, 11000, 12000, 13000};
  // Half a band up to its centre and half a band behind it, however wide they are.
  const std::pair<double, double> cases[] = {
      {0, 0},       {500, 0.25},   {1000, 0.5},    {1250, 0.75},   {1750, 1.25},  {2500, 1.75},
      {3500, 2.25}, {13000, 11.5}, {13250, 11.75}, {13500, 11.99}, {20000, 11.99}};
  for (const auto& [value, expected] : cases) {
    const AxisPlace place = LocateOnAxis(centres, value);
    EXPECT_NEAR(place.band + place.fraction, expected, 1e-9) << value;
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
  Message message;
  for (const char* const speed : {"6.000", "6,000", "1e3", "+600", ""}) {
    texts[0] = speed;
    EXPECT_FALSE(ParseCentres(texts, texts, message)) << speed;
  }
  texts[0] = texts[1];
  EXPECT_FALSE(ParseCentres(texts, texts, message));
  EXPECT_EQ(message, "Column 1: \"65.535\" is not a whole number from 0 to 65535!");
  texts.fill("66");
  EXPECT_FALSE(ParseCentres(texts, texts, message));
  EXPECT_EQ(message, "Row 1: \"66\" is not a number from 0 to 65.535!");
}

}  // namespace
}  // namespace zelorgas
