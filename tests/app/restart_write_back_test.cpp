#include <gtest/gtest.h>

#include "app/RestartWriteBack.h"
#include "support/ConnectedDocument.h"

namespace zelorgas {
namespace {

TEST(RestartWriteBack, WritesChunkByChunkUntilOneFailsThreeTimes) {
  ConnectedDocument connected;
  ClpgecuDoc& document = connected.document;
  ASSERT_TRUE(document.Link().Open(0, 0, 255));
  for (std::size_t i = 0; i < kBlockWords; ++i) {
    document.Image().block[i] = static_cast<std::uint16_t>(i + 1);
  }
  bool same = true;
  EXPECT_EQ(WriteBackAfterRestart(document, same), ModbusResult::kOk);
  EXPECT_TRUE(same);
  EXPECT_EQ(connected.ecu.Block(), document.Image().block);
  EXPECT_EQ(connected.line.RequestCount(), 20U) << "who it is, and nineteen chunks";
  // The grace period and nineteen rests; the unpaced line itself takes no time.
  EXPECT_EQ(connected.clock.ElapsedMs(), 250 + 19 * 25);
  EXPECT_EQ(document.Link().AttemptCount(), 1);

  const ConfigurationBlock old = document.Image().block;
  document.Image().block.fill(7777);
  for (const std::uint64_t ahead : {6, 7, 8}) {
    connected.line.ArmFault({FaultKind::kDropRequest}, ahead);
  }
  EXPECT_EQ(WriteBackAfterRestart(document, same), ModbusResult::kTimeOut);
  EXPECT_EQ(connected.line.RequestCount(), 20U + 8U);
  EXPECT_EQ(connected.ecu.Block()[4 * kBlockChunkWords - 1], 7777);
  EXPECT_EQ(connected.ecu.Block()[4 * kBlockChunkWords], old[4 * kBlockChunkWords]);
  EXPECT_EQ(document.Link().AttemptCount(), 1);
}

TEST(RestartWriteBack, LeavesAnotherCarsEcuAlone) {
  ConnectedDocument connected;
  ClpgecuDoc& document = connected.document;
  ASSERT_TRUE(document.Link().Open(0, 0, 255));
  document.Image().serial = 123456;
  document.Image().block.fill(7777);
  const ConfigurationBlock theirs = connected.ecu.Block();
  connected.ecu.SetSerial(654321);
  bool same = true;
  EXPECT_EQ(WriteBackAfterRestart(document, same), ModbusResult::kOk);
  EXPECT_FALSE(same);
  EXPECT_EQ(connected.ecu.Block(), theirs);
  EXPECT_EQ(connected.line.RequestCount(), 1U);
}

}  // namespace
}  // namespace zelorgas
