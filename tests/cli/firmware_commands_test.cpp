// erase and flash.
#include <gmock/gmock.h>

#include "cli/FolderCliTest.h"
#include "config/ConfigurationBlock.h"
#include "firmware/UpdateBench.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;

class FirmwareCommands : public FolderCliTest {
 protected:
  CliHarness::Outcome Flash(std::vector<std::string> words = {"--yes"}) {
    words.insert(words.begin(), {"flash", image_.path.string()});
    return Run(words);
  }

  ImageFile image_{Bootloader::MakeImage(2700, 4)};
};

TEST_F(FirmwareCommands, FlashWritesTheImageAndShowsHowFarItIs) {
  const CliHarness::Outcome run = Flash();
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(image_.IsIn(ecu_));
  EXPECT_THAT(run.out, testing::MatchesRegex("written: 2700 bytes in .\\.. s\n"));
  EXPECT_THAT(run.err, HasSubstr("\nzelorgas-cli: 18 %, 0:04 left\nzelorgas-cli: 28 %, "));
  EXPECT_THAT(run.err, HasSubstr("zelorgas-cli: 100 %, 0:00 left\nzelorgas-cli: Ready\n"));
  const std::string advice = "What it held before: zelorgas-cli write --both-maps ";
  ASSERT_THAT(run.err, testing::ContainsRegex(advice + ".*_backup.fob\n$"));
  const std::size_t name = run.err.rfind(advice) + advice.size();
  const std::string backup = run.err.substr(name, run.err.size() - name - 1);
  // The bootloader, as which the ECU is still there, takes it again.
  cli_.err_terminal = true;
  const CliHarness::Outcome again = Flash({"--yes", "--json"});
  EXPECT_THAT(again.out, testing::StartsWith("{\"ecu\":\"bootloader P42V0T39M1B7\",\"image\":\""));
  EXPECT_THAT(again.out, HasSubstr(".ebi\",\"size\":2700,\"seconds\":"));
  EXPECT_THAT(again.err, HasSubstr("\r[#######.................................] 18 %, 0:04 left"));
  EXPECT_THAT(again.err, HasSubstr("] 100 %, 0:00 left    \nzelorgas-cli: Ready\n"));

  ecu_.LosePower();
  const ConfigurationBlock before = ecu_.Block();
  for (const std::size_t word : {28U, 540U, 560U}) {
    ecu_.SetRegister(RegisterOfWord(word), 0x0101);
  }
  EXPECT_EQ(Run({"write", "--both-maps", backup, "--yes"}).status, 0);
  EXPECT_EQ(ecu_.Block(), before) << "a word of each routing map too";
}

TEST_F(FirmwareCommands, EraseNothingWithoutABackupUnlessThatIsSaid) {
  std::ofstream("storage");  // in the place of the folder
  const std::vector<std::uint8_t> before = ecu_.Flash();
  const CliHarness::Outcome run = Flash();
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("nothing has been erased; with --no-backup it goes on"));
  EXPECT_EQ(ecu_.Flash(), before);
  EXPECT_EQ(Flash({"--yes", "--no-backup"}).status, 0);
  EXPECT_TRUE(image_.IsIn(ecu_));
}

TEST_F(FirmwareCommands, AskBeforeTheyErase) {
  EXPECT_EQ(Flash({}).status, 2);
  EXPECT_EQ(line_.RequestCount(), 0U);
  const std::vector<std::uint8_t> before = ecu_.Flash();
  cli_.terminal = true;
  cli_.typed = "n\n";
  EXPECT_THAT(Flash({}).err, HasSubstr("bytes\nECU: ECU123456, firmware 00.39\n[y/n] "));
  EXPECT_EQ(Run({"erase"}).status, 1);
  EXPECT_EQ(ecu_.Flash(), before);
  EXPECT_FALSE(ecu_.InBootloader());
  cli_.typed = "y\n";
  EXPECT_EQ(Run({"erase"}).out, "erased: ECU123456, firmware 00.39\n");
  image_.Fill({});
  EXPECT_TRUE(image_.IsIn(ecu_)) << "blank";
}

TEST_F(FirmwareCommands, AnInterruptIsAnsweredAndStopsThemOnceErasedOnlyTheSecondTime) {
  const std::vector<std::uint8_t> before = ecu_.Flash();
  const auto interrupt = [this](unsigned count, std::uint64_t from) {
    cli_.interrupted = 0;
    line_.SetReportSink([this, count, first = line_.RequestCount() + from](const auto& report) {
      if (report.number >= first) cli_.interrupted = count;
    });
  };
  interrupt(1, 5);
  EXPECT_THAT(Flash().err, AllOf(HasSubstr("zelorgas-cli: stopping\nzelorgas-cli: the conf"),
                                 testing::EndsWith("stopped; nothing has been erased\n")));
  EXPECT_EQ(ecu_.Flash(), before);
  interrupt(1, 80);
  CliHarness::Outcome late = Flash();
  EXPECT_EQ(late.status, 0);
  EXPECT_THAT(late.err, HasSubstr("zelorgas-cli: the update goes on: "));
  EXPECT_TRUE(image_.IsIn(ecu_));
  interrupt(2, 80);
  late = Flash();
  EXPECT_EQ(late.status, 1);
  EXPECT_THAT(late.err, AllOf(HasSubstr("zelorgas-cli: stopping\n"),
                              testing::EndsWith("bootloader: run the command again.\n")));
  EXPECT_FALSE(image_.IsIn(ecu_));
  ecu_.WithBootloader([](Bootloader& boot) { EXPECT_FALSE(boot.Coil(16)) << "flash mode"; });
}

}  // namespace
}  // namespace zelorgas
