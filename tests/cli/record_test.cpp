#include <gmock/gmock.h>

#include "cli/CliHarness.h"
#include "diag/RecordingFile.h"
#include "platform/FileSystem.h"
#include "sim/SimulatedPort.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;
using Words = std::vector<std::string>;

// What connecting asks before the polling begins.
constexpr unsigned kIntoTheFirstRead = 8;

class Record : public testing::Test {
 protected:
  Record() {
    cli_.simulated_ecu = SimulatedPort(line_, cli_.clock);
    EngineState engine;
    engine.speed_rpm = 3450;
    engine.petrol_time_us = 4321;
    engine.coolant_celsius = -12;
    ecu_.PinEngine(engine);
    ecu_.SetRegister(303, 0);
  }

  CliHarness::Outcome Run(Words words) {
    words.insert(words.begin(), {"--port", "sim"});
    return cli_.Run(words);
  }
  std::string Contents() {
    std::string contents;
    Message reason;
    return ReadWholeFile(PathFromText(file_), contents, reason) ? contents : reason.English();
  }

  const TemporaryFolder folder_;
  const std::string file_ = PathText(folder_.Path() / "idle.OSC");
  CliHarness cli_;
  SimulatedEcu ecu_{cli_.clock};
  SimulatedLine line_{ecu_, cli_.clock, {.paced = false}};
};

TEST_F(Record, StoresASampleForEveryRecordOfTheEcu) {
  CliHarness::Outcome run = Run({"record", file_, "--seconds", "60", "--notes", "idle, \"cold\""});
  EXPECT_EQ(run.err, "");
  ASSERT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("recorded: " + file_ + ", "));
  const RecordingContents recorded = LoadRecordingFile(PathFromText(file_));
  ASSERT_EQ(recorded.fault, RecordingFault::kNone);
  EXPECT_EQ(recorded.traces.notes, "idle, \"cold\"");
  for (const auto& channel : recorded.traces.channels) {
    EXPECT_NEAR(static_cast<double>(channel.size()), 598, 2);
  }
  const auto values = ScopeReadOut(recorded.traces, 3);
  EXPECT_EQ(values[0], 3.45);
  EXPECT_EQ(values[2], -1.2);
  EXPECT_EQ(values[7], 0) << "no second lambda sensor";
  EXPECT_EQ(values[9], 4.32);

  run = cli_.Run({"show", file_});
  EXPECT_EQ(run.status, 0);
  EXPECT_THAT(run.out, HasSubstr("      3.45      3.45      3.45\n"));
  EXPECT_THAT(run.out, HasSubstr("\nNotes: idle, \"cold\"\n"));
  run = cli_.Run({"--json", "show", file_});
  EXPECT_THAT(run.out, HasSubstr(R"({"notes":"idle, \"cold\"","sample_period_s":0.1,)"
                                 R"("channels":{"RPM":[3.45,3.45,)"));
}

TEST_F(Record, WhatCannotBeRecordedLeavesNoFile) {
  const struct {
    Words words;
    int status;
    std::string message;
  } cases[] = {
      {{"record", "--seconds", "1"}, 2, "record needs the file to store in"},
      {{"record", file_, "--seconds", "641"}, 2, "a recording holds at most 640 seconds"},
      {{"record", file_ + "/x.osc", "--seconds", "1"}, 3, "there is no folder"},
  };
  for (const auto& c : cases) {
    const CliHarness::Outcome run = Run(c.words);
    EXPECT_EQ(run.status, c.status) << c.message;
    EXPECT_THAT(run.err, HasSubstr(c.message));
  }
  EXPECT_EQ(ecu_.WriteCount(), 0U) << "nobody has spoken to the ECU";
  line_.ArmFault({FaultKind::kSilent, 4'000'000'000}, kIntoTheFirstRead);
  const CliHarness::Outcome run = Run({"record", file_, "--seconds", "1"});
  EXPECT_EQ(run.status, 1);
  EXPECT_THAT(run.err, HasSubstr("no live values have come"));
  EXPECT_EQ(Contents(), "No such file or directory");
}

}  // namespace
}  // namespace zelorgas
