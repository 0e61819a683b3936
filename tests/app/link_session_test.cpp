#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "app/CommWorker.h"
#include "app/LinkSession.h"
#include "app/RestartWriteBack.h"
#include "support/ConnectedDocument.h"

namespace zelorgas {
namespace {

TEST(LinkSession, TriesThreeTimesInsideAndOnceAfterwards) {
  ConnectedDocument connected;
  ModbusSerialPort& link = connected.document.Link();
  ASSERT_TRUE(link.Open(0, 0, 255));
  {
    LinkSession session(connected.document, LinkSession::Wait::kGrace);
    EXPECT_EQ(link.AttemptCount(), 3);
    EXPECT_DOUBLE_EQ(connected.clock.ElapsedMs(), 250);
  }
  EXPECT_EQ(link.AttemptCount(), 1);
  {
    const double before_ms = connected.clock.ElapsedMs();
    const LinkSession session(connected.document, LinkSession::Wait::kIdle);
    EXPECT_DOUBLE_EQ(connected.clock.ElapsedMs(), before_ms) << "nobody polls";
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
    LinkSession session(document, LinkSession::Wait::kIdle);
    const std::uint64_t before = line.RequestCount();
    for (int i = 0; i < 5; ++i) {
      std::this_thread::yield();
      ASSERT_EQ(session.Link().WriteSingleRegister(ECU_SLAVE_ADDRESS, 300, 7), ModbusResult::kOk);
    }
    EXPECT_EQ(line.RequestCount(), before + 5);
  }
  document.StopWorker();
}

TEST(LinkSession, AWorkerThatDoesNotAnswerIsNotWaitedForForever) {
  ConnectedDocument connected;
  ASSERT_TRUE(connected.document.PrepareWorker());
  CommWorker worker(connected.document);
  ASSERT_TRUE(worker.RunRound());
  connected.document.Link().Close();
  const LinkSession session(connected.document, LinkSession::Wait::kIdle);
  EXPECT_LE(connected.clock.ElapsedMs(), 20000);
}

TEST(RestartWriteBack, WritesTheWholeBlockBackAndStopsAtTheFirstFailure) {
  ConnectedDocument connected;
  ModbusSerialPort& link = connected.document.Link();
  ASSERT_TRUE(link.Open(0, 0, 255));
  for (std::size_t i = 0; i < kBlockWords; ++i) {
    connected.document.Image().block[i] = static_cast<std::uint16_t>(i * 7);
  }
  EXPECT_EQ(WriteBackAfterRestart(connected.document), ModbusResult::kOk);
  EXPECT_EQ(connected.ecu.Block(), connected.document.Image().block);
  EXPECT_GE(connected.clock.ElapsedMs(), 250 + 19 * 25);

  connected.document.Image().block.fill(1);
  for (std::uint64_t ahead : {3, 4, 5}) connected.line.ArmFault({FaultKind::kException, 4}, ahead);
  EXPECT_EQ(WriteBackAfterRestart(connected.document), ExceptionResult(4));
  EXPECT_EQ(connected.ecu.Register(256 + 63), 1);
  EXPECT_EQ(connected.ecu.Register(256 + 64), 64 * 7);
  EXPECT_EQ(link.AttemptCount(), 1);
}

}  // namespace
}  // namespace zelorgas
