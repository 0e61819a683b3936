#include <gtest/gtest.h>

#include <algorithm>

#include "app/CommWorker.h"
#include "support/ConnectedDocument.h"

namespace zelorgas {
namespace {

class CommWorkerTest : public testing::Test {
 protected:
  // The requests of one round, in short: "18" for a FIFO read, "05 34 on", "04 71".
  void Watch(ConnectedDocument& connected) {
    connected.document.Link().SetTraceSink([this](const FrameTrace& trace) {
      if (trace.direction != FrameTrace::Direction::kSent) return;
      const std::string frame(trace.frame.begin(), trace.frame.end());
      const int address = std::stoi(frame.substr(5, 4), nullptr, 16);
      if (!requests_.empty()) requests_ += ", ";
      requests_ += frame.substr(3, 2) + " " + std::to_string(address);
      if (frame.substr(3, 2) == "05") requests_ += frame.substr(9, 4) == "FF00" ? " on" : " off";
    });
  }
  std::string TakeRequests() { return std::exchange(requests_, {}); }

  std::string requests_;
};

constexpr const char* kOnePoll = "18 0, 04 43, 04 71, 01 32, 02 32";

TEST_F(CommWorkerTest, TheFirstRoundReadsEverythingThenPolls) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(connected.status.Take(), "1,0 1,1 0,1 0,0");
  EXPECT_EQ(connected.document.Snapshot().block, connected.ecu.Block());
  EXPECT_EQ(connected.document.Snapshot().status_words[1], 39);

  Watch(connected);
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(TakeRequests(), kOnePoll);
  EXPECT_EQ(connected.status.Take(), "0,0");

  connected.ecu.SetRegister(300, 4711);
  connected.document.RequestRefresh();
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(connected.status.Take(), "0,1 0,0") << "a refresh does not say that the link is up";
  EXPECT_EQ(connected.document.Snapshot().block[300 - 256], 4711);
  TakeRequests();
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(TakeRequests(), kOnePoll) << "the refresh is done";
}

TEST_F(CommWorkerTest, ARoundCostsItsPausesAndNoMore) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  ASSERT_TRUE(worker.RunRound());
  const double before_ms = connected.clock.ElapsedMs();
  ASSERT_TRUE(worker.RunRound());
  EXPECT_DOUBLE_EQ(connected.clock.ElapsedMs() - before_ms, 30);
}

TEST_F(CommWorkerTest, TheFifoIsFollowedRecordByRecord) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  std::vector<LiveRecord> records;
  for (int round = 0; round < 40; ++round) {
    connected.clock.Sleep(std::chrono::milliseconds{70 + 20 * (round % 9)});
    ASSERT_TRUE(worker.RunRound());
    const auto taken = connected.document.LiveRecords().TakeAll();
    records.insert(records.end(), taken.begin(), taken.end());
  }
  // The last round's may still wait in the ECU.
  EXPECT_NEAR(static_cast<double>(records.size()), connected.clock.ElapsedMs() / 100, 1);
  const EcuImage image = connected.document.Snapshot();
  EXPECT_EQ(image.record, records.back());
  EXPECT_GT(image.record.EngineSpeed(), 500);
  EXPECT_NEAR(image.record.BatteryVolts(), 14, 0.5);
}

TEST_F(CommWorkerTest, TheCoilAreasOfEachVersion) {
  for (const std::uint8_t minor : {std::uint8_t{36}, std::uint8_t{38}, std::uint8_t{39}}) {
    ConnectedDocument connected(minor);
    for (const std::uint16_t coil :
         {std::uint16_t{32}, std::uint16_t{42}, std::uint16_t{44}, std::uint16_t{60}}) {
      connected.ecu.SetCoil(coil, true);
    }
    ASSERT_TRUE(connected.document.PrepareWorker());
    CommWorker worker(connected.document);
    ASSERT_TRUE(worker.RunRound());
    const CoilImage coils = connected.document.Snapshot().coils;
    for (std::uint16_t coil = 32; coil < 32 + CoilCount(minor); ++coil) {
      if (coil == 43 || coil == 36) continue;  // the restart flag, and the fuel
      EXPECT_EQ(coils.Coil(coil) == 1, coil == 32 || coil == 42 || coil == 44 || coil == 60)
          << int{minor} << " coil " << coil;
    }
    EXPECT_EQ(coils.Coil(31), 0);
    EXPECT_EQ(coils.Coil(67), 0);
  }
}

TEST_F(CommWorkerTest, OnlyVersions36To39ArePolled) {
  {
    ConnectedDocument connected(35);
    ASSERT_TRUE(connected.document.PrepareWorker());
    CommWorker worker(connected.document);
    Watch(connected);
    ASSERT_TRUE(worker.RunRound());
    EXPECT_EQ(TakeRequests(), "18 0, 04 43");
    EXPECT_EQ(connected.status.Take(), "1,0");
  }
  ConnectedDocument connected(40);
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  Watch(connected);
  const double before_ms = connected.clock.ElapsedMs();
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(TakeRequests(), "");
  EXPECT_EQ(connected.status.Take(), "1,0");
  EXPECT_DOUBLE_EQ(connected.clock.ElapsedMs() - before_ms, 50);
}

TEST_F(CommWorkerTest, ThreeFailedPollsMeanALostLink) {
  struct Case {
    std::uint8_t minor;
    const char* while_lost;  // posts of the third and fourth failed round
    const char* at_recovery;
  };
  // Older software reads everything again; 0.39 only says that the link is back.
  for (const Case& c : {Case{38, "", "1,0 1,1 0,1 0,0"}, Case{39, "1,0 1,0", "1,1 0,0"}}) {
    ConnectedDocument connected(c.minor);
    ASSERT_TRUE(connected.document.PrepareWorker());
    CommWorker worker(connected.document);
    ASSERT_TRUE(worker.RunRound());
    connected.status.Take();
    connected.line.WithFaults(
        [](LineFaults& faults) { faults.Every(1, {FaultKind::kDropAnswer}); });
    ASSERT_TRUE(worker.RunRound());
    ASSERT_TRUE(worker.RunRound());
    EXPECT_EQ(connected.status.Take(), "") << int{c.minor} << ": two failures are borne";
    ASSERT_TRUE(worker.RunRound());
    if (c.minor == 39) {
      ASSERT_TRUE(worker.RunRound());
    }
    EXPECT_EQ(connected.status.Take(), c.while_lost) << int{c.minor};
    connected.line.WithFaults([](LineFaults& faults) { faults.Clear(); });
    ASSERT_TRUE(worker.RunRound());
    EXPECT_EQ(connected.status.Take(), c.at_recovery) << int{c.minor};
  }
}

TEST_F(CommWorkerTest, AFullReadThatFailsIsTriedAgainInTheNextRound) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  connected.line.ArmFault({FaultKind::kBadCheck}, 3);
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(connected.status.Take(), "1,0 0,0") << "not up, though the poll went well";
  const EcuImage image = connected.document.Snapshot();
  EXPECT_TRUE(
      std::equal(image.block.begin(), image.block.begin() + 64, connected.ecu.Block().begin()));
  EXPECT_TRUE(std::all_of(image.block.begin() + 64, image.block.end(),
                          [](std::uint16_t word) { return word == 0; }));
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(connected.status.Take(), "1,0 1,1 0,1 0,0");
}

TEST_F(CommWorkerTest, ARestartIsReportedOnceAndOnlyAfterTheFirstGoodPoll) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(connected.status.Take(), "1,0 1,1 0,1 0,0") << "the flag of power-on is not news";
  EXPECT_FALSE(connected.ecu.Coil(43));
  connected.ecu.Restart();
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(connected.status.Take(), "0,0 2,0");
  EXPECT_FALSE(connected.ecu.Coil(43));
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(connected.status.Take(), "0,0");

  ConnectedDocument older(38);
  ASSERT_TRUE(older.document.PrepareWorker());
  CommWorker older_worker(older.document);
  ASSERT_TRUE(older_worker.RunRound());
  older.ecu.Restart();
  older.status.Take();
  ASSERT_TRUE(older_worker.RunRound());
  EXPECT_EQ(older.status.Take(), "0,0") << "coil 43 is another thing there";
}

TEST_F(CommWorkerTest, APulledPlugIsSaidAtOnceAndHealsByItself) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  ASSERT_TRUE(worker.RunRound());
  for (int turn = 0; turn < 100; ++turn) {
    connected.status.Take();
    // Between two exchanges, or in the middle of any of them.
    if (turn % 6 == 0) {
      connected.line.SetPlugged(false);
    } else {
      connected.line.ArmFault({FaultKind::kUnplug}, static_cast<std::uint64_t>(turn % 6));
    }
    double said_ms = -1;
    connected.document.SetSliceHook([&] {
      const bool said = said_ms < 0 && !connected.line.Plugged() && connected.status.Take() != "";
      if (said) said_ms = connected.clock.ElapsedMs();
    });
    const double pulled_ms = connected.clock.ElapsedMs();
    for (int round = 0; round < 3; ++round) ASSERT_TRUE(worker.RunRound());
    EXPECT_GE(said_ms, 0) << turn;
    EXPECT_LE(said_ms - pulled_ms, 1000) << turn;
    connected.document.SetSliceHook({});
    connected.status.Take();
    connected.line.SetPlugged(true);
    ASSERT_TRUE(worker.RunRound());
    EXPECT_EQ(connected.status.Take(), "1,0 1,1 0,1 0,0") << turn;
  }
}

TEST_F(CommWorkerTest, WhileThePortIsGoneTheWorkerOnlyLooksForItNowAndThen) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  ASSERT_TRUE(worker.RunRound());
  connected.line.SetPlugged(false);
  ASSERT_TRUE(worker.RunRound());
  const double before_ms = connected.clock.ElapsedMs();
  for (int round = 0; round < 20; ++round) ASSERT_TRUE(worker.RunRound());
  EXPECT_GE(connected.clock.ElapsedMs() - before_ms, 20 * 250);
  connected.document.TellWorkerToStop();
  EXPECT_FALSE(worker.RunRound());
}

TEST_F(CommWorkerTest, WhileHeldOnlyTheFifoIsRead) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  ASSERT_TRUE(worker.RunRound());
  connected.document.HoldEvent().Set();
  Watch(connected);
  ASSERT_TRUE(worker.RunRound());
  EXPECT_EQ(TakeRequests(), "18 0");
}

TEST_F(CommWorkerTest, ThePausedWorkerSaysSoAndTouchesNothing) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  Watch(connected);
  connected.document.PauseWorker(true);
  ASSERT_TRUE(worker.RunRound());
  EXPECT_TRUE(connected.document.WorkerIdle());
  EXPECT_EQ(TakeRequests(), "");
}

TEST_F(CommWorkerTest, StoppingEndsWithTheDisconnectPulse) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  ASSERT_TRUE(worker.RunRound());
  connected.status.Take();
  Watch(connected);
  connected.document.TellWorkerToStop();
  EXPECT_FALSE(worker.RunRound());
  EXPECT_EQ(TakeRequests(), "05 34 on, 05 34 off");
  EXPECT_EQ(connected.status.Take(), "1,3 1,3");
}

TEST_F(CommWorkerTest, TheThreadStartsStopsAndStartsAgain) {
  ConnectedDocument connected;
  for (int turn = 0; turn < 20; ++turn) {
    ASSERT_TRUE(connected.document.StartWorker());
    EXPECT_TRUE(connected.document.StartWorker()) << "already running";
    connected.document.StopWorker();
    EXPECT_FALSE(connected.document.HasWorker());
    EXPECT_FALSE(connected.ecu.Coil(34));
  }
  connected.document.Link().Close();
  connected.line.SetPlugged(false);
  connected.status.Take();
  EXPECT_FALSE(connected.document.StartWorker());
  EXPECT_EQ(connected.status.Take(), "1,2");
}

}  // namespace
}  // namespace zelorgas
