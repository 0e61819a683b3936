#include "diag/Oscilloscope.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zelorgas {
namespace {

ScopeSample All(double value) {
  ScopeSample sample;
  sample.fill(value);
  return sample;
}

void Add(Oscilloscope& scope, int count) {
  for (int i = 0; i < count; ++i) scope.AddSample(All(i));
}

EcuImage ImageWith(std::uint16_t manifold_installed, std::uint16_t lambda2_installed) {
  EcuImage image;
  image.StoreRegister(304, manifold_installed);
  image.StoreRegister(303, lambda2_installed);
  image.gas_pressure_bar = 135 / 100.0;
  image.live_block_b = {4321, 65'535, 0xFFF6};
  return image;
}

TEST(ScopeChannels, ScaleWhatTheEcuGives) {
  const LiveRecord record{{55, 41, 0xF4, 138, 0x80, 7, 0x7A, 0x0D}};
  const struct {
    std::uint16_t manifold;
    std::uint16_t lambda2;
    ScopeSample expected;
  } cases[] = {
      {1, 1, {3.45, -12.8, -1.2, 1.35, 0.7, 0.65, 5.5, 0.82, 13.8, 4.321, 65.535, -1}},
      {0, 1, {3.45, -12.8, -1.2, 1.35, 0, 0, 5.5, 0.82, 13.8, 4.321, 65.535, -1}},
      {1, 0, {3.45, -12.8, -1.2, 1.35, 0.7, 0.65, 5.5, 0, 13.8, 4.321, 65.535, -1}},
  };
  for (const auto& c : cases) {
    const EcuImage image = ImageWith(c.manifold, c.lambda2);
    EXPECT_EQ(ScopeSampleOf(image, record), c.expected);
    EXPECT_EQ(IsScopeChannelPresent(image, ScopeChannel::kMap), c.manifold != 0);
    EXPECT_EQ(IsScopeChannelPresent(image, ScopeChannel::kDeltaP), c.manifold != 0);
    EXPECT_EQ(IsScopeChannelPresent(image, ScopeChannel::kLambda2), c.lambda2 != 0);
    EXPECT_TRUE(IsScopeChannelPresent(image, ScopeChannel::kLambda));
  }
}

TEST(Oscilloscope, TheTimeScaleDoublesAndHalvesBetweenItsLimits) {
  Oscilloscope scope;
  EXPECT_EQ(scope.Capacity(), 400U);
  for (int i = 0; i < 6; ++i) scope.StretchTime();
  EXPECT_EQ(scope.TimeScale(), 16);
  EXPECT_EQ(scope.SpanSeconds(), 640);
  EXPECT_EQ(scope.MajorDivisionSeconds(), 32);
  EXPECT_EQ(scope.MinorDivisionSeconds(), 16);
  for (int i = 0; i < 20; ++i) scope.ShrinkTime();
  EXPECT_EQ(scope.TimeScale(), 0.0625);
  const std::pair<std::size_t, std::size_t> fits[] = {
      {0, 25}, {25, 25}, {26, 50}, {400, 400}, {401, 800}, {6400, 6400}, {9999, 6400}};
  for (const auto& [samples, capacity] : fits) {
    scope.FitTimeScale(samples);
    EXPECT_EQ(scope.Capacity(), capacity);
  }
}

TEST(Oscilloscope, GrowsToItsCapacityAndThenShifts) {
  Oscilloscope scope;
  Add(scope, 399);
  EXPECT_EQ(scope.Traces().Length(), 399U);
  Add(scope, 2);
  for (const auto& samples : scope.Traces().channels) {
    ASSERT_EQ(samples.size(), 400U);
    EXPECT_EQ(samples[0], 1) << "the newest";
    EXPECT_EQ(samples[2], 398);
    EXPECT_EQ(samples[399], 1) << "0, the oldest, has fallen off";
  }
  scope.ShrinkTime();
  Add(scope, 5);
  EXPECT_EQ(scope.Traces().Length(), 400U) << "longer than the new capacity, it keeps its length";
  EXPECT_EQ(scope.Samples(ScopeChannel::kRpm)[4], 0);
}

TEST(Oscilloscope, AStoppedOneTakesNothing) {
  Oscilloscope scope;
  EXPECT_FALSE(scope.Unsaved());
  scope.SetNotes("nothing recorded yet");
  EXPECT_TRUE(scope.Unsaved());
  scope.SetNotes("");
  EXPECT_FALSE(scope.Unsaved()) << "there is nothing to save";
  scope.SetRecording(false);
  scope.AddSamples({}, std::vector<LiveRecord>(3));
  EXPECT_EQ(scope.Traces().Length(), 0U);
  scope.SetRecording(true);
  scope.AddSamples({}, std::vector<LiveRecord>{{{1}}, {{2}}});
  scope.SetRecording(false);
  EXPECT_EQ(scope.Samples(ScopeChannel::kLambda), (std::deque<double>{0.2, 0.1}));
  EXPECT_TRUE(scope.Unsaved());
  const std::uint64_t seen = scope.Changes();
  scope.MarkSaved(seen);
  scope.SetNotes("");
  EXPECT_FALSE(scope.Unsaved());
  scope.SetNotes("now there is");
  EXPECT_TRUE(scope.Unsaved());
  scope.MarkSaved(seen);
  EXPECT_TRUE(scope.Unsaved()) << "what has come since is in no file";
}

TEST(Oscilloscope, ReadsAllChannelsOutAtATime) {
  Oscilloscope scope;
  ScopeTraces traces;
  traces.channels[0] = {1, 2, 3};
  traces.channels[1] = {4};
  scope.Show(traces);
  const struct {
    double seconds;
    std::optional<double> first;
    std::optional<double> second;
  } cases[] = {{0, 1, 4},      {0.04, 1, 4}, {0.06, 2, {}},   {0.24, 3, {}},
               {0.26, {}, {}}, {-1, {}, {}}, {1e300, {}, {}}, {std::nan(""), {}, {}}};
  for (const auto& c : cases) {
    EXPECT_EQ(scope.ReadOut(c.seconds)[0], c.first) << c.seconds;
    EXPECT_EQ(scope.ReadOut(c.seconds)[1], c.second) << c.seconds;
    EXPECT_EQ(scope.ReadOut(c.seconds)[2], std::nullopt);
  }
  scope.AddSample(All(9));
  EXPECT_EQ(scope.Samples(ScopeChannel::kRpm), (std::deque<double>{9, 1, 2, 3}));
  EXPECT_EQ(scope.Samples(ScopeChannel::kTps), std::deque<double>{9});
}

}  // namespace
}  // namespace zelorgas
