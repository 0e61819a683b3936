#include <gtest/gtest.h>

#include "app/RestartWriteBack.h"
#include "support/ConnectedDocument.h"

namespace zelorgas {
namespace {

constexpr std::uint64_t kChunks = 19;

struct Restarted : ConnectedDocument {
  Restarted() {
    EXPECT_TRUE(document.Link().Open(0, 0, 255));
    for (std::size_t i = 0; i < kBlockWords; ++i) {
      document.Image().block[i] = static_cast<std::uint16_t>(i + 1);
    }
  }
};

TEST(RestartWriteBack, WritesTheWholeBlockWithARestAfterEachChunk) {
  Restarted ecu_and_pc;
  const double before = ecu_and_pc.clock.ElapsedMs();
  EXPECT_EQ(WriteBackAfterRestart(ecu_and_pc.document), ModbusResult::kOk);
  EXPECT_EQ(ecu_and_pc.ecu.Block(), ecu_and_pc.document.Image().block);
  EXPECT_EQ(ecu_and_pc.line.RequestCount(), kChunks);
  // The grace period and nineteen rests; the unpaced line itself takes no time.
  EXPECT_EQ(ecu_and_pc.clock.ElapsedMs() - before, 250 + 19 * 25);
  EXPECT_EQ(ecu_and_pc.document.Link().AttemptCount(), 1);
}

TEST(RestartWriteBack, TriesAChunkThreeTimesAndThenWritesNothingMore) {
  Restarted ecu_and_pc;
  const ConfigurationBlock old = ecu_and_pc.ecu.Block();
  for (const std::uint64_t ahead : {5, 6, 7}) {
    ecu_and_pc.line.ArmFault({FaultKind::kDropRequest}, ahead);
  }
  EXPECT_EQ(WriteBackAfterRestart(ecu_and_pc.document), ModbusResult::kTimeOut);
  EXPECT_EQ(ecu_and_pc.line.RequestCount(), 7U);
  const ConfigurationBlock now = ecu_and_pc.ecu.Block();
  constexpr std::size_t kWritten = 4 * kBlockChunkWords;
  EXPECT_EQ(now[kWritten - 1], kWritten);
  EXPECT_EQ(now[kWritten], old[kWritten]);
  EXPECT_EQ(ecu_and_pc.document.Link().AttemptCount(), 1);
}

}  // namespace
}  // namespace zelorgas
