#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <string>

#include "platform/PolledSerialDevice.h"
#include "support/VirtualClock.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

// A line on which something arrives at given times after its creation.
class TimedLine final : public PolledSerialDevice {
 public:
  explicit TimedLine(VirtualClock& clock) : PolledSerialDevice(clock), start_(clock.Now()) {}

  void At(milliseconds when, std::string_view bytes) {
    due_.push_back({start_ + when, bytes, Arrival::kBytes});
  }
  void ErrorAt(milliseconds when) { due_.push_back({start_ + when, {}, Arrival::kLineError}); }
  void UnplugAt(milliseconds when) { due_.push_back({start_ + when, {}, Arrival::kGone}); }
  void MakeNoise() { noise_ = true; }
  [[nodiscard]] int receives() const { return receives_; }

  bool SetQueueSizes(std::size_t, std::size_t) override { return true; }
  bool Configure(const LineSettings&) override { return true; }
  void Purge(PurgeScope) override { DropReceived(); }
  bool Write(std::span<const std::uint8_t>) override { return true; }
  std::optional<std::size_t> OutputQueueLength() override { return 0; }
  using PolledSerialDevice::WriteDeadline;

 protected:
  Arrival Receive(std::vector<std::uint8_t>& received, Clock::TimePoint deadline) override {
    ++receives_;
    EXPECT_LE(deadline - DeviceClock().Now(), kWaitSlice);
    if (noise_) {
      received.insert(received.end(), 4096, std::uint8_t{0xFF});
      return Arrival::kBytes;
    }
    if (due_.empty() || due_.front().when > std::max(deadline, DeviceClock().Now())) {
      DeviceClock().SleepUntil(deadline);
      return Arrival::kNothing;
    }
    const Due due = due_.front();
    due_.pop_front();
    DeviceClock().SleepUntil(due.when);
    received.insert(received.end(), due.bytes.begin(), due.bytes.end());
    return due.what;
  }

 private:
  struct Due {
    Clock::TimePoint when;
    std::string_view bytes;
    Arrival what;
  };

  Clock::TimePoint start_;
  std::deque<Due> due_;
  bool noise_ = false;
  int receives_ = 0;
};

class PolledDevice : public testing::Test {
 protected:
  std::string Read(std::size_t count) {
    std::vector<std::uint8_t> bytes(count);
    const std::optional<std::size_t> got = line_.Read(bytes);
    if (!got) return "failed";
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(*got)};
  }
  [[nodiscard]] double Ms() const { return clock_.ElapsedMs(); }

  VirtualClock clock_;
  TimedLine line_{clock_};
};

struct ReadCase {
  const char* name;
  PortTimeouts timeouts;
  std::size_t count;
  const char* result;
  double ends_ms;
};

void PrintTo(const ReadCase& c, std::ostream* out) { *out << c.name; }

class ReadTimeouts : public PolledDevice, public testing::WithParamInterface<ReadCase> {};

// "ab" has come before, "cd" comes at 4 ms, "ef" at 30 ms.
TEST_P(ReadTimeouts, EndTheReadInTime) {
  line_.At(milliseconds{0}, "ab");
  line_.At(milliseconds{4}, "cd");
  line_.At(milliseconds{30}, "ef");
  ASSERT_TRUE(line_.SetTimeouts(GetParam().timeouts));
  EXPECT_EQ(line_.Timeouts(), GetParam().timeouts);
  EXPECT_EQ(Read(GetParam().count), GetParam().result);
  EXPECT_DOUBLE_EQ(Ms(), GetParam().ends_ms);
}

constexpr std::uint32_t kAtOnce = PortTimeouts::kReturnAtOnce;

INSTANTIATE_TEST_SUITE_P(
    Rules, ReadTimeouts,
    testing::Values(
        ReadCase{"ReturnAtOnce", {.read_interval = kAtOnce}, 6, "ab", 0},
        ReadCase{"CountIsQueued", {.read_interval = 5}, 2, "ab", 0},
        ReadCase{"LineQuietForInterval", {.read_interval = 5}, 6, "abcd", 9},
        ReadCase{"IntervalTooShort", {.read_interval = 3}, 6, "ab", 3},
        ReadCase{"Constant", {.read_total_constant = 20}, 6, "abcd", 20},
        ReadCase{"MultiplierTimesCount", {.read_total_multiplier = 5}, 6, "abcdef", 30},
        ReadCase{"TotalBeforeInterval",
                 {.read_interval = 100, .read_total_constant = 25},
                 6,
                 "abcd",
                 25},
        ReadCase{"EndlessIntervalStillHasTotal",
                 {.read_interval = kAtOnce, .read_total_constant = 40},
                 6,
                 "abcdef",
                 30},
        ReadCase{"NoRuleWaitsForAll", {}, 6, "abcdef", 30},
        ReadCase{"LargestMultiplier", {.read_total_multiplier = 0xFFFFFFFF}, 6, "abcdef", 30}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(PolledDevice, IntervalStartsWithTheFirstByte) {
  line_.At(milliseconds{70}, "a");
  ASSERT_TRUE(line_.SetTimeouts({.read_interval = 2, .read_total_constant = 1000}));
  EXPECT_EQ(Read(10), "a");
  EXPECT_DOUBLE_EQ(Ms(), 72);
}

TEST_F(PolledDevice, SlowSliceHookDoesNotMakeTheLineQuiet) {
  ASSERT_TRUE(line_.SetTimeouts({.read_interval = 3}));
  line_.SetSliceHook([this] { clock_.Sleep(milliseconds{5}); });
  line_.At(milliseconds{9}, "a");
  line_.At(milliseconds{11}, "b");
  EXPECT_EQ(Read(10), "ab");
}

TEST_F(PolledDevice, WaitForInputEndsWithTheBytesOrTheTime) {
  line_.At(milliseconds{3}, "ab");
  line_.At(milliseconds{27}, "c");
  EXPECT_TRUE(line_.WaitForInput(2, milliseconds{10}));
  EXPECT_DOUBLE_EQ(Ms(), 3);
  EXPECT_FALSE(line_.WaitForInput(3, milliseconds{10}));
  EXPECT_DOUBLE_EQ(Ms(), 13);
  EXPECT_TRUE(line_.WaitForInput(3, milliseconds{100}));
  EXPECT_DOUBLE_EQ(Ms(), 27);
  const int receives = line_.receives();
  EXPECT_TRUE(line_.WaitForInput(3, milliseconds{100}));
  EXPECT_EQ(line_.receives(), receives) << "asked the line for bytes that were there";
}

TEST_F(PolledDevice, EventCharacterIsFoundAmongUnreadBytesOnly) {
  line_.At(milliseconds{0}, "a\nb");
  line_.At(milliseconds{20}, "c\nd");
  EXPECT_EQ(line_.WaitForEvent(milliseconds{5}), LineEvent::kEventCharacter);
  EXPECT_EQ(line_.WaitForEvent(milliseconds{5}), LineEvent::kEventCharacter) << "still queued";
  ASSERT_TRUE(line_.SetTimeouts({.read_interval = kAtOnce}));
  EXPECT_EQ(Read(2), "a\n");
  EXPECT_EQ(line_.WaitForEvent(milliseconds{5}), LineEvent::kTimeout);
  EXPECT_DOUBLE_EQ(Ms(), 5);
  EXPECT_EQ(line_.WaitForEvent(milliseconds{1000}), LineEvent::kEventCharacter);
  EXPECT_DOUBLE_EQ(Ms(), 20);
}

TEST_F(PolledDevice, LineErrorStaysUntilClearedAndPurgeClearsIt) {
  line_.ErrorAt(milliseconds{4});
  line_.ErrorAt(milliseconds{30});
  EXPECT_EQ(line_.WaitForEvent(milliseconds{100}), LineEvent::kLineError);
  EXPECT_DOUBLE_EQ(Ms(), 4);
  EXPECT_EQ(line_.WaitForEvent(milliseconds{1}), LineEvent::kLineError);
  line_.ClearError();
  EXPECT_EQ(line_.WaitForEvent(milliseconds{5}), LineEvent::kTimeout);
  EXPECT_FALSE(line_.WaitForInput(1, milliseconds{50}));
  line_.Purge(PurgeScope::kReceive);
  EXPECT_EQ(line_.WaitForEvent(milliseconds{5}), LineEvent::kTimeout);
}

TEST_F(PolledDevice, UnpluggedLineGivesItsLastBytesAndThenFailsAtOnce) {
  line_.At(milliseconds{1}, "a");
  line_.UnplugAt(milliseconds{2});
  EXPECT_FALSE(line_.WaitForInput(2, milliseconds{1000}));
  EXPECT_EQ(line_.InputQueueLength(), 1U);
  EXPECT_EQ(Read(5), "a");
  const int receives = line_.receives();
  EXPECT_EQ(line_.InputQueueLength(), std::nullopt);
  EXPECT_EQ(Read(5), "failed");
  EXPECT_EQ(line_.WaitForEvent(milliseconds{1000}), LineEvent::kFailed);
  EXPECT_FALSE(line_.WaitForInput(1, milliseconds{1000}));
  EXPECT_EQ(line_.Timeouts(), std::nullopt);
  EXPECT_FALSE(line_.SetTimeouts({}));
  EXPECT_DOUBLE_EQ(Ms(), 2);
  EXPECT_EQ(line_.receives(), receives);
}

TEST_F(PolledDevice, SliceHookRunsEveryTenMillisecondsAlsoOnABusyLine) {
  std::vector<double> hook_ms;
  line_.SetSliceHook([&] { hook_ms.push_back(Ms()); });
  for (int ms = 1; ms < 60; ms += 2) line_.At(milliseconds{ms}, "x");
  EXPECT_FALSE(line_.WaitForInput(100, milliseconds{35}));
  EXPECT_THAT(hook_ms, testing::ElementsAre(10, 20, 30));
  hook_ms.clear();
  EXPECT_EQ(line_.WaitForEvent(milliseconds{20}), LineEvent::kTimeout);
  EXPECT_THAT(hook_ms, testing::ElementsAre(45, 55));
  hook_ms.clear();
  ASSERT_TRUE(line_.SetTimeouts({.read_total_constant = 15}));
  EXPECT_EQ(Read(100).size(), 30U);
  EXPECT_THAT(hook_ms, testing::ElementsAre(65));
}

TEST_F(PolledDevice, EndlessNoiseIsALineErrorAndDoesNotFillTheMemory) {
  line_.MakeNoise();
  EXPECT_EQ(line_.WaitForEvent(milliseconds{1000}), LineEvent::kLineError);
  EXPECT_FALSE(line_.WaitForInput(1'000'000, milliseconds{1000}));
  EXPECT_LE(line_.InputQueueLength(), 20'000U);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(Read(1'000'000).size(), ReceiveQueue::kCapacity);
  line_.Purge(PurgeScope::kBoth);
  EXPECT_EQ(Read(1).size(), 1U);
}

TEST_F(PolledDevice, WriteMayTakeItsWireTimeAndTheTimeouts) {
  const auto limit = [&] {
    return std::chrono::duration<double, std::milli>(line_.WriteDeadline(10, milliseconds{5}) -
                                                     clock_.Now())
        .count();
  };
  EXPECT_DOUBLE_EQ(limit(), 1005) << "the grace of a port without write time-outs";
  ASSERT_TRUE(line_.SetTimeouts({.write_total_multiplier = 2, .write_total_constant = 30}));
  EXPECT_DOUBLE_EQ(limit(), 55);
}

}  // namespace
}  // namespace zelorgas
