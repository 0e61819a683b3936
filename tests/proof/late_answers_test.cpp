// An answer that comes too late, by every millisecond up to three time-outs: it is never taken for
// the answer of a later request, and the line comes back.
#include <gtest/gtest.h>

#include "link/ModbusSerialPort.h"
#include "sim/SimulatedPort.h"
#include "support/VirtualClock.h"

namespace zelorgas {
namespace {

using Words = std::vector<std::uint16_t>;

constexpr std::uint16_t kFirstRegister = 256;
constexpr int kTimeOutMs = 1000;

class LateAnswers : public testing::TestWithParam<FramingMode> {};

TEST_P(LateAnswers, NoneIsTakenForALaterOne) {
  const bool ascii = GetParam() == FramingMode::kAscii;
  for (int late_ms = 0; late_ms <= 3 * kTimeOutMs; ++late_ms) {
    VirtualClock clock;
    SimulatedEcu ecu(clock);
    SimulatedLine line(ecu, clock, {.echo = ascii});
    ModbusSerialPort port(SimulatedPort(line, clock), clock);
    port.SetFraming(GetParam());
    ASSERT_TRUE(port.Open(1, 19200, 2));
    line.ArmFault({FaultKind::kDelay, static_cast<unsigned>(late_ms)});
    bool recovered = false;
    for (std::uint16_t turn = 0; turn < 5; ++turn) {
      const auto number = static_cast<std::uint16_t>(kFirstRegister + turn);
      const auto expected = static_cast<std::uint16_t>(1000 + turn);
      ecu.SetRegister(number, expected);
      Words words;
      const ModbusResult result = port.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, number, 1, words);
      recovered = result == ModbusResult::kOk;
      ASSERT_EQ(words, recovered ? Words{expected} : Words{}) << late_ms << " ms, turn " << turn;
      if (turn > 0) continue;
      // The line itself takes some of the time.
      ASSERT_TRUE(recovered || late_ms > kTimeOutMs - 50) << late_ms << " ms";
      ASSERT_FALSE(recovered && late_ms > kTimeOutMs + 50) << late_ms << " ms";
    }
    EXPECT_TRUE(recovered) << late_ms << " ms late";
  }
}

INSTANTIATE_TEST_SUITE_P(Framing, LateAnswers,
                         testing::Values(FramingMode::kAscii, FramingMode::kRtu),
                         [](const auto& row) {
                           return row.param == FramingMode::kAscii ? "Ascii" : "Rtu";
                         });

}  // namespace
}  // namespace zelorgas
