// An update that is interrupted at each of its exchanges, by everything that can happen there.
#include <gtest/gtest.h>

#include "firmware/UpdateBench.h"

namespace zelorgas {
namespace {

using Outcome = FirmwareDownload::Outcome;

struct Interruption {
  Fault fault;
  std::uint64_t exchanges;  // in a row
};

class InterruptedUpdate : public testing::TestWithParam<Interruption> {};

TEST_P(InterruptedUpdate, NeverSucceedsFalselyAndCompletesWhenRepeated) {
  const ImageFile image(Bootloader::MakeImage(16 * 256, 77));
  // Who is there, preparation, flash mode, supply, block ends, two blocks, both once more, pages,
  // looks for a restart, flash mode.
  constexpr std::uint64_t kExchanges = 4 + 3 + 1 + 3 + 8 + 16 + 8 + 16 * 7 + 2 + 1;
  for (std::uint64_t exchange = 1; exchange <= kExchanges + 1; ++exchange) {
    UpdateBench bench;
    for (std::uint64_t i = 0; i < GetParam().exchanges; ++i) {
      bench.line.ArmFault(GetParam().fault, exchange + i);
    }
    const bool done = bench.Program(image) == Outcome::kDone;
    EXPECT_EQ(bench.line.FaultCount() > 0, exchange <= kExchanges) << exchange;
    EXPECT_EQ(bench.boxes.informed.empty(), done) << exchange;
    const bool stays = bench.FlashMode();
    EXPECT_TRUE(!stays || bench.boxes.informed.back() == kFlashModeStays) << exchange;
    EXPECT_TRUE(image.IsIn(bench.ecu) || !done) << exchange;
    EXPECT_FALSE(bench.line.Plugged() && stays) << exchange;
    // One lost answer is made up for.
    const bool loses_more = GetParam().exchanges > 1 || !bench.line.Plugged() ||
                            GetParam().fault.kind == FaultKind::kPowerLoss;
    EXPECT_TRUE(done || loses_more) << exchange;
    if (done) continue;
    bench.line.SetPlugged(true);
    ASSERT_TRUE(bench.FindAgain()) << exchange;
    EXPECT_EQ(bench.Program(image), Outcome::kDone) << exchange;
    EXPECT_TRUE(image.IsIn(bench.ecu)) << exchange;
    bench.ecu.LosePower();
    EXPECT_FALSE(bench.ecu.InBootloader()) << exchange;
  }
}

TEST_P(InterruptedUpdate, ErasingNeverLeavesAnythingAndSaysItIsDone) {
  constexpr std::uint64_t kExchanges = 4 + 3 + 1 + 3 + 3 + 3 + 4 + 16 + 8 + 1;
  for (std::uint64_t exchange = 1; exchange <= kExchanges; ++exchange) {
    UpdateBench bench;
    for (std::uint64_t i = 0; i < GetParam().exchanges; ++i) {
      bench.line.ArmFault(GetParam().fault, exchange + i);
    }
    const bool done = bench.Erase() == Outcome::kDone;
    const auto blank = [](std::uint8_t byte) { return byte == 0xFF; };
    EXPECT_TRUE(!done || std::ranges::all_of(bench.ecu.Flash(), blank)) << exchange;
    EXPECT_FALSE(bench.line.Plugged() && bench.FlashMode()) << exchange;
  }
}

INSTANTIATE_TEST_SUITE_P(, InterruptedUpdate,
                         testing::Values(Interruption{{FaultKind::kDropAnswer}, 1},
                                         Interruption{{FaultKind::kDropAnswer}, 3},
                                         Interruption{{FaultKind::kDropRequest}, 3},
                                         Interruption{{FaultKind::kBadCheck}, 3},
                                         Interruption{{FaultKind::kException, 4}, 3},
                                         Interruption{{FaultKind::kUnplug, 8}, 1},
                                         Interruption{{FaultKind::kPowerLoss, 0}, 1},
                                         Interruption{{FaultKind::kPowerLoss, 8}, 1},
                                         // When it has answered.
                                         Interruption{{FaultKind::kPowerLoss, 999}, 1}),
                         [](const auto& instance) {
                           std::string name(NameOfFault(instance.param.fault.kind));
                           std::ranges::replace(name, '-', '_');
                           return name + "_" + std::to_string(instance.index);
                         });

}  // namespace
}  // namespace zelorgas
