// The transport over a scripted line: what Open applies, and each phase of an exchange in good
// order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "link/AsciiFrame.h"
#include "link/ModbusSerialPort.h"
#include "link/RtuFrame.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using Kind = LineAction::Kind;

const std::vector<std::uint8_t> kRequest{0x0B, 0x03, 0x01, 0x00, 0x00, 0x01};
const std::vector<std::uint8_t> kAnswer{0x0B, 0x03, 0x02, 0x12, 0x34};
constexpr double kRequestMs = 17 * 10.0 * 1000.0 / 19200.0;  // the request's time on the wire
const std::string kAnswerFrame = ":0B03021234AA\r\n";

class SerialPortTest : public testing::Test {
 protected:
  SerialPortTest() { port_.SetFraming(FramingMode::kAscii); }

  ModbusResult Exchange() {
    answer_.assign(5, 0xEE);
    std::size_t length = 0;
    started_ms_ = clock_.ElapsedMs();
    const ModbusResult result = port_.Exchange(kRequest, answer_, answer_.size(), length);
    answer_.resize(length);
    return result;
  }
  [[nodiscard]] double TookMs() const { return clock_.ElapsedMs() - started_ms_; }

  // The echo at once, then `script`.
  void AfterEcho(LineScript script) {
    line_.on_request = [script](std::span<const std::uint8_t> request) {
      LineScript all = script;
      all.insert(all.begin(), {milliseconds{0}, {request.begin(), request.end()}});
      return all;
    };
  }

  VirtualClock clock_;
  ScriptedPort line_{clock_};
  ModbusSerialPort port_{line_.Opener(), clock_};
  std::vector<std::uint8_t> answer_;
  double started_ms_ = 0;
};

TEST_F(SerialPortTest, OpensBothNameFormsThenGivesUp) {
  line_.accepted = "\\\\.\\COM10";
  ASSERT_TRUE(port_.Open(10, 0, 255));
  EXPECT_THAT(line_.opened_names, ElementsAre("COM10", "\\\\.\\COM10"));
  EXPECT_EQ(port_.PortNumber(), 10);
  EXPECT_TRUE(port_.IsOpen());

  line_.accepted = "COM3";
  EXPECT_FALSE(port_.Open(4, 0, 255));
  EXPECT_FALSE(port_.IsOpen()) << "the old port is closed first";
  EXPECT_EQ(line_.open_devices, 0);
  EXPECT_EQ(port_.PortNumber(), 10) << "a port that did not open is not stored";

  port_.SetPortNumber(0);
  line_.opened_names.clear();
  EXPECT_FALSE(port_.Open(0, 0, 255));
  EXPECT_TRUE(line_.opened_names.empty());
}

TEST_F(SerialPortTest, AStoredPathIsOpenedByItself) {
  port_.SetPortName("/dev/ttyUSB0");
  line_.accepted = "/dev/ttyUSB0";
  EXPECT_TRUE(port_.Open(0, 0, 255));
  EXPECT_THAT(line_.opened_names, ElementsAre("/dev/ttyUSB0"));
  EXPECT_TRUE(port_.Close());
  EXPECT_TRUE(port_.Close());
  EXPECT_EQ(line_.open_devices, 0);
}

TEST_F(SerialPortTest, ArgumentsReplaceTheStoredLineSettings) {
  port_.SetDataBits(7);
  port_.SetParity(Parity::kNone);
  ASSERT_TRUE(port_.Open(1, 19200, 2));
  EXPECT_EQ(line_.settings.baud, 19200U);
  EXPECT_EQ(line_.settings.data_bits, 7);
  EXPECT_EQ(line_.settings.parity, Parity::kEven);
  EXPECT_EQ(line_.settings.event_character, '\n');
  ASSERT_TRUE(port_.Open(0, 0, 255));
  EXPECT_EQ(line_.settings.baud, 19200U);
  EXPECT_EQ(line_.settings.parity, Parity::kEven);
}

TEST_F(SerialPortTest, SettingsThatThePortRefusesLeaveItClosed) {
  line_.refuse_settings = true;
  EXPECT_FALSE(port_.Open(1, 0, 255));
  line_.refuse_settings = false;
  line_.refuse_timeouts = true;
  EXPECT_FALSE(port_.Open(1, 0, 255));
  EXPECT_FALSE(port_.IsOpen());
  EXPECT_EQ(line_.open_devices, 0);
}

TEST_F(SerialPortTest, TheInterCharacterTimeoutOnlyGrows) {
  port_.SetDataBits(8);
  ASSERT_TRUE(port_.Open(1, 9600, 255));
  EXPECT_EQ(port_.InterCharacterTimeout(), milliseconds{5});
  port_.SetDataBits(7);
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  EXPECT_EQ(port_.InterCharacterTimeout(), milliseconds{5});
  port_.SetInterCharacterTimeout(milliseconds{0});
  EXPECT_EQ(port_.InterCharacterTimeout(), milliseconds{5}) << "0 is ignored";
  port_.SetInterCharacterTimeout(milliseconds{1});
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  EXPECT_EQ(port_.InterCharacterTimeout(), milliseconds{2});
}

TEST_F(SerialPortTest, PortTimeoutsOfBothModes) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  EXPECT_EQ(line_.timeouts, (PortTimeouts{0xFFFFFFFF, 0, 0, 0, 0}));
  port_.SetFraming(FramingMode::kRtu);
  ASSERT_TRUE(port_.Open(1, 9600, 255));
  EXPECT_EQ(line_.timeouts, (PortTimeouts{5, 1, 1000, 5, 1000}));
  ASSERT_TRUE(port_.Open(1, 1200, 255));
  EXPECT_EQ(line_.timeouts, (PortTimeouts{40, 10, 1000, 40, 1000}));
}

TEST_F(SerialPortTest, AClosedPortIsSaidToBeClosed) {
  EXPECT_EQ(Exchange(), ModbusResult::kPortNotOpen);
  std::vector<std::uint8_t> received;
  EXPECT_EQ(port_.RawExchange(kRequest, 1, milliseconds{10}, received), ModbusResult::kPortNotOpen);
}

TEST_F(SerialPortTest, EchoAndAnswerInOnePieceOrApartAreTheSame) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  for (const int apart_ms : {0, 3, 250, 990}) {
    AfterEcho({{milliseconds{apart_ms}, Bytes(kAnswerFrame)}});
    EXPECT_EQ(Exchange(), ModbusResult::kOk) << apart_ms;
    EXPECT_EQ(answer_, kAnswer);
    EXPECT_EQ(TookMs(), apart_ms) << "no sleep beyond the answer";
    EXPECT_NEAR(port_.LastTransactionSeconds(), apart_ms / 1000.0, 1e-9);
  }
  EXPECT_EQ(line_.written.back(), Bytes(":0B0301000001F0\r\n"));
}

TEST_F(SerialPortTest, WhatEndsAnExchangeWithoutAnAnswer) {
  struct Case {
    const char* what;
    LineScript after_echo;
    ModbusResult result;
    double took_ms;  // the failure pause of 1000 ms included
  };
  const std::array cases{
      Case{"no answer", {}, ModbusResult::kTimeOut, 2000},
      Case{"no LF", {{milliseconds{8}, Bytes(":0B03021234AA\r")}}, ModbusResult::kCrcError, 2000},
      Case{"line error",
           {{milliseconds{4}, Bytes(":0B03")}, {milliseconds{5}, {}, Kind::kLineError}},
           ModbusResult::kReadError,
           1005},
      Case{"unplugged", {{milliseconds{6}, {}, Kind::kUnplug}}, ModbusResult::kReadError, 1006},
      Case{"a second echo",
           {{milliseconds{9}, Bytes(":0B0301000001F0\r\n")}},
           ModbusResult::kInvalidResponse,
           1009},
      Case{"exception", {{milliseconds{9}, Bytes(":0B830270\r\n")}}, ExceptionResult(2), 1009},
      Case{"answer after the time-out",
           {{milliseconds{1001}, Bytes(kAnswerFrame)}},
           ModbusResult::kTimeOut,
           2000},
  };
  for (const Case& c : cases) {
    line_.present = true;
    ASSERT_TRUE(port_.Open(1, 19200, 255));
    AfterEcho(c.after_echo);
    EXPECT_EQ(Exchange(), c.result) << c.what;
    EXPECT_NEAR(TookMs(), c.took_ms, 1e-3) << c.what;
    EXPECT_TRUE(answer_.empty());
  }
}

TEST_F(SerialPortTest, WhatEndsAnExchangeInItsEcho) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  const std::string echo = ":0B0301000001F0\r\n";
  std::string corrupted = echo;
  corrupted[5] = '7';
  struct Case {
    const char* what;
    LineScript script;
    ModbusResult result;
    double took_ms;
  };
  const std::array cases{
      Case{"no echo", {}, ModbusResult::kTimeOut, 1190 + kRequestMs},
      Case{"part of it",
           {{milliseconds{0}, Bytes(echo.substr(1))}},
           ModbusResult::kTimeOut,
           1190 + kRequestMs},
      Case{"corrupted", {{milliseconds{20}, Bytes(corrupted)}}, ModbusResult::kReadError, 1020},
      Case{"an old answer instead",
           {{milliseconds{0}, Bytes(kAnswerFrame)}, {milliseconds{9}, Bytes(echo)}},
           ModbusResult::kReadError,
           1009},
      Case{"later than the last look",
           {{milliseconds{199}, Bytes(echo)}},
           ModbusResult::kTimeOut,
           1190 + kRequestMs},
      Case{"unplugged after part of it",
           {{milliseconds{2}, Bytes(echo.substr(0, 5))}, {milliseconds{3}, {}, Kind::kUnplug}},
           ModbusResult::kReadError,
           1003},
      Case{"a line error beside a good echo",
           {{milliseconds{1}, {}, Kind::kLineError},
            {milliseconds{2}, Bytes(echo)},
            {milliseconds{20}, Bytes(kAnswerFrame)}},
           ModbusResult::kOk,
           20},
      Case{"at the last look",
           {{milliseconds{198}, Bytes(echo)}, {milliseconds{200}, Bytes(kAnswerFrame)}},
           ModbusResult::kOk,
           200},
  };
  for (const Case& c : cases) {
    line_.present = true;
    ASSERT_TRUE(port_.Open(1, 19200, 255));
    line_.on_request = [&c](std::span<const std::uint8_t>) { return c.script; };
    EXPECT_EQ(Exchange(), c.result) << c.what;
    EXPECT_NEAR(TookMs(), c.took_ms, 1e-3) << c.what;
  }
}

TEST_F(SerialPortTest, ALongRequestsEchoHasItsTimeOnTheWire) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  // 123 registers are 511 characters, 266 ms; a pty's driver takes them at once.
  line_.on_request = [](std::span<const std::uint8_t> request) {
    return LineScript{{milliseconds{266}, {request.begin(), request.end()}},
                      {milliseconds{275}, Bytes(":0B100100007B69\r\n")}};
  };
  const std::vector<std::uint16_t> values(123, 7);
  EXPECT_EQ(port_.WriteMultipleRegisters(ECU_SLAVE_ADDRESS, 256, values), ModbusResult::kOk);
}

TEST_F(SerialPortTest, AWriteThatFailsOrStaysQueued) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  AfterEcho({{milliseconds{1}, Bytes(kAnswerFrame)}});
  line_.fail_write = true;
  EXPECT_EQ(Exchange(), ModbusResult::kWriteError);
  line_.fail_write = false;
  line_.leave_output_queued = true;
  EXPECT_EQ(Exchange(), ModbusResult::kWriteError);
  line_.leave_output_queued = false;
  EXPECT_EQ(Exchange(), ModbusResult::kOk);
}

TEST_F(SerialPortTest, UnpluggedInAnyPhaseItFailsAndWorksAgainAfterReopening) {
  // The plug is pulled at the n-th look at the line, whatever phase that is.
  for (int phase = 0; phase < 8; ++phase) {
    line_.present = true;
    ASSERT_TRUE(port_.Open(1, 19200, 255));
    AfterEcho({{milliseconds{40}, Bytes(":0B0302")}, {milliseconds{80}, Bytes("1234AA\r\n")}});
    int looks = 0;
    line_.on_look = [&] {
      if (looks++ == phase) line_.Unplug();
    };
    if (phase == 0) line_.Unplug();
    const ModbusResult expected = phase == 0 ? ModbusResult::kWriteError : ModbusResult::kReadError;
    EXPECT_EQ(Exchange(), expected) << phase;
    EXPECT_LE(TookMs(), 1100) << phase << ": found out at once";
    line_.on_look = nullptr;
    EXPECT_EQ(Exchange(), ModbusResult::kWriteError) << "and it stays so";
    EXPECT_FALSE(port_.Open(1, 19200, 255));
  }
  line_.present = true;
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  EXPECT_EQ(Exchange(), ModbusResult::kOk);
}

TEST_F(SerialPortTest, TheSliceHookRunsAtLeastEveryTenMilliseconds) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  double last = 0;
  double longest = 0;
  int calls = 0;
  port_.SetSliceHook([&] {
    longest = std::max(longest, clock_.ElapsedMs() - last);
    last = clock_.ElapsedMs();
    ++calls;
  });
  // No echo; no answer; an answer that drips in all the time.
  LineScript dripping;
  for (int i = 0; i < 900; ++i) dripping.push_back({milliseconds{i}, Bytes("0")});
  EXPECT_EQ(Exchange(), ModbusResult::kTimeOut);
  AfterEcho({});
  EXPECT_EQ(Exchange(), ModbusResult::kTimeOut);
  AfterEcho(dripping);
  EXPECT_EQ(Exchange(), ModbusResult::kCrcError);
  EXPECT_GE(calls, 500);
  EXPECT_LE(longest, 10.001);
}

TEST_F(SerialPortTest, RtuReadsUntilTheLineIsQuiet) {
  port_.SetFraming(FramingMode::kRtu);
  port_.SetDataBits(8);
  ASSERT_TRUE(port_.Open(1, 9600, 255));
  std::vector<std::uint8_t> frame;
  EncodeRtuFrame(kAnswer, frame);
  const std::vector<std::uint8_t> head(frame.begin(), frame.begin() + 5);
  const std::vector<std::uint8_t> tail(frame.begin() + 5, frame.end());

  struct Case {
    const char* what;
    LineScript script;
    ModbusResult result;
    double took_ms;
  };
  const std::array cases{
      Case{"in one piece", {{milliseconds{30}, frame}}, ModbusResult::kOk, 35},
      Case{"a gap shorter than the time-out",
           {{milliseconds{30}, head}, {milliseconds{34}, tail}},
           ModbusResult::kOk,
           39},
      Case{"a gap that ends the frame",
           {{milliseconds{30}, head}, {milliseconds{36}, tail}},
           ModbusResult::kCrcError,
           1035},
      Case{"three bytes", {{milliseconds{30}, {0x0B, 0x03, 0x02}}}, ModbusResult::kCrcError, 1035},
      Case{"nothing", {}, ModbusResult::kTimeOut, 2004},
      Case{"unplugged", {{milliseconds{7}, {}, Kind::kUnplug}}, ModbusResult::kReadError, 1007},
      Case{"unplugged after two bytes",
           {{milliseconds{5}, {0x0B, 0x03}}, {milliseconds{7}, {}, Kind::kUnplug}},
           ModbusResult::kReadError,
           1007},
      Case{"unplugged after five",
           {{milliseconds{5}, head}, {milliseconds{7}, {}, Kind::kUnplug}},
           ModbusResult::kReadError,
           1007},
  };
  for (const Case& c : cases) {
    line_.present = true;
    ASSERT_TRUE(port_.Open(1, 9600, 255));
    line_.on_request = [&c](std::span<const std::uint8_t>) { return c.script; };
    EXPECT_EQ(Exchange(), c.result) << c.what;
    EXPECT_NEAR(TookMs(), c.took_ms, 1e-3) << c.what;
  }
}

TEST_F(SerialPortTest, RawExchangeKeepsToItsTimeoutAndRestoresThePorts) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  const PortTimeouts before = line_.timeouts;
  std::vector<std::uint8_t> received;
  line_.on_request = [](std::span<const std::uint8_t>) {
    return LineScript{{milliseconds{5}, Bytes("ab")}, {milliseconds{50}, Bytes("cd")}};
  };
  EXPECT_EQ(port_.RawExchange(Bytes("?"), 4, milliseconds{60}, received), ModbusResult::kOk);
  EXPECT_EQ(received, Bytes("abcd"));
  EXPECT_EQ(port_.RawExchange(Bytes("?"), 4, milliseconds{40}, received), ModbusResult::kTimeOut);
  EXPECT_EQ(received, Bytes("ab"));
  EXPECT_EQ(line_.timeouts, before);
  line_.refuse_timeouts = true;
  EXPECT_EQ(port_.RawExchange(Bytes("?"), 4, milliseconds{40}, received),
            ModbusResult::kPortNotOpen);
}

TEST_F(SerialPortTest, TheHookMayNotReachIntoItsOwnExchange) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  AfterEcho({{milliseconds{100}, Bytes(kAnswerFrame)}});
  std::vector<ModbusResult> nested;
  bool opened = true;
  port_.SetSliceHook([&] {
    std::size_t length = 0;
    std::array<std::uint8_t, 8> response{};
    nested.push_back(port_.Exchange(kRequest, response, 5, length));
    opened = port_.Open(2, 0, 255);
  });
  EXPECT_EQ(Exchange(), ModbusResult::kOk);
  ASSERT_FALSE(nested.empty());
  EXPECT_EQ(nested[0], ModbusResult::kLockTimeOut);
  EXPECT_FALSE(opened);
  EXPECT_EQ(line_.written.size(), 1U) << "nothing was sent in between";

  port_.SetSliceHook([&] { EXPECT_FALSE(port_.Close()); });
  EXPECT_EQ(Exchange(), ModbusResult::kOk) << "the exchange under way ends as it would have";
  EXPECT_FALSE(port_.IsOpen()) << "and then the port is closed";
}

TEST_F(SerialPortTest, ChangedSettingsWaitForTheNextOpen) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  port_.SetFraming(FramingMode::kRtu);
  AfterEcho({{milliseconds{5}, Bytes(kAnswerFrame)}});
  EXPECT_EQ(Exchange(), ModbusResult::kOk);
}

TEST_F(SerialPortTest, TheTraceSeesEveryFrameWithItsResult) {
  ASSERT_TRUE(port_.Open(1, 19200, 255));
  std::vector<std::string> lines;
  port_.SetTraceSink([&](const FrameTrace& trace) {
    lines.push_back((trace.direction == FrameTrace::Direction::kSent ? "> " : "< ") +
                    std::string(trace.frame.begin(), trace.frame.end()) +
                    std::to_string(static_cast<unsigned>(trace.result)));
  });
  AfterEcho({{milliseconds{5}, Bytes(kAnswerFrame)}});
  EXPECT_EQ(Exchange(), ModbusResult::kOk);
  AfterEcho({});
  EXPECT_EQ(Exchange(), ModbusResult::kTimeOut);
  EXPECT_THAT(lines, ElementsAre("> :0B0301000001F0\r\n0", "< :0B03021234AA\r\n0",
                                 "> :0B0301000001F0\r\n0", "< 1"));
}

}  // namespace
}  // namespace zelorgas
