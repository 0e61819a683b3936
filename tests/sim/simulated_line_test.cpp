#include <gtest/gtest.h>

#include <array>

#include "link/AsciiFrame.h"
#include "link/ModbusSerialPort.h"
#include "sim/SimulatedLine.h"
#include "sim/SimulatedPort.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

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

TEST_F(SimulatedLineTest, UnpacedEverythingIsThereAtOnce) {
  SimulatedLine line(ecu_, clock_, {.echo = false, .paced = false});
  line.Transmit(Bytes("junk:0B03:0B0301000001F0\r\n"));
  std::vector<std::uint8_t> received;
  line.Collect(received);
  EXPECT_EQ(Text(received).substr(0, 7), ":0B0302") << "a colon begins a frame anew";
  received.clear();
  line.Transmit(Bytes(":0B0301000001F1\r\n"));
  EXPECT_EQ(line.Collect(received), 0U) << "a request with a wrong check is not answered";
}

TEST_F(SimulatedLineTest, RtuIsRecognisedByItsFirstByteAndEndsInSilence) {
  SimulatedLine line(ecu_, clock_, {.echo = false});
  const std::vector<std::uint8_t> request{0x0B, 0x03, 0x01, 0x00, 0x00, 0x20, 0x45, 0x44};
  line.Transmit(request);
  EXPECT_EQ(Drain(line, clock_).size(), 69U);
  line.Transmit(std::span(request).first(5));
  clock_.Sleep(milliseconds{5});
  line.Transmit(request);
  EXPECT_EQ(Drain(line, clock_).size(), 69U) << "the first half was given up";
}

// Every named fault, as the program's own transport sees it, and that the line is sound afterwards.
TEST_F(SimulatedLineTest, WhatEachFaultDoesToAnExchange) {
  struct Case {
    Fault fault;
    ModbusResult result;
  };
  const std::array cases{
      Case{{FaultKind::kDropAnswer}, ModbusResult::kTimeOut},
      Case{{FaultKind::kDropRequest}, ModbusResult::kTimeOut},
      Case{{FaultKind::kDelay, 500}, ModbusResult::kOk},
      Case{{FaultKind::kDelay, 1500}, ModbusResult::kTimeOut},
      Case{{FaultKind::kTruncate, 5}, ModbusResult::kCrcError},
      Case{{FaultKind::kTruncate, 0}, ModbusResult::kTimeOut},
      Case{{FaultKind::kCorrupt, 24}, ModbusResult::kCrcError},
      Case{{FaultKind::kBadCheck}, ModbusResult::kCrcError},
      Case{{FaultKind::kWrongUnit}, ModbusResult::kInvalidResponse},
      Case{{FaultKind::kWrongFunction}, ModbusResult::kInvalidResponse},
      Case{{FaultKind::kWrongEcho}, ModbusResult::kInvalidResponse},
      Case{{FaultKind::kShortAnswer}, ModbusResult::kInvalidResponse},
      Case{{FaultKind::kNoiseBefore}, ModbusResult::kCrcError},
      Case{{FaultKind::kEndlessNoise, 3000}, ModbusResult::kCrcError},
      Case{{FaultKind::kException, 6}, ExceptionResult(6)},
      Case{{FaultKind::kNoEcho}, ModbusResult::kReadError},  // the answer stands in its place
      Case{{FaultKind::kPartialEcho}, ModbusResult::kReadError},
      Case{{FaultKind::kCorruptEcho}, ModbusResult::kReadError},
      Case{{FaultKind::kSilent, 1500}, ModbusResult::kTimeOut},
      Case{{FaultKind::kRestart}, ModbusResult::kTimeOut},
      Case{{FaultKind::kPowerLoss}, ModbusResult::kTimeOut},
  };
  SimulatedLine line(ecu_, clock_);
  ModbusSerialPort port(SimulatedPort(line, clock_), clock_);
  port.SetFraming(FramingMode::kAscii);
  ASSERT_TRUE(port.Open(1, 19200, 2));
  for (const Case& c : cases) {
    const auto name = FaultNames()[static_cast<std::size_t>(c.fault.kind)].name;
    ASSERT_EQ(FaultNames()[static_cast<std::size_t>(c.fault.kind)].kind, c.fault.kind);
    line.ArmFault(c.fault);
    std::vector<std::uint16_t> words;
    EXPECT_EQ(port.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, 4, words), c.result)
        << name << " " << c.fault.parameter;
    clock_.Sleep(std::chrono::seconds{2});
    EXPECT_EQ(port.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, 256, 4, words), ModbusResult::kOk)
        << "after " << name;
    EXPECT_EQ(words.front(), ecu_.Register(256));
  }
}

TEST_F(SimulatedLineTest, PulledOutAndPutBack) {
  SimulatedLine line(ecu_, clock_);
  const SerialOpener open = SimulatedPort(line, clock_);
  ModbusSerialPort port(open, clock_);
  port.SetFraming(FramingMode::kAscii);
  ASSERT_TRUE(port.Open(1, 19200, 2));
  EXPECT_EQ(open("COM1"), nullptr) << "in use";
  line.ArmFault({FaultKind::kUnplug});
  EXPECT_EQ(port.WriteSingleRegister(ECU_SLAVE_ADDRESS, 256, 1), ModbusResult::kReadError);
  EXPECT_EQ(port.WriteSingleRegister(ECU_SLAVE_ADDRESS, 256, 2), ModbusResult::kWriteError);
  EXPECT_FALSE(port.Open(1, 19200, 2));
  line.SetPlugged(true);
  ASSERT_TRUE(port.Open(1, 19200, 2));
  EXPECT_EQ(port.WriteSingleRegister(ECU_SLAVE_ADDRESS, 256, 3), ModbusResult::kOk);
  EXPECT_EQ(ecu_.Register(256), 3);
}

TEST(LineFaults, TheSameSeedGivesTheSameFaults) {
  const auto run = [](std::uint64_t seed) {
    LineFaults faults(seed);
    EXPECT_TRUE(faults.Add("drop:p0.1"));
    EXPECT_TRUE(faults.Add("delay=7:every10"));
    std::string text;
    for (std::uint64_t request = 1; request <= 200; ++request) {
      const std::optional<Fault> fault = faults.ForRequest(request);
      text += !fault ? '.' : fault->kind == FaultKind::kDropAnswer ? 'x' : 'd';
    }
    return text;
  };
  EXPECT_EQ(run(5), run(5));
  EXPECT_NE(run(5), run(6));
  const std::string text = run(5);
  EXPECT_NEAR(static_cast<double>(std::ranges::count(text, 'x')), 20, 15);
  EXPECT_NE(text[9], '.');
}

}  // namespace
}  // namespace zelorgas
