// The procedures of the update: what they ask and say, in which order they touch the ECU, and when
// they leave it alone.
#include <gmock/gmock.h>

#include "firmware/FirmwareDownload.h"
#include "firmware/FirmwareWorker.h"
#include "firmware/UpdateBench.h"

namespace zelorgas {
namespace {

using Outcome = FirmwareDownload::Outcome;
using testing::ElementsAre;

std::vector<std::uint8_t> SomeImage(std::size_t size) { return Bootloader::MakeImage(size, 9); }

TEST(FirmwareDownload, ProgramsAnImageWithItsBlankAndItsShortPieces) {
  std::vector<std::uint8_t> bytes = SomeImage(4 * 256 + 44);
  std::fill_n(bytes.begin() + 256, 512, std::uint8_t{0xFF});
  const ImageFile image(bytes);
  UpdateBench bench;
  std::vector<unsigned> percents;
  std::string stored;
  FirmwareHooks hooks;
  hooks.progress = [&](const FlashProgress& progress) { percents.push_back(progress.percent); };
  hooks.store_configuration = [&](const EcuIdentity& ecu) {
    stored = bench.ecu.InBootloader() ? "too late" : FormatSerialNumber(*ecu.serial);
    return true;
  };
  EXPECT_EQ(bench.Program(image, hooks), Outcome::kDone);
  EXPECT_TRUE(image.IsIn(bench.ecu));
  EXPECT_EQ(bench.line.RequestCount(), 50U + 3 * 7) << "nothing is sent for the blank pieces";
  EXPECT_THAT(percents, ElementsAre(23, 47, 71, 95, 100));
  EXPECT_EQ(stored, "ECU123456");
  EXPECT_THAT(bench.boxes.statuses, ElementsAre("Erasing current firmware...",
                                                "Downloading selected firmware...", "Ready"));
  EXPECT_THAT(bench.boxes.said,
              ElementsAre("question: Do you want to replace the firmware of the ECU?\n\nImage: " +
                          image.path.filename().string() +
                          "\nSize: 1068 bytes\nECU: ECU123456, firmware 00.39"));
  EXPECT_EQ(bench.document.Link().AttemptCount(), 1);
}

TEST(FirmwareDownload, ErasesOnly) {
  UpdateBench bench;
  EXPECT_EQ(bench.Erase(), Outcome::kDone);
  EXPECT_FALSE(bench.FlashMode());
  const std::uint64_t exchanges = bench.line.RequestCount();
  EXPECT_EQ(exchanges, 4U + 3 + 1 + 3 + 3 + 3 + 4 + 16 + 8 + 1);
  EXPECT_EQ(bench.boxes.said.back(), "note: Tha application has been erased successfuly!");
  EXPECT_THAT(bench.boxes.statuses, ElementsAre("Erasing...", "Idle"));
  ASSERT_TRUE(bench.FindAgain());
  EXPECT_EQ(bench.Erase(), Outcome::kDone);
  EXPECT_EQ(bench.line.RequestCount(), 2 * exchanges - 8 + 2) << "blank blocks are left alone";
  UpdateBench stuck;
  stuck.ecu.WithBootloader([](Bootloader& boot) { boot.FailErases(1); });
  EXPECT_EQ(stuck.Erase(), Outcome::kFailed);
  EXPECT_EQ(stuck.boxes.said.back(), "error: Erase failed! Block is not blank!");
}

// What keeps an update from its end, and the one message that says so.
struct Hindrance {
  std::string message;
  bool untouched = true;  // the flash
  bool no_supply = false;
  int failing_erases = 0;
  int failing_writes = 0;
  SimulatedEcuOptions ecu = {};
  Fault fault = {FaultKind::kDropRequest};
  std::vector<std::uint64_t> faulty = {};  // exchanges
};
const Hindrance kHindrances[] = {
    {.message = "note: Error, no VDD on FLMD0 pin!", .no_supply = true},
    {.message = "note: Erase failed! Block is not blank!", .failing_erases = 1},
    {.message = "note: Write failed!", .untouched = false, .failing_writes = 3},
    {.message = "error: Unrecognized Vendor Name!", .ecu = {.vendor = "tarnwick ltd."}},
    {.message = "error: Unrecognized Product Code!", .ecu = {.product = "x"}},
    {.message = "error: Could not get revision number!", .ecu = {.revision = "SV 0.39@HV 1.2"}},
    // It stays in its application.
    {.message = "error: Couldn't get target application info!", .faulty = {5, 6, 7}},
    {.message = "error: Couldn't establish connection with GASECU!\nPlease check out cables and "
                "power supply!",
     .fault = {FaultKind::kSilent, 60'000},
     .faulty = {1}},
    {.message = "note: Flash mode could not be switched off!\nPlease switch the power supply of "
                "the ECU off and on.",
     .untouched = false,
     .faulty = {74, 75, 76, 77, 78, 79}},
    {.message =
         "error: Another ECU answers than the one in the question!\nNothing has been erased.",
     .ecu = {.serial = 1}},
};

TEST(FirmwareDownload, SaysWhatHinderedIt) {
  const ImageFile image(SomeImage(1000));
  for (const Hindrance& c : kHindrances) {
    UpdateBench bench(c.ecu);
    bench.ecu.WithBootloader([&](Bootloader& boot) {
      boot.SetNoSupply(c.no_supply);
      boot.FailErases(c.failing_erases);
      boot.FailWrites(c.failing_writes);
    });
    for (const std::uint64_t exchange : c.faulty) bench.line.ArmFault(c.fault, exchange);
    const std::vector<std::uint8_t> before = bench.ecu.Flash();
    EXPECT_EQ(bench.Program(image), Outcome::kFailed) << c.message;
    EXPECT_THAT(bench.boxes.said, ElementsAre(testing::_, c.message));
    EXPECT_EQ(bench.ecu.Flash() == before, c.untouched) << c.message;
  }
}

TEST(FirmwareDownload, NothingIsErasedBeforeTheCheckAndTheAnswer) {
  ImageFile image({});
  UpdateBench bench;
  const std::vector<std::uint8_t> before = bench.ecu.Flash();
  const auto expect = [&](Outcome outcome, std::string_view said, std::uint64_t exchanges,
                          const FirmwareHooks& hooks = {}) {
    bench.ecu.LosePower();
    const std::uint64_t first = bench.line.RequestCount();
    EXPECT_EQ(bench.Program(image, hooks), outcome) << said;
    EXPECT_THAT(bench.boxes.said.back(), testing::EndsWith(said));
    EXPECT_EQ(bench.line.RequestCount() - first, exchanges) << said;
    EXPECT_EQ(bench.ecu.Flash(), before) << said;
    EXPECT_FALSE(bench.FlashMode()) << said;
  };
  expect(Outcome::kBadImage, kImageEmpty, 0);
  image.Fill(std::vector<std::uint8_t>(Bootloader::kApplicationSize + 1, 1));
  expect(Outcome::kBadImage, kImageTooLarge, 20);
  // Between the question and the erasing.
  image.Fill(SomeImage(1000));
  FirmwareHooks changing;
  changing.store_configuration = [&image](const EcuIdentity&) {
    return image.Fill(SomeImage(1004)), true;
  };
  expect(Outcome::kBadImage, kImageChanged, 24, changing);
  // Asked before the order to enter the bootloader, after it, and before the erasing.
  for (const auto& [asked, exchanges] : {std::pair{1, 4U}, {2, 7U}, {3, 20U}}) {
    FirmwareHooks stopping;
    stopping.stop_wanted = [left = asked](bool) mutable { return --left == 0; };
    expect(Outcome::kStopped, "firmware 00.39", exchanges, stopping);
  }
  FirmwareHooks not_stored;
  not_stored.store_configuration = [&](const EcuIdentity&) { return bench.boxes.answer = false; };
  expect(Outcome::kDeclined, kNoCopyQuestion, 4, not_stored);
  expect(Outcome::kDeclined, "firmware 00.39", 0);
  EXPECT_EQ(bench.Erase(), Outcome::kDeclined);
  EXPECT_EQ(bench.ecu.Flash(), before);
}

TEST(FirmwareWorker, RunsItsJobWhenToldAndOnlyThen) {
  std::string events;
  Event done;
  const auto job = [&] { events += "job "; };
  const auto ended = [&](bool has_run) {
    events += has_run ? "done" : "given up ";
    if (has_run) done.Set();
  };
  { const FirmwareWorker worker(job, ended); }
  FirmwareWorker worker(job, ended);
  worker.Begin();
  EXPECT_TRUE(done.Wait(std::chrono::seconds(30)));
  EXPECT_EQ(events, "given up job done");
}

}  // namespace
}  // namespace zelorgas
