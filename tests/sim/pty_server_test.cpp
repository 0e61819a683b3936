// The program's own transport over a real pseudo-terminal, in real time.
#include <gtest/gtest.h>

#include <thread>

#include "config/BlockTransfer.h"
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
  bool Open(ModbusSerialPort& port, FramingMode framing) {
    port.SetFraming(framing);
    port.SetDataBits(7);
    port.SetPortName(server_->Path());
    return port.Open(0, 19200, 2);
  }

  std::unique_ptr<Clock> clock_ = MakeSteadyClock();
  SimulatedEcu ecu_{*clock_};
  std::unique_ptr<SimulatedLine> line_;
  std::unique_ptr<LineServer> server_;
  std::thread thread_;
};

TEST_F(PtyServerTest, TheWholeBlockBothWaysByOneClientAfterTheOther) {
  Serve({.paced = false});
  ConfigurationBlock block{};
  {
    ModbusSerialPort first(SystemSerialPorts(*clock_), *clock_);
    ASSERT_TRUE(Open(first, FramingMode::kAscii));
    ASSERT_EQ(ReadBlock(first, StoreInto(block)), ModbusResult::kOk);
    EXPECT_EQ(block, ecu_.Block());
    ModbusSerialPort intruder(SystemSerialPorts(*clock_), *clock_);
    EXPECT_FALSE(Open(intruder, FramingMode::kAscii)) << "one client at a time";
  }
  for (std::uint16_t& word : block) word = static_cast<std::uint16_t>(word * 3 + 1);
  ModbusSerialPort second(SystemSerialPorts(*clock_), *clock_);
  ASSERT_TRUE(Open(second, FramingMode::kAscii));
  ASSERT_EQ(WriteBlock(second, block), ModbusResult::kOk);
  EXPECT_EQ(block, ecu_.Block());
}

TEST_F(PtyServerTest, RtuWithoutEcho) {
  Serve({.echo = false, .paced = false});
  ModbusSerialPort port(SystemSerialPorts(*clock_), *clock_);
  ASSERT_TRUE(Open(port, FramingMode::kRtu));
  ConfigurationBlock block{};
  ASSERT_EQ(ReadBlock(port, StoreInto(block)), ModbusResult::kOk);
  EXPECT_EQ(block, ecu_.Block());
}

TEST_F(PtyServerTest, RtuAtThePaceOfTheLineHasNoGapsInAFrame) {
  Serve({.echo = false});
  ModbusSerialPort port(SystemSerialPorts(*clock_), *clock_);
  ASSERT_TRUE(Open(port, FramingMode::kRtu));
  for (int i = 0; i < 5; ++i) {
    std::vector<std::uint16_t> words;
    EXPECT_EQ(port.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, 32, words), ModbusResult::kOk);
  }
}

TEST_F(PtyServerTest, ThePaceIsKept) {
  Serve({});
  ModbusSerialPort port(SystemSerialPorts(*clock_), *clock_);
  ASSERT_TRUE(Open(port, FramingMode::kAscii));
  const Clock::TimePoint start = clock_->Now();
  std::vector<std::uint16_t> words;
  ASSERT_EQ(port.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, 32, words), ModbusResult::kOk);
  // 17 characters out and 139 back; a busy machine may take longer, never shorter.
  EXPECT_GE(clock_->Now() - start, std::chrono::microseconds(156 * 520));
}

TEST_F(PtyServerTest, PulledOutTheExchangeEndsAndAnotherWorksLater) {
  Serve({.paced = false});
  ModbusSerialPort port(SystemSerialPorts(*clock_), *clock_);
  ASSERT_TRUE(Open(port, FramingMode::kAscii));
  line_->ArmFault({FaultKind::kUnplug});
  std::vector<std::uint16_t> words;
  EXPECT_NE(port.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, 32, words), ModbusResult::kOk);
  line_->SetPlugged(true);
  EXPECT_EQ(port.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, 32, words), ModbusResult::kOk);
}

}  // namespace
}  // namespace zelorgas
