// The flash rules, through the registers and coils as a client uses them.
#include "sim/Bootloader.h"

#include <gtest/gtest.h>

#include "sim/SimulatedEcu.h"
#include "support/VirtualClock.h"

namespace zelorgas {
namespace {

class BootloaderTest : public testing::Test {
 protected:
  std::uint32_t Command(std::uint16_t coil, std::uint16_t argument, std::size_t result) {
    boot_.Holding()[131] = argument;
    boot_.WriteCoil(coil, false);
    boot_.WriteCoil(coil, true);
    return boot_.Inputs()[result] | std::uint32_t{boot_.Inputs()[result + 1]} << 16U;
  }
  std::uint32_t BlockEnd(std::uint16_t block) { return Command(7, block, 6); }
  bool IsBlank(std::uint16_t block) { return Command(8, block, 2) == 0; }
  std::uint32_t Erase(std::uint16_t block) { return Command(9, block, 2); }
  std::uint32_t WritePage(std::uint32_t address, std::uint16_t word) {
    boot_.Holding()[0] = static_cast<std::uint16_t>(address);
    boot_.Holding()[1] = static_cast<std::uint16_t>(address >> 16U);
    return WriteNextPage(word);
  }
  std::uint32_t WriteNextPage(std::uint16_t word) {
    for (std::size_t i = 2; i < 130; ++i) boot_.Holding()[i] = word;
    boot_.Holding()[130] = 64;
    return Command(10, 0, 2);
  }
  void FlashMode(bool on) { boot_.WriteCoil(16, on); }

  Bootloader boot_;
};

TEST_F(BootloaderTest, ErasingNeedsFlashModeAndSupply) {
  EXPECT_EQ(BlockEnd(1) + 1, Bootloader::kApplicationStart);
  EXPECT_GE(BlockEnd(3) - BlockEnd(1), 64U * 1024U);
  EXPECT_NE(Erase(2), 0U);
  FlashMode(true);
  boot_.SetNoSupply(true);
  EXPECT_EQ(Command(4, 0, 2), 1U);
  EXPECT_NE(Erase(2), 0U);
  EXPECT_FALSE(IsBlank(2));
  boot_.SetNoSupply(false);
  EXPECT_EQ(Erase(2), 0U);
  EXPECT_TRUE(IsBlank(2));
  EXPECT_NE(Erase(1), 0U) << "its own block";
  EXPECT_FALSE(IsBlank(1));
  EXPECT_NE(Erase(4), 0U) << "a block that does not exist";
}

TEST_F(BootloaderTest, APageIsWrittenOnceAndOnlyInFlashMode) {
  FlashMode(true);
  ASSERT_EQ(Erase(2), 0U);
  const std::uint32_t start = Bootloader::kApplicationStart;
  EXPECT_EQ(WritePage(start, 0x1234), 0U);
  EXPECT_EQ(boot_.Application()[0], 0x34) << "low-order byte first";
  EXPECT_EQ(boot_.Application()[1], 0x12);
  EXPECT_EQ(WriteNextPage(0x5678), 0U);
  EXPECT_EQ(boot_.Application()[256], 0x78);
  EXPECT_NE(WritePage(start, 0x1234), 0U) << "not blank";
  EXPECT_NE(WritePage(0, 0x1234), 0U) << "the bootloader itself";
  EXPECT_NE(WritePage(start + 0x14000, 0x1234), 0U) << "past the end";
  FlashMode(false);
  EXPECT_NE(WritePage(start + 512, 0x1234), 0U);
  EXPECT_EQ(boot_.Application()[512], 0xFF);
}

TEST(SimulatedUpdate, TheApplicationIsStartedByItselfUnlessTheBootloaderIsToStay) {
  struct Case {
    std::vector<std::uint8_t> coils;  // written on after the order to enter
    int seconds;                      // of silence
    bool stays;
  };
  for (const Case& c :
       {Case{{}, 4, true}, Case{{}, 6, false}, Case{{2}, 6, true}, Case{{16}, 6, true}}) {
    VirtualClock clock;
    SimulatedEcu ecu(clock);
    const auto write_coil = [&](std::uint8_t coil) {
      return ecu.Answer(std::vector<std::uint8_t>{11, 5, 0, coil, 0xFF, 0})->at(1) == 5;
    };
    ASSERT_TRUE(write_coil(33));
    for (const std::uint8_t coil : c.coils) ASSERT_TRUE(write_coil(coil));
    clock.Sleep(std::chrono::seconds(c.seconds));
    EXPECT_EQ(write_coil(2), c.stays) << testing::PrintToString(c.coils) << c.seconds;
  }
}

TEST(SimulatedUpdate, OnlyAWholeImageStarts) {
  VirtualClock clock;
  SimulatedEcu ecu(clock);
  for (const bool whole : {true, false}) {
    static_cast<void>(ecu.Answer(std::vector<std::uint8_t>{11, 5, 0, 33, 0xFF, 0}));
    ASSERT_TRUE(ecu.InBootloader());
    ecu.WithBootloader([&](Bootloader& boot) {
      boot.WriteCoil(16, true);
      boot.Holding()[131] = 3;
      boot.WriteCoil(9, !whole);  // erases the second half
    });
    ecu.LosePower();
    EXPECT_EQ(ecu.InBootloader(), !whole);
  }
}

}  // namespace
}  // namespace zelorgas
