#include <gtest/gtest.h>

#include "app/EcuConnection.h"
#include "firmware/ApplicationStart.h"
#include "firmware/LinkPreparation.h"
#include "firmware/UpdateBench.h"

namespace zelorgas {
namespace {

TEST(ApplicationStart, ComesByItselfAfterADownloadWhateverTheBootloaderWasTold) {
  const ImageFile image(Bootloader::MakeImage(600, 9));
  UpdateBench bench;
  bench.ecu.EnterBootloader();
  ASSERT_TRUE(bench.FindAgain());
  ASSERT_EQ(bench.Program(image), FirmwareDownload::Outcome::kDone);
  EXPECT_TRUE(WaitForApplication(
      bench.document, {.ignition_needed = [] { ADD_FAILURE() << "it starts by itself"; }}));
  EXPECT_FALSE(bench.ecu.InBootloader());
}

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

TEST(ApplicationStart, AnUpdateFindsItsTargetOnAPortThatWasPluggedInAgain) {
  UpdateBench bench;
  EcuIdentity found;
  bench.line.SetPlugged(false);
  EXPECT_EQ(FindUpdateTarget(bench.document, found).message, kPortBusy);
  bench.line.SetPlugged(true);
  EXPECT_TRUE(FindUpdateTarget(bench.document, found).Ok());
  EXPECT_EQ(found.serial, 123456U);
}

}  // namespace
}  // namespace zelorgas
