// What the threads of a whole program do to the document, all at once; under ThreadSanitizer too.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>

#include "app/EcuConnection.h"
#include "app/LinkSession.h"
#include "support/ConnectedDocument.h"
#include "support/MemorySettings.h"
#include "support/ScriptedBoxes.h"
#include "ui/FastClock.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

class NoUpdate final : public FirmwareUpdate {
  End Start(bool) override { return End::kUntouched; }
};

struct RunningProgram {
  RunningProgram() {
    document.SetSliceHook([this] { ++slices; });
    document.Link().SetPortName("/dev/ttyUSB7");
  }

  // False when it does not come to that in ten minutes of the program's time.
  template <typename Condition>
  bool WaitFor(Condition condition) {
    const Clock::TimePoint end = clock.Now() + std::chrono::minutes(10);
    while (!condition()) {
      if (clock.Now() > end) return false;
      document.SleepSliced(milliseconds(20));
    }
    return true;
  }

  FastClock clock;
  SimulatedEcu ecu{clock};
  SimulatedLine line{ecu, clock, {.paced = false}};
  StatusRecorder status;
  ClpgecuDoc document{SimulatedPort(line, clock), clock, status};
  ScriptedBoxes boxes;
  MemorySettings settings;
  NoUpdate update;
  EcuConnection connection{document, boxes, settings, update};
  std::atomic<int> slices{0};  // the hook runs on every waiting thread
};

TEST(WorkerStress, SessionsRefreshesAndPlugsWhileTheWorkerRuns) {
  RunningProgram program;
  ClpgecuDoc& document = program.document;
  ASSERT_EQ(program.connection.Connect(), EcuConnection::Outcome::kConnected);
  for (std::uint16_t turn = 0; turn < 40; ++turn) {
    document.RequestRefresh();
    document.SetExtraChannels(turn % 2 == 0);
    if (turn % 8 == 3) program.line.SetPlugged(false);
    if (turn % 8 == 4) program.line.SetPlugged(true);
    // In the middle of a full read as well as between two polls.
    document.SleepSliced(milliseconds(turn * 3));
    const std::uint16_t reg = kBlockFirstRegister + turn;
    const auto wait = turn % 3 == 0 ? LinkSession::Wait::kGrace : LinkSession::Wait::kIdle;
    ModbusResult written;
    {
      LinkSession session(document, wait);
      written = session.WriteRegister(reg, turn);
    }
    if (written == ModbusResult::kOk) {
      EXPECT_EQ(program.ecu.Register(reg), turn);
      EXPECT_EQ(document.Snapshot().RegisterCopy(reg), turn) << "an older read has overwritten it";
    }
  }
  EXPECT_TRUE(program.WaitFor([&] { return document.Snapshot().block == program.ecu.Block(); }));
  program.connection.Disconnect();
  EXPECT_TRUE(document.WorkerIdle());
  EXPECT_GT(program.slices, 0);
}

TEST(WorkerStress, UnpluggingAndConnectingAgainAHundredTimes) {
  RunningProgram program;
  for (int turn = 0; turn < 100; ++turn) {
    program.line.SetPlugged(true);
    ASSERT_EQ(program.connection.Connect(), EcuConnection::Outcome::kConnected) << turn;
    ASSERT_TRUE(
        program.WaitFor([&] { return program.status.Take().find("0,0") != std::string::npos; }));
    program.line.SetPlugged(false);
    ASSERT_TRUE(
        program.WaitFor([&] { return program.status.Take().find("1,0") != std::string::npos; }));
    program.connection.Disconnect();
    ASSERT_FALSE(program.document.HasWorker());
    ASSERT_FALSE(program.document.Link().IsOpen());
  }
}

}  // namespace
}  // namespace zelorgas
