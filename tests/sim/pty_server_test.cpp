// The program's own transport over a real pseudo-terminal, in real time.
#include <gtest/gtest.h>

#include <thread>

#include "link/ModbusSerialPort.h"
#include "sim/LineServer.h"

namespace zelorgas {
namespace {

class PtyServerTest : public testing::Test {
 protected:
  void Serve(SimulatedLineOptions options) {
    line_ = std::make_unique<SimulatedLine>(ecu_, *clock_, options);
    std::string error;
    server_ = OpenPtyServer(*line_, *clock_, error);
    ASSERT_TRUE(server_) << error;
    thread_ = std::thread([this] { server_->Serve(); });
  }
  void TearDown() override {
    if (server_) server_->Stop();
    if (thread_.joinable()) thread_.join();
  }
  bool Connect(FramingMode framing) {
    port_.SetFraming(framing);
    port_.SetDataBits(7);
    port_.SetPortName(server_->Path());
    return port_.Open(0, 19200, 2);
  }
  ModbusResult Read() {
    std::vector<std::uint16_t> words;
    return port_.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, 32, words);
  }

  std::unique_ptr<Clock> clock_ = MakeSteadyClock();
  SimulatedEcu ecu_{*clock_};
  ModbusSerialPort port_{SystemSerialPorts(*clock_), *clock_};
  std::unique_ptr<SimulatedLine> line_;
  std::unique_ptr<LineServer> server_;
  std::thread thread_;
};

TEST_F(PtyServerTest, RtuAtThePaceOfTheLineHasNoGapsInAFrame) {
  Serve({.echo = false});
  ASSERT_TRUE(Connect(FramingMode::kRtu));
  for (int i = 0; i < 5; ++i) EXPECT_EQ(Read(), ModbusResult::kOk);
}

TEST_F(PtyServerTest, ThePaceIsKeptAndAPulledPlugEndsAnExchange) {
  Serve({});
  ASSERT_TRUE(Connect(FramingMode::kAscii));
  EXPECT_FALSE(SystemSerialPorts(*clock_)(server_->Path())) << "one client at a time";
  port_.Close();
  ASSERT_TRUE(Connect(FramingMode::kAscii)) << "and another one later";
  const Clock::TimePoint start = clock_->Now();
  ASSERT_EQ(Read(), ModbusResult::kOk);
  // 17 characters out and 139 back; a busy machine may take longer, never shorter.
  EXPECT_GE(clock_->Now() - start, std::chrono::microseconds(156 * 520));
  line_->ArmFault({FaultKind::kUnplug});
  EXPECT_NE(Read(), ModbusResult::kOk);
  line_->SetPlugged(true);
  EXPECT_EQ(Read(), ModbusResult::kOk);
}

}  // namespace
}  // namespace zelorgas
