#include <gtest/gtest.h>

#include "firmware/ApplicationStart.h"
#include "firmware/LinkPreparation.h"
#include "firmware/UpdateBench.h"

namespace zelorgas {
namespace {

TEST(ApplicationStart, ThePersonIsToldOnceWhenTheBootloaderStays) {
  UpdateBench bench;
  bench.ecu.EnterBootloader();
  EcuIdentity found;
  ASSERT_TRUE(FindUpdateTarget(bench.document, found).Ok());
  EXPECT_TRUE(found.bootloader);
  int told = 0;
  int asked = 0;
  ApplicationStartHooks hooks{.ignition_needed = [&] { ++told; },
                              .stop_wanted = [&] { return ++asked == 200; }};
  EXPECT_FALSE(WaitForApplication(bench.document, hooks)) << "stopped";
  EXPECT_EQ(told, 1);
  // The ignition is switched off, with the adapter on it, and on again.
  bench.line.SetPlugged(false);
  hooks.stop_wanted = [&] {
    if (bench.clock.ElapsedMs() > 60'000 && !bench.line.Plugged()) {
      bench.ecu.LosePower();
      bench.line.SetPlugged(true);
    }
    return false;
  };
  EXPECT_TRUE(WaitForApplication(bench.document, hooks));
}

TEST(ApplicationStart, AskingDoesNotHoldABootloaderThatWaitsForAWhile) {
  UpdateBench bench({.starts_late = true});
  int slices = 0;
  // The first question finds the bootloader, a second after the ignition was switched on.
  const auto stop = [&] {
    if (++slices == 51) bench.ecu.LosePower();
    return slices == 600;
  };
  EXPECT_TRUE(WaitForApplication(bench.document, {.stop_wanted = stop}));
  EXPECT_FALSE(bench.ecu.InBootloader());
}

}  // namespace
}  // namespace zelorgas
