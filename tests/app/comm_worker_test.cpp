#include <gtest/gtest.h>

#include <algorithm>

#include "app/CommWorker.h"
#include "support/ConnectedDocument.h"

namespace zelorgas {
namespace {

// A document whose worker the test turns round by round.
struct Polled : ConnectedDocument {
  explicit Polled(std::uint8_t software_minor = 39) : ConnectedDocument(software_minor) {
    EXPECT_TRUE(document.PrepareWorker());
    document.Link().SetTraceSink([this](const FrameTrace& trace) {
      if (trace.direction != FrameTrace::Direction::kSent) return;
      const std::string frame(trace.frame.begin(), trace.frame.end());
      if (!requests.empty()) requests += ", ";
      requests +=
          frame.substr(3, 2) + " " + std::to_string(std::stoi(frame.substr(5, 4), nullptr, 16));
      if (frame.substr(3, 2) == "05") requests += frame.substr(9, 4) == "FF00" ? " on" : " off";
    });
  }

  // What the next round posts.
  std::string Round() {
    requests.clear();
    const double before_ms = clock.ElapsedMs();
    EXPECT_TRUE(worker.RunRound());
    took_ms = clock.ElapsedMs() - before_ms;
    return status.Take();
  }

  CommWorker worker{document};
  std::string requests;  // of the last round, in short: "18 0" for a FIFO read, "05 34 on"
  double took_ms = 0;
};

constexpr const char* kUp = "1,0 1,1 0,1 0,0";  // the posts of a round that finds the ECU
constexpr const char* kOnePoll = "18 0, 04 43, 04 71, 01 32, 02 32";

TEST(CommWorker, TheFirstRoundReadsEverythingThenPolls) {
  Polled ecu;
  EXPECT_EQ(ecu.Round(), kUp);
  EXPECT_EQ(ecu.document.Snapshot().block, ecu.ecu.Block());
  EXPECT_EQ(ecu.document.Snapshot().status_words[1], 39);
  EXPECT_EQ(ecu.Round(), "0,0");
  EXPECT_EQ(ecu.requests, kOnePoll);
  EXPECT_DOUBLE_EQ(ecu.took_ms, 30) << "its pauses and no more";

  ecu.ecu.SetRegister(300, 4711);
  ecu.document.RequestRefresh();
  EXPECT_EQ(ecu.Round(), "0,1 0,0") << "a refresh does not say that the link is up";
  EXPECT_EQ(ecu.document.Snapshot().block[300 - 256], 4711);
  EXPECT_EQ(ecu.Round(), "0,0");
  EXPECT_EQ(ecu.requests, kOnePoll) << "the refresh is done";
}

TEST(CommWorker, HeldItReadsTheFifoPausedNothingStoppedItSaysGoodbye) {
  Polled ecu;
  ecu.Round();
  ecu.document.HoldEvent().Set();
  EXPECT_EQ(ecu.Round(), "");
  EXPECT_EQ(ecu.requests, "18 0");
  ecu.document.PauseWorker(true);
  EXPECT_EQ(ecu.Round(), "");
  EXPECT_TRUE(ecu.document.WorkerIdle());
  EXPECT_EQ(ecu.requests, "");
  ecu.document.TellWorkerToStop();
  EXPECT_FALSE(ecu.worker.RunRound());
  EXPECT_EQ(ecu.requests, "05 34 on, 05 34 off");
  EXPECT_EQ(ecu.status.Take(), "1,3 1,3");
}

TEST(CommWorker, OnlyVersions36To39ArePolled) {
  Polled old(35);
  EXPECT_EQ(old.Round(), "1,0");
  EXPECT_EQ(old.requests, "18 0, 04 43");
  Polled newer(40);
  EXPECT_EQ(newer.Round(), "1,0");
  EXPECT_EQ(newer.requests, "");
  EXPECT_DOUBLE_EQ(newer.took_ms, 50);
}

TEST(CommWorker, ThreeFailedPollsMeanALostLink) {
  const struct {
    std::uint8_t minor;
    std::string while_lost;
    std::string at_recovery;
  } cases[] = {
      // Older software reads everything again; 0.39 only says that the link is back.
      {38, "", kUp},
      {39, "1,0", "1,1 0,0"},
  };
  for (const auto& c : cases) {
    Polled ecu(c.minor);
    ecu.Round();
    ecu.line.WithFaults([](LineFaults& faults) { faults.Every(1, {FaultKind::kDropAnswer}); });
    EXPECT_EQ(ecu.Round() + ecu.Round(), "") << int{c.minor} << ": two failures are borne";
    EXPECT_EQ(ecu.Round(), c.while_lost) << int{c.minor};
    if (c.minor == 39) {
      EXPECT_EQ(ecu.Round(), c.while_lost);
    }
    ecu.line.WithFaults([](LineFaults& faults) { faults.Clear(); });
    EXPECT_EQ(ecu.Round(), c.at_recovery) << int{c.minor};
  }
}

TEST(CommWorker, AFullReadThatFailsIsTriedAgainInTheNextRound) {
  // The block's third chunk, the status words, the coils.
  for (const std::uint64_t request : {3, 20, 21}) {
    Polled ecu;
    ecu.line.ArmFault({FaultKind::kBadCheck}, request);
    EXPECT_EQ(ecu.Round(), "1,0 0,0") << "not up, though the poll went well";
    if (request == 3) {
      ConfigurationBlock expected{};
      std::copy_n(ecu.ecu.Block().begin(), 64, expected.begin());
      EXPECT_EQ(ecu.document.Snapshot().block, expected);
    }
    EXPECT_EQ(ecu.Round(), kUp) << request;
  }
}

TEST(CommWorker, ARestartIsReportedOnceAndOnlyAfterTheFirstGoodPoll) {
  Polled ecu;
  EXPECT_EQ(ecu.Round(), kUp) << "the flag of power-on is not news";
  EXPECT_FALSE(ecu.ecu.Coil(43));
  ecu.ecu.Restart();
  EXPECT_EQ(ecu.Round(), "0,0 2,0");
  EXPECT_FALSE(ecu.ecu.Coil(43));
  EXPECT_EQ(ecu.Round(), "0,0");

  Polled older(38);
  older.Round();
  older.ecu.Restart();
  EXPECT_EQ(older.Round(), "0,0") << "coil 43 is another thing there";
}

TEST(CommWorker, ARefreshDoesNotReadOverWhatARestartedEcuIsToGetBack) {
  Polled ecu;
  ecu.Round();
  const ConfigurationBlock known = ecu.document.Snapshot().block;
  ecu.ecu.Restart();
  ecu.ecu.SetRegister(300, 4711);
  ecu.document.RequestRefresh();
  EXPECT_EQ(ecu.Round(), "2,0 0,0");
  EXPECT_EQ(ecu.Round(), "0,0");
  EXPECT_EQ(ecu.document.Snapshot().block, known);
  ecu.document.EndWriteBack();
  EXPECT_EQ(ecu.Round(), "0,1 0,0") << "the refresh is late, not lost";
  EXPECT_EQ(ecu.document.Snapshot().block[300 - 256], 4711);
}

TEST(CommWorker, APulledPlugIsSaidAtOnceAndHealsByItself) {
  Polled ecu;
  ecu.Round();
  for (int turn = 0; turn < 100; ++turn) {
    // Between two exchanges, or in the middle of any of them.
    if (turn % 6 == 0) {
      ecu.line.SetPlugged(false);
    } else {
      ecu.line.ArmFault({FaultKind::kUnplug}, static_cast<std::uint64_t>(turn % 6));
    }
    double said_ms = -1;
    ecu.document.SetSliceHook([&] {
      const bool said = said_ms < 0 && !ecu.line.Plugged() && ecu.status.Take() != "";
      if (said) said_ms = ecu.clock.ElapsedMs();
    });
    const double pulled_ms = ecu.clock.ElapsedMs();
    for (int round = 0; round < 3; ++round) ASSERT_TRUE(ecu.worker.RunRound());
    EXPECT_GE(said_ms, 0) << turn;
    EXPECT_LE(said_ms - pulled_ms, 1000) << turn;
    ecu.document.SetSliceHook({});
    ecu.status.Take();
    ecu.line.SetPlugged(true);
    EXPECT_EQ(ecu.Round(), kUp) << turn;
  }
}

TEST(CommWorker, AnotherEcuIsSaidAndThenLeftAlone) {
  const struct {
    const char* what;
    std::uint8_t minor;
    std::function<void(Polled&)> change;
  } cases[] = {
      {"an adapter plugged in again", 38,
       [](Polled& ecu) {
         ecu.line.SetPlugged(false);
         ecu.Round();
         ecu.line.SetPlugged(true);
       }},
      {"a cable moved", 39, [](Polled& ecu) { ecu.line.ArmFault({FaultKind::kDropAnswer}, 3); }},
      {"one just switched on", 39, [](Polled& ecu) { ecu.ecu.Restart(); }},
      {"a refresh", 39, [](Polled& ecu) { ecu.document.RequestRefresh(); }},
  };
  for (const auto& c : cases) {
    Polled ecu(c.minor);
    ecu.Round();
    c.change(ecu);
    ecu.ecu.SetSerial(654321);
    std::string posted;
    for (int round = 0; round < 3; ++round) posted += ecu.Round();
    EXPECT_TRUE(posted.ends_with("2,1")) << c.what << ": " << posted;
    EXPECT_EQ(posted.find("1,1"), std::string::npos) << c.what << ": the link is not up for it";
    EXPECT_EQ(posted.find("2,0"), std::string::npos) << c.what << ": nothing is written to it";
    EXPECT_EQ(ecu.requests, "") << c.what;
    ecu.document.TellWorkerToStop();
    EXPECT_FALSE(ecu.worker.RunRound());
    EXPECT_EQ(ecu.requests, "") << c.what << ": no goodbye to a stranger";
  }
}

TEST(CommWorker, TheThreadStartsOnceAndNotWithoutAPort) {
  ConnectedDocument connected;
  for (int turn = 0; turn < 20; ++turn) {
    ASSERT_TRUE(connected.document.StartWorker());
    EXPECT_TRUE(connected.document.StartWorker()) << "already running";
    connected.document.StopWorker();
    EXPECT_FALSE(connected.document.HasWorker());
  }
  connected.document.Link().Close();
  connected.line.SetPlugged(false);
  connected.status.Take();
  EXPECT_FALSE(connected.document.StartWorker());
  EXPECT_EQ(connected.status.Take(), "1,2");
}

}  // namespace
}  // namespace zelorgas
