// The failure of a write and its pace are in restart_write_back_test.cpp.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "config/BlockTransfer.h"
#include "link/ModbusSerialPort.h"
#include "sim/SimulatedPort.h"
#include "support/VirtualClock.h"

namespace zelorgas {
namespace {

// A word for every place that no other place has.
std::uint16_t PatternOf(std::size_t word) { return static_cast<std::uint16_t>(word * 71 + 5); }

TEST(BlockTransfer, MovesEveryWordInNineteenRequestsUntilOneFails) {
  VirtualClock clock;
  SimulatedEcu ecu(clock);
  SimulatedLine line(ecu, clock, {.paced = false});
  ModbusSerialPort link(SimulatedPort(line, clock), clock);
  link.SetFraming(FramingMode::kAscii);
  ASSERT_TRUE(link.Open(1, 19200, 255));
  ConfigurationBlock pattern{};
  for (std::size_t word = 0; word < kBlockWords; ++word) pattern[word] = PatternOf(word);
  std::vector<std::size_t> ends;
  const auto note = [&](std::size_t offset, std::span<const std::uint16_t> words) {
    ends.push_back(offset + words.size());
  };
  ASSERT_EQ(WriteBlock(link, pattern, note), ModbusResult::kOk);
  EXPECT_EQ(ecu.Block(), pattern);
  ASSERT_EQ(ends.size(), 19U);
  EXPECT_EQ(ends.front(), 32U);
  EXPECT_EQ(ends[17], 576U);
  EXPECT_EQ(ends.back(), 583U);

  ConfigurationBlock block{};
  ASSERT_EQ(ReadBlock(link, StoreInto(block)), ModbusResult::kOk);
  EXPECT_EQ(line.RequestCount(), 2 * 19U);
  EXPECT_EQ(block, pattern);
  block.fill(0xABCD);
  line.ArmFault({FaultKind::kDropAnswer}, 3);
  EXPECT_EQ(ReadBlock(link, StoreInto(block)), ModbusResult::kTimeOut);
  EXPECT_EQ(line.RequestCount(), 2 * 19U + 3U);
  EXPECT_EQ(ReadBlock(link, {}, [] { return false; }), ModbusResult::kLockTimeOut);
  EXPECT_EQ(ReadBlock(link, {}), ModbusResult::kOk);
  EXPECT_EQ(WriteBlock(link, pattern, {}), ModbusResult::kOk);
  for (std::size_t word = 0; word < kBlockWords; ++word) {
    ASSERT_EQ(block[word], word < 64 ? PatternOf(word) : 0xABCD) << word;
  }
}

}  // namespace
}  // namespace zelorgas
