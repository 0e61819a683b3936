#include <gmock/gmock.h>

#include <numeric>

#include "config/BlockTransfer.h"
#include "support/FakeMaster.h"

namespace zelorgas {
namespace {

constexpr std::uint8_t kRead = 3;
constexpr std::uint8_t kWrite = 16;
constexpr std::uint16_t kUntouched = 0xABCD;

// A word for every place that no other place has.
std::uint16_t PatternOf(std::size_t word) { return static_cast<std::uint16_t>(word * 71 + 5); }

void FillEcu(FakeMaster& ecu) {
  for (std::size_t word = 0; word < kBlockWords; ++word) {
    ecu.holding[static_cast<std::uint16_t>(256 + word)] = PatternOf(word);
  }
}

// The nineteen requests of a transfer: 18 of 32 registers and one of 7, up to register 838.
std::vector<FakeMaster::Request> Chunks(std::uint8_t function) {
  std::vector<FakeMaster::Request> chunks;
  for (std::uint16_t start = 256; start <= 800; start += 32)
    chunks.push_back({function, start, 32});
  chunks.push_back({function, 832, 7});
  return chunks;
}

TEST(BlockRead, TakesEveryWordInNineteenRequests) {
  FakeMaster ecu;
  FillEcu(ecu);
  ConfigurationBlock block{};
  ASSERT_EQ(ReadBlock(ecu, StoreInto(block)), ModbusResult::kOk);
  EXPECT_EQ(ecu.requests, Chunks(kRead));
  for (std::size_t word = 0; word < kBlockWords; ++word) {
    ASSERT_EQ(block[word], PatternOf(word)) << word;
  }
}

TEST(BlockRead, FailedThirdRequestKeepsTheFirst64Words) {
  FakeMaster ecu;
  FillEcu(ecu);
  ecu.FailRequest(2, ModbusResult::kTimeOut);
  ConfigurationBlock block;
  block.fill(kUntouched);
  EXPECT_EQ(ReadBlock(ecu, StoreInto(block)), ModbusResult::kTimeOut);
  EXPECT_EQ(ecu.requests.size(), 3U);
  for (std::size_t word = 0; word < kBlockWords; ++word) {
    ASSERT_EQ(block[word], word < 64 ? PatternOf(word) : kUntouched) << word;
  }
}

TEST(BlockWrite, SendsEveryWordAndReportsProgress) {
  FakeMaster ecu;
  ConfigurationBlock block;
  for (std::size_t word = 0; word < kBlockWords; ++word) block[word] = PatternOf(word);
  std::vector<std::size_t> progress;
  ASSERT_EQ(WriteBlock(ecu, block,
                       [&](std::size_t offset, std::span<const std::uint16_t> words) {
                         progress.push_back(offset + words.size());
                       }),
            ModbusResult::kOk);
  EXPECT_EQ(ecu.requests, Chunks(kWrite));
  ASSERT_EQ(ecu.holding.size(), kBlockWords);
  for (const auto& [number, word] : ecu.holding)
    ASSERT_EQ(word, PatternOf(number - 256U)) << number;
  ASSERT_EQ(progress.size(), 19U);
  EXPECT_EQ(progress.front(), 32U);
  EXPECT_EQ(progress[17], 576U);
  EXPECT_EQ(progress.back(), 583U);
}

TEST(BlockWrite, StopsAtTheFirstFailure) {
  FakeMaster ecu;
  ecu.FailRequest(1, ExceptionResult(4));
  std::vector<std::size_t> taken;
  EXPECT_EQ(WriteBlock(ecu, ConfigurationBlock{},
                       [&](std::size_t offset, std::span<const std::uint16_t>) {
                         taken.push_back(offset);
                       }),
            ExceptionResult(4));
  EXPECT_EQ(ecu.requests.size(), 2U);
  EXPECT_THAT(taken, testing::ElementsAre(0U));
}

}  // namespace
}  // namespace zelorgas
