#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <thread>
#include <utility>

#include "app/CommWorker.h"
#include "app/LinkSession.h"
#include "support/ConnectedDocument.h"

namespace zelorgas {
namespace {

using Wait = LinkSession::Wait;

TEST(LinkSession, TriesThreeTimesInsideAndOnceAfterwards) {
  ConnectedDocument connected;
  ModbusSerialPort& link = connected.document.Link();
  ASSERT_TRUE(link.Open(0, 0, 255));
  // Nobody polls, so there is nobody to wait for.
  for (const auto& [wait, pause_ms] :
       {std::pair(Wait::kGrace, 250.0), {Wait::kIdle, 0.0}, {Wait::kIdleAndGrace, 250.0}}) {
    const double before_ms = connected.clock.ElapsedMs();
    {
      const LinkSession session(connected.document, wait);
      EXPECT_EQ(link.AttemptCount(), 3);
      EXPECT_DOUBLE_EQ(connected.clock.ElapsedMs() - before_ms, pause_ms);
    }
    EXPECT_EQ(link.AttemptCount(), 1);
  }
}

TEST(LinkSession, TheImageTakesOnlyWhatTheEcuHasTaken) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.Link().Open(0, 0, 255));
  LinkSession session(connected.document, Wait::kIdle);
  const std::array<std::uint16_t, 2> values{8, 9};
  for (const bool works : {true, false}) {
    const auto result = works ? ModbusResult::kOk : ModbusResult::kTimeOut;
    if (!works) {
      session.Image().block = {};
      connected.line.WithFaults(
          [](LineFaults& faults) { faults.Every(1, {FaultKind::kDropRequest}); });
    }
    EXPECT_EQ(session.WriteRegister(300, 7), result);
    EXPECT_EQ(session.WriteRegisters(301, values), result);
    for (std::uint16_t reg = 300; reg < 303; ++reg) {
      EXPECT_EQ(session.Image().RegisterCopy(reg), works ? reg - 293 : 0);
    }
  }
}

// In real time: under the virtual clock the limit of the wait for the worker would pass in no time.
TEST(LinkSession, TheWorkerKeepsOutWhileItLasts) {
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  SimulatedEcu ecu(*clock);
  SimulatedLine line(ecu, *clock, {.paced = false});
  StatusRecorder status;
  ClpgecuDoc document(SimulatedPort(line, *clock), *clock, status);
  document.Image().software = {0, 39};
  ASSERT_TRUE(document.StartWorker());
  for (int turn = 0; turn < 30; ++turn) {
    LinkSession session(document, Wait::kIdle);
    const std::uint64_t before = line.RequestCount();
    for (int i = 0; i < 5; ++i) {
      std::this_thread::yield();
      ASSERT_EQ(session.WriteRegister(300, 7), ModbusResult::kOk);
    }
    EXPECT_EQ(line.RequestCount(), before + 5);
  }
}

TEST(LinkSession, AWorkerThatDoesNotAnswerIsNotWaitedForForever) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  ASSERT_TRUE(worker.RunRound());
  const double before_ms = connected.clock.ElapsedMs();
  const LinkSession session(connected.document, Wait::kIdle);
  EXPECT_DOUBLE_EQ(connected.clock.ElapsedMs() - before_ms, 10'000);
}

}  // namespace
}  // namespace zelorgas
