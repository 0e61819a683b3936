#include <gtest/gtest.h>

#include <memory>
#include <thread>

#include "app/LinkSession.h"
#include "support/ConnectedDocument.h"

namespace zelorgas {
namespace {

using Wait = LinkSession::Wait;

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

}  // namespace
}  // namespace zelorgas
