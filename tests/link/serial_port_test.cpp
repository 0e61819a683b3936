// The transport over a scripted line: what Open applies, and each phase of an exchange.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "link/ModbusSerialPort.h"
#include "link/RtuFrame.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using Frame = std::vector<std::uint8_t>;

const Frame kRequest{0x0B, 0x03, 0x01, 0x00, 0x00, 0x01};
const Frame kAnswer{0x0B, 0x03, 0x02, 0x12, 0x34};
const std::string kRequestFrame = ":0B0301000001F0\r\n";
const std::string kAnswerFrame = ":0B03021234AA\r\n";
constexpr LineAction::Kind kError = LineAction::Kind::kLineError;
constexpr LineAction::Kind kUnplug = LineAction::Kind::kUnplug;

class SerialPortTest : public testing::Test {
 protected:
  SerialPortTest() { port_.SetFraming(FramingMode::kAscii); }

  [[nodiscard]] bool Open() { return port_.Open(1, 19200, 255); }
  // An exchange's result and the milliseconds that it took: "Ok 5".
  std::string Exchange() {
    Frame answer(5, 0xEE);
    std::size_t length = 0;
    const double before_ms = clock_.ElapsedMs();
    const ModbusResult result = port_.Exchange(kRequest, answer, answer.size(), length);
    answer.resize(length);
    EXPECT_EQ(answer, result == ModbusResult::kOk ? kAnswer : Frame());
    return Text(result, before_ms);
  }
  // The same, with what was received.
  std::string RawExchange(std::size_t expected, int time_out_ms) {
    Frame got;
    const double before_ms = clock_.ElapsedMs();
    const auto result = port_.RawExchange(Bytes("?"), expected, milliseconds{time_out_ms}, got);
    return Text(result, before_ms) + " " + std::string(got.begin(), got.end());
  }
  std::string Text(ModbusResult result, double before_ms) {
    return port_.ErrorText(result).English() + " " +
           std::to_string(std::lround(clock_.ElapsedMs() - before_ms));
  }
  void ExpectOutcomes(const std::vector<std::pair<LineScript, std::string>>& cases,
                      std::uint32_t baud, bool echo) {
    for (const auto& [script, outcome] : cases) {
      line_.present = true;
      ASSERT_TRUE(port_.Open(1, baud, 255));
      line_.Answer(script, echo);
      EXPECT_EQ(Exchange(), outcome) << "case " << &outcome - &cases.front().second;
    }
  }

  VirtualClock clock_;
  ScriptedPort line_{clock_};
  ModbusSerialPort port_{line_.Opener(), clock_};
};

TEST_F(SerialPortTest, OpensBothNameFormsOrAStoredPath) {
  line_.accepted = "\\\\.\\COM10";
  ASSERT_TRUE(port_.Open(10, 0, 255));
  EXPECT_FALSE(port_.Open(4, 0, 255));
  EXPECT_FALSE(port_.IsOpen()) << "the old port is closed first";
  EXPECT_EQ(port_.PortNumber(), 10) << "a port that did not open is not stored";
  port_.SetPortNumber(0);
  EXPECT_FALSE(port_.Open(0, 0, 255));
  port_.SetPortName("/dev/ttyUSB0");
  EXPECT_FALSE(port_.Open(0, 0, 255));
  EXPECT_THAT(line_.opened_names,
              ElementsAre("COM10", "\\\\.\\COM10", "COM4", "\\\\.\\COM4", "/dev/ttyUSB0"));
}

TEST_F(SerialPortTest, ArgumentsReplaceTheStoredLineSettings) {
  port_.SetDataBits(7);
  ASSERT_TRUE(port_.Open(1, 19200, 2));
  for (int turn = 0; turn < 2; ++turn) {
    EXPECT_EQ(line_.settings.baud, 19200U);
    EXPECT_EQ(line_.settings.data_bits, 7);
    EXPECT_EQ(line_.settings.parity, Parity::kEven);
    EXPECT_EQ(line_.settings.event_character, '\n');
    ASSERT_TRUE(port_.Open(0, 0, 255));
  }
  for (bool ScriptedPort::*const refuse :
       {&ScriptedPort::refuse_settings, &ScriptedPort::refuse_timeouts}) {
    line_.*refuse = true;
    EXPECT_FALSE(Open());
    EXPECT_FALSE(port_.IsOpen());
    EXPECT_EQ(line_.open_devices, 0);
    line_.*refuse = false;
  }
  EXPECT_EQ(Exchange(), "Comm port not opened 1000");
  EXPECT_EQ(RawExchange(1, 10), "Comm port not opened 0 ");
}

TEST_F(SerialPortTest, PortTimeoutsOfBothModes) {
  ASSERT_TRUE(Open());
  EXPECT_EQ(line_.timeouts, (PortTimeouts{0xFFFFFFFF, 0, 0, 0, 0}));
  port_.SetFraming(FramingMode::kRtu);
  port_.SetResponseTimeout(milliseconds{900});
  ASSERT_TRUE(port_.Open(1, 9600, 255));
  EXPECT_EQ(line_.timeouts, (PortTimeouts{5, 1, 900, 5, 900}));
  ASSERT_TRUE(port_.Open(1, 1200, 255));
  EXPECT_EQ(line_.timeouts, (PortTimeouts{40, 10, 900, 40, 900}));
  // The inter-character time-out only grows by itself, and 0 is ignored.
  for (const auto& [set_ms, then_ms] : {std::pair(0, 40), {1, 2}}) {
    port_.SetInterCharacterTimeout(milliseconds{set_ms});
    ASSERT_TRUE(Open());
    EXPECT_EQ(port_.InterCharacterTimeout(), milliseconds{then_ms});
  }
}

TEST_F(SerialPortTest, TheDriversQueuesArePurgedBeforeEachRequest) {
  const auto taken = [this] { return std::exchange(line_.operations, {}); };
  line_.refuse_queue_sizes = true;
  ASSERT_TRUE(Open()) << "a driver may keep its own sizes";
  EXPECT_EQ(taken(), "queues 1024 1024");
  line_.Answer({At(1, kAnswerFrame)});
  EXPECT_EQ(Exchange(), "Ok 1");
  EXPECT_EQ(taken(), "purge both, purge receive, write");
  EXPECT_EQ(RawExchange(16, 10), "Ok 1 ?" + kAnswerFrame);
  EXPECT_EQ(taken(), "purge both, write");
  port_.SetFraming(FramingMode::kRtu);
  EXPECT_EQ(Exchange(), "Ok 1") << "changed settings wait for the next Open";
  ASSERT_TRUE(Open());
  taken();
  Exchange();
  EXPECT_EQ(taken(), "purge both, write");
}

TEST_F(SerialPortTest, WhatEndsAnExchangeAfterItsEcho) {
  ExpectOutcomes({{{At(0, kAnswerFrame)}, "Ok 0"},
                  {{At(3, kAnswerFrame)}, "Ok 3"},
                  {{At(990, kAnswerFrame)}, "Ok 990"},
                  {{}, "Time Out Error 2000"},
                  {{At(1001, kAnswerFrame)}, "Time Out Error 2000"},
                  {{At(8, ":0B03021234AA\r")}, "crc error 2000"},
                  {{At(4, ":0B03"), At(5, kError)}, "Read communication error 1005"},
                  {{At(6, kUnplug)}, "Read communication error 1006"},
                  {{At(9, kRequestFrame)}, "invalid returned device response 1009"},
                  {{At(9, ":0B830270\r\n")}, "Modbus device return an exception code2 1009"},
                  {{At(20, kAnswerFrame)}, "Ok 20"}},
                 19200, true);
  EXPECT_NEAR(port_.LastTransactionSeconds(), 0.020, 1e-9);
}

TEST_F(SerialPortTest, WhatEndsAnExchangeInItsEcho) {
  const std::string& echo = kRequestFrame;
  // The request's 8.85 ms on the wire, and twenty looks but the last wait.
  const std::string at_last_look = "Time Out Error 1199";
  ExpectOutcomes({{{}, at_last_look},
                  {{At(0, echo.substr(1))}, at_last_look},
                  {{At(199, echo)}, at_last_look},
                  {{At(198, echo), At(200, kAnswerFrame)}, "Ok 200"},
                  {{At(20, ":0B030700001F0\r\n:")}, "Read communication error 1020"},
                  {{At(0, kAnswerFrame), At(9, echo)}, "Read communication error 1009"},
                  {{At(2, echo.substr(5)), At(3, kUnplug)}, "Read communication error 1003"},
                  {{At(1, kError), At(2, echo), At(20, kAnswerFrame)}, "Ok 20"}},
                 19200, false);
}

TEST_F(SerialPortTest, RtuReadsUntilTheLineIsQuiet) {
  port_.SetFraming(FramingMode::kRtu);
  port_.SetDataBits(8);
  Frame frame;
  EncodeRtuFrame(kAnswer, frame);
  const Frame head(frame.begin(), frame.begin() + 5);
  const Frame tail(frame.begin() + 5, frame.end());
  const Frame two{0x0B, 0x03};
  ExpectOutcomes({{{At(30, frame)}, "Ok 35"},
                  {{At(30, head), At(34, tail)}, "Ok 39"},
                  {{At(30, head), At(36, tail)}, "crc error 1035"},
                  {{At(30, two)}, "crc error 1035"},
                  {{}, "Time Out Error 2004"},
                  {{At(7, kUnplug)}, "Read communication error 1007"},
                  {{At(5, two), At(7, kUnplug)}, "Read communication error 1007"},
                  {{At(5, head), At(7, kUnplug)}, "Read communication error 1007"}},
                 9600, false);
}

TEST_F(SerialPortTest, ALongRequestsEchoHasItsTimeOnTheWire) {
  ASSERT_TRUE(Open());
  // 123 registers are 511 characters, 266 ms; a pty's driver takes them at once.
  line_.on_request = [](std::span<const std::uint8_t> request) {
    return LineScript{At(266, {request.begin(), request.end()}), At(275, ":0B100100007B69\r\n")};
  };
  const std::vector<std::uint16_t> values(123, 7);
  EXPECT_EQ(port_.WriteMultipleRegisters(ECU_SLAVE_ADDRESS, 256, values), ModbusResult::kOk);
}

TEST_F(SerialPortTest, EveryFailedAttemptIsFollowedByAPause) {
  port_.SetEndTimeout(milliseconds{300});
  port_.SetAttemptCount(3);
  ASSERT_TRUE(Open());
  std::vector<double> sent_ms;
  line_.on_request = [&](std::span<const std::uint8_t> request) {
    sent_ms.push_back(clock_.ElapsedMs());
    return LineScript{At(0, {request.begin(), request.end()})};
  };
  std::vector<std::uint16_t> words;
  EXPECT_EQ(port_.ReadHoldingRegisters(11, 256, 1, words), ModbusResult::kTimeOut);
  EXPECT_THAT(sent_ms, ElementsAre(0, 600, 1200));
  EXPECT_EQ(clock_.ElapsedMs(), 1800);
}

TEST_F(SerialPortTest, AWriteThatFailsOrStaysQueued) {
  ASSERT_TRUE(Open());
  line_.Answer({At(1, kAnswerFrame)});
  line_.fail_write = true;
  EXPECT_EQ(Exchange(), "Write communication error 1000");
  EXPECT_EQ(RawExchange(1, 10), "Write communication error 0 ");
  line_.fail_write = false;
  line_.leave_output_queued = true;
  EXPECT_EQ(Exchange(), "Write communication error 1000");
}

TEST_F(SerialPortTest, TheSliceHookRunsAtLeastEveryTenMilliseconds) {
  ASSERT_TRUE(Open());
  double last = 0;
  double longest = 0;
  port_.SetSliceHook([&] {
    longest = std::max(longest, clock_.ElapsedMs() - std::exchange(last, clock_.ElapsedMs()));
  });
  // No echo; no answer; an answer that drips in all the time.
  LineScript dripping;
  for (int i = 0; i < 900; ++i) dripping.push_back(At(i, "0"));
  EXPECT_EQ(Exchange(), "Time Out Error 1199");
  line_.Answer({});
  EXPECT_EQ(Exchange(), "Time Out Error 2000");
  line_.Answer(dripping);
  EXPECT_EQ(Exchange(), "crc error 2000");
  EXPECT_LE(longest, 10.001);
  EXPECT_GE(last, 5190);
}

TEST_F(SerialPortTest, RawExchangeKeepsToItsTimeoutAndRestoresThePorts) {
  ASSERT_TRUE(Open());
  const PortTimeouts before = line_.timeouts;
  line_.Answer({At(5, "ab"), At(50, "cd")}, false);
  EXPECT_EQ(RawExchange(4, 60), "Ok 50 abcd");
  EXPECT_EQ(RawExchange(3, 60), "Ok 50 abc");
  EXPECT_EQ(RawExchange(4, 40), "Time Out Error 40 ab");
  EXPECT_EQ(RawExchange(1, 0), "Time Out Error 0 ");
  EXPECT_EQ(RawExchange(0, 40), "Ok 0 ");
  EXPECT_EQ(line_.timeouts, before);
  line_.refuse_timeouts = true;
  EXPECT_EQ(RawExchange(4, 40), "Comm port not opened 0 ");
  line_.refuse_timeouts = false;
  clock_.Sleep(milliseconds{100});
  line_.Answer({At(5, kUnplug)}, false);
  EXPECT_EQ(RawExchange(4, 40), "Comm port not opened 5 ") << "cannot be restored";
  EXPECT_EQ(RawExchange(4, 40), "Comm port not opened 0 ") << "cannot be read";
}

TEST_F(SerialPortTest, TheHookMayNotReachIntoItsOwnExchange) {
  ASSERT_TRUE(Open());
  line_.Answer({At(100, kAnswerFrame)});
  int calls = 0;
  port_.SetSliceHook([&] {
    ++calls;
    EXPECT_EQ(Exchange(), "Critical section lock time-out error 0");
    EXPECT_EQ(RawExchange(1, 9), "Critical section lock time-out error 0 ");
    EXPECT_FALSE(port_.Open(2, 0, 255));
  });
  EXPECT_EQ(Exchange(), "Ok 100");
  EXPECT_GT(calls, 0);
  EXPECT_EQ(line_.written.size(), 1U) << "nothing was sent in between";
  port_.SetSliceHook([&] { EXPECT_FALSE(port_.Close()); });
  EXPECT_EQ(Exchange(), "Ok 100") << "the exchange under way ends as it would have";
  EXPECT_FALSE(port_.IsOpen()) << "and then the port is closed";
}

}  // namespace
}  // namespace zelorgas
