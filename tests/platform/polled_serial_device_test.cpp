// The waiting half of a serial device, over a line on which things happen at given times.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "platform/PolledSerialDevice.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

constexpr LineAction::Kind kError = LineAction::Kind::kLineError;
constexpr LineAction::Kind kUnplug = LineAction::Kind::kUnplug;

struct Device {
  explicit Device(LineScript script) {
    port.on_look = [this] { ++looks; };
    port.Answer(std::move(script), false);
    EXPECT_TRUE(line.Write({}));
  }

  std::string Read(std::size_t count) {
    std::vector<std::uint8_t> bytes(count);
    const std::optional<std::size_t> got = line.Read(bytes);
    if (!got) return "failed";
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(*got)};
  }
  [[nodiscard]] double Ms() const { return clock.ElapsedMs(); }

  VirtualClock clock;
  ScriptedPort port{clock};
  std::unique_ptr<SerialDevice> opened = port.Opener()("COM1");
  SerialDevice& line = *opened;
  int looks = 0;
};

constexpr std::uint32_t kAtOnce = PortTimeouts::kReturnAtOnce;

TEST(PolledDevice, ReadTimeoutsEndTheReadInTime) {
  const struct {
    PortTimeouts timeouts;
    std::size_t count;
    const char* result;
    double ends_ms;
  } cases[] = {
      {{.read_interval = kAtOnce}, 6, "ab", 0},
      {{.read_interval = 5}, 2, "ab", 0},
      {{.read_interval = 5}, 6, "abcd", 9},
      {{.read_interval = 3}, 6, "ab", 3},
      {{.read_total_constant = 20}, 6, "abcd", 20},
      {{.read_total_multiplier = 5}, 6, "abcdef", 30},
      {{.read_interval = 100, .read_total_constant = 25}, 6, "abcd", 25},
      {{.read_interval = kAtOnce, .read_total_constant = 40}, 6, "abcdef", 30},
      {{}, 6, "abcdef", 30},
      {{.read_total_multiplier = 0xFFFFFFFF}, 6, "abcdef", 30},
  };
  for (const auto& c : cases) {
    Device device({At(0, "ab"), At(4, "cd"), At(30, "ef")});
    ASSERT_TRUE(device.line.SetTimeouts(c.timeouts));
    EXPECT_EQ(device.line.Timeouts(), c.timeouts);
    EXPECT_EQ(device.Read(c.count), c.result);
    EXPECT_DOUBLE_EQ(device.Ms(), c.ends_ms);
  }
}

TEST(PolledDevice, WaitForInputEndsWithTheBytesOrTheTime) {
  Device device({At(3, "ab"), At(27, "c")});
  EXPECT_TRUE(device.line.WaitForInput(2, milliseconds{10}));
  EXPECT_FALSE(device.line.WaitForInput(3, milliseconds{10}));
  EXPECT_DOUBLE_EQ(device.Ms(), 13);
  EXPECT_TRUE(device.line.WaitForInput(3, milliseconds{100}));
  EXPECT_DOUBLE_EQ(device.Ms(), 27);
  const int looks = device.looks;
  EXPECT_TRUE(device.line.WaitForInput(3, milliseconds{100}));
  EXPECT_EQ(device.looks, looks) << "asked the line for bytes that were there";
}

TEST(PolledDevice, LineErrorStaysUntilClearedAndPurgeClearsIt) {
  Device device({At(4, kError), At(30, kError)});
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{100}), LineEvent::kLineError);
  EXPECT_DOUBLE_EQ(device.Ms(), 4);
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{1}), LineEvent::kLineError);
  device.line.ClearError();
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{5}), LineEvent::kTimeout);
  EXPECT_FALSE(device.line.WaitForInput(1, milliseconds{50}));
  device.line.Purge(PurgeScope::kReceive);
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{5}), LineEvent::kTimeout);
}

TEST(PolledDevice, EventCharacterIsFoundAmongUnreadBytesOnly) {
  Device device({At(0, "a\nb"), At(20, "c\nd")});
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{5}), LineEvent::kEventCharacter);
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{5}), LineEvent::kEventCharacter)
      << "still queued";
  ASSERT_TRUE(device.line.SetTimeouts({.read_interval = kAtOnce}));
  EXPECT_EQ(device.Read(2), "a\n");
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{5}), LineEvent::kTimeout);
  EXPECT_DOUBLE_EQ(device.Ms(), 5);
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{1000}), LineEvent::kEventCharacter);
  EXPECT_DOUBLE_EQ(device.Ms(), 20);
}

TEST(PolledDevice, UnpluggedLineGivesItsLastBytesAndThenFailsAtOnce) {
  Device device({At(1, "a"), At(2, kUnplug)});
  EXPECT_FALSE(device.line.WaitForInput(2, milliseconds{1000}));
  EXPECT_EQ(device.line.InputQueueLength(), 1U);
  EXPECT_EQ(device.Read(5), "a");
  const int looks = device.looks;
  EXPECT_EQ(device.line.InputQueueLength(), std::nullopt);
  EXPECT_EQ(device.Read(5), "failed");
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{1000}), LineEvent::kFailed);
  EXPECT_FALSE(device.line.WaitForInput(1, milliseconds{1000}));
  EXPECT_EQ(device.line.Timeouts(), std::nullopt);
  EXPECT_FALSE(device.line.SetTimeouts({}));
  EXPECT_DOUBLE_EQ(device.Ms(), 2);
  EXPECT_EQ(device.looks, looks);
}

TEST(PolledDevice, EndlessNoiseIsALineErrorAndDoesNotFillTheMemory) {
  LineScript noise;
  for (int ms = 0; ms < 2000; ++ms) noise.push_back(At(ms, std::string(4096, '\xFF')));
  Device device(noise);
  EXPECT_EQ(device.line.WaitForEvent(milliseconds{1000}), LineEvent::kLineError);
  EXPECT_FALSE(device.line.WaitForInput(1'000'000, milliseconds{1000}));
  EXPECT_LE(device.line.InputQueueLength(), 20'000U);
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(device.Read(1'000'000).size(), ReceiveQueue::kCapacity);
  }
  device.line.Purge(PurgeScope::kBoth);
  EXPECT_EQ(device.Read(1).size(), 1U);
}

}  // namespace
}  // namespace zelorgas
