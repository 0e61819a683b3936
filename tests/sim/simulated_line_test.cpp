#include <gtest/gtest.h>

#include <memory>

#include "config/BlockTransfer.h"
#include "link/ModbusSerialPort.h"
#include "sim/SimulatedLine.h"
#include "sim/SimulatedPort.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

constexpr double kCharacterMs = 10.0 * 1000.0 / 19200.0;

double Milliseconds(Clock::Duration duration) {
  return std::chrono::duration<double, std::milli>(duration).count();
}

std::string Text(const std::vector<std::uint8_t>& bytes) { return {bytes.begin(), bytes.end()}; }

class SimulatedLineTest : public testing::Test {
 protected:
  // Lets time pass until the line is quiet; gives what came.
  static std::string Drain(SimulatedLine& line, VirtualClock& clock) {
    std::vector<std::uint8_t> received;
    while (const auto next = line.NextArrival()) {
      clock.SleepUntil(*next);
      line.Collect(received);
    }
    return Text(received);
  }

  std::unique_ptr<ModbusSerialPort> OpenPort(const SerialOpener& opener) {
    auto port = std::make_unique<ModbusSerialPort>(opener, clock_);
    port->SetFraming(FramingMode::kAscii);
    EXPECT_TRUE(port->Open(1, 19200, 2));
    return port;
  }

  VirtualClock clock_;
  SimulatedEcu ecu_{clock_};
};

TEST_F(SimulatedLineTest, AtThePaceOf19200BaudEveryCharacterHasItsTime) {
  SimulatedLine line(ecu_, clock_);
  const Clock::TimePoint sent = line.Transmit(Bytes(":0B0301000020D1\r\n"));
  EXPECT_NEAR(Milliseconds(sent - clock_.Now()), 17 * kCharacterMs, 1e-4);
  std::vector<std::uint8_t> received;
  clock_.SleepUntil(line.NextArrival().value());
  EXPECT_NEAR(clock_.ElapsedMs(), kCharacterMs, 1e-4);
  EXPECT_EQ(line.Collect(received), 1U);
  clock_.SleepUntil(sent);
  line.Collect(received);
  EXPECT_EQ(Text(received), ":0B0301000020D1\r\n") << "the echo is complete, the answer not begun";
  EXPECT_EQ(Drain(line, clock_).size(), 139U);
  EXPECT_NEAR(clock_.ElapsedMs(), 156 * kCharacterMs, 1e-4);
  // What is sent while the line is busy waits its turn.
  line.Transmit(Bytes("x"));
  EXPECT_NEAR(Milliseconds(line.Transmit(Bytes("y")) - clock_.Now()), 2 * kCharacterMs, 1e-4);
}

// What comes back for a read of register 256, which holds 20, what the program's own transport
// makes of it on a line with echo, and that the line is sound afterwards.
TEST_F(SimulatedLineTest, WhatEachFaultDoes) {
  constexpr ModbusResult kOk = ModbusResult::kOk;
  constexpr ModbusResult kTimeOut = ModbusResult::kTimeOut;
  constexpr ModbusResult kCrcError = ModbusResult::kCrcError;
  constexpr ModbusResult kInvalid = ModbusResult::kInvalidResponse;
  const std::string good = ":0B03020014DC\r\n";
  const struct {
    const char* fault;
    std::string answer;  // "?": not looked at
    ModbusResult result;
  } cases[] = {
      {"drop", "", kTimeOut},
      {"drop-request", "", kTimeOut},
      {"delay=500", good, kOk},
      {"delay=1500", good, kTimeOut},
      {"truncate=5", ":0B03", kCrcError},
      {"truncate=0", "", kTimeOut},
      {"corrupt=24", ":0B13020014DC\r\n", kCrcError},
      {"bad-check", ":0B03020014D0\r\n", kCrcError},
      {"wrong-unit", ":0A03020014DD\r\n", kInvalid},
      {"wrong-function", ":0B430200149C\r\n", kInvalid},
      {"wrong-echo", "?", kInvalid},
      {"short", ":0B030200F0\r\n", kInvalid},
      {"duplicate", good + good, kOk},
      {"noise-before", "U*\x7F" + good, kCrcError},
      {"noise-after", good + "U*\x7F", kOk},
      {"endless-noise", "?", kCrcError},
      {"exception=4", ":0B83046E\r\n", ExceptionResult(4)},
      {"no-echo", "?", ModbusResult::kReadError},  // the answer stands in its place
      {"partial-echo", "?", ModbusResult::kReadError},
      {"corrupt-echo", "?", ModbusResult::kReadError},
      {"silent=1500", "?", kTimeOut},
      {"restart", "", kTimeOut},
      {"power-loss", "", kTimeOut},
      {"power-loss=6", ":0B030", kCrcError},
  };
  SimulatedLine bare(ecu_, clock_, {.echo = false});
  SimulatedLine line(ecu_, clock_);
  const std::unique_ptr<ModbusSerialPort> port = OpenPort(SimulatedPort(line, clock_));
  const auto arm = [](SimulatedLine& on, const char* fault) {
    const std::string when = ":" + std::to_string(on.RequestCount() + 1);
    on.WithFaults([&](LineFaults& faults) { EXPECT_TRUE(faults.Add(fault + when)); });
  };
  const std::string request = ":0B0301000001F0\r\n";
  for (const auto& c : cases) {
    if (c.answer != "?") {
      arm(bare, c.fault);
      bare.Transmit(Bytes(request));
      EXPECT_EQ(Drain(bare, clock_), c.answer) << c.fault;
      bare.Transmit(Bytes(request));
      EXPECT_EQ(Drain(bare, clock_), good) << "after " << c.fault;
    }
    arm(line, c.fault);
    std::vector<std::uint16_t> words;
    EXPECT_EQ(port->ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, 4, words), c.result) << c.fault;
    clock_.Sleep(std::chrono::seconds{2});
    EXPECT_EQ(port->ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, 4, words), kOk) << c.fault;
    EXPECT_EQ(words.front(), 20);
    EXPECT_EQ(line.FaultCount(), static_cast<std::size_t>(&c - cases) + 1);
  }
}

}  // namespace
}  // namespace zelorgas
