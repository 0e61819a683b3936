#include <gtest/gtest.h>

#include <array>
#include <string>

#include "link/AsciiFrame.h"
#include "link/RtuFrame.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

using Unit = std::vector<std::uint8_t>;

struct Decoded {
  ModbusResult result;
  Unit unit;
};

Decoded DecodeAscii(std::string_view frame, std::size_t room = 512) {
  Unit unit(room, 0xEE);
  std::size_t length = 999;
  const ModbusResult result = DecodeAsciiFrame(Bytes(frame), unit, length);
  EXPECT_LE(length, room);
  unit.resize(length);
  return {result, unit};
}

Decoded DecodeRtu(Unit frame, std::size_t expected) {
  const std::size_t received = frame.size();
  frame.resize(512);
  Unit unit(expected == 0 ? 512 : expected, 0xEE);
  std::size_t length = 999;
  const ModbusResult result = DecodeRtuFrame(frame, received, expected, unit, length);
  unit.resize(length);
  return {result, unit};
}

TEST(AsciiFrame, ReadOf32RegistersGoesOnTheWireAs17Characters) {
  std::vector<std::uint8_t> frame;
  EncodeAsciiFrame(Unit{0x0B, 0x03, 0x01, 0x00, 0x00, 0x20}, frame);
  EXPECT_EQ(frame, Bytes(":0B0301000020D1\r\n"));
  // A shorter frame after a longer one leaves nothing behind.
  EncodeAsciiFrame(Unit{0xFA}, frame);
  EXPECT_EQ(frame, Bytes(":FA06\r\n"));
}

TEST(AsciiFrame, EveryByteValueSurvivesTheRoundTrip) {
  Unit unit(512);
  for (std::size_t i = 0; i < unit.size(); ++i)
    unit[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
  unit[1] = 3;
  std::vector<std::uint8_t> frame;
  EncodeAsciiFrame(unit, frame);
  ASSERT_EQ(frame.size(), 2 * unit.size() + 5);
  const Decoded decoded = DecodeAscii(std::string(frame.begin(), frame.end()));
  EXPECT_EQ(decoded.result, ModbusResult::kOk);
  EXPECT_EQ(decoded.unit, unit);
}

TEST(AsciiFrame, FindingsOfTheCheck) {
  struct Case {
    const char* what;
    std::string frame;
    ModbusResult result;
  };
  const auto cases = std::to_array<Case>({
      {"nothing", "", ModbusResult::kCrcError},
      {"four characters", ":00\n", ModbusResult::kCrcError},
      {"empty unit with a good check", ":00\r\n", ModbusResult::kOk},
      {"lower-case digits", ":0b0302ffffF2\r\n", ModbusResult::kCrcError},
      {"a stray character before the check", ":0B0302FFFF0F2\r\n", ModbusResult::kCrcError},
      {"wrong check", ":0B0302FFFFF3\r\n", ModbusResult::kCrcError},
      {"LF missing", ":0B0302FFFFF2\r", ModbusResult::kCrcError},
      {"junk before the colon", "x:0B0302FFFFF2\r\n", ModbusResult::kCrcError},
      {"junk after the LF", ":0B0302FFFFF2\r\nx", ModbusResult::kCrcError},
      {"exception 2", ":0B830270\r\n", ExceptionResult(2)},
      {"lowest exception function", ":0B810173\r\n", ExceptionResult(1)},
      {"exception without its code", ":0B8372\r\n", ModbusResult::kInvalidResponse},
      {"function 0x80 is no exception", ":0B800273\r\n", ModbusResult::kOk},
  });
  for (const Case& c : cases) EXPECT_EQ(DecodeAscii(c.frame).result, c.result) << c.what;
}

TEST(AsciiFrame, LongerThanTheBufferIsCutButStillChecked) {
  EXPECT_EQ(DecodeAscii(":0B0302FFFFF2\r\n", 3).unit, (Unit{0x0B, 0x03, 0x02}));
  EXPECT_EQ(DecodeAscii(":0B0302FFFEF2\r\n", 3).result, ModbusResult::kCrcError);
}

TEST(RtuFrame, CrcOfTheCheckFrameAndItsEdges) {
  std::vector<std::uint8_t> frame;
  EncodeRtuFrame(Unit{0x0B, 0x03, 0x01, 0x00, 0x00, 0x20}, frame);
  EXPECT_EQ(frame, (Unit{0x0B, 0x03, 0x01, 0x00, 0x00, 0x20, 0x45, 0x44}));
  EXPECT_EQ(Crc16(frame, frame.size()), 0) << "a frame with its CRC";
  EXPECT_EQ(Crc16(frame, 0), 0);
  EXPECT_EQ(Crc16(frame, frame.size() + 1), 0);
}

TEST(RtuFrame, FindingsOfTheCheck) {
  const Unit good{0x0B, 0x03, 0x02, 0xFF, 0xFF, 0x21, 0xF5};
  const Unit bare(good.begin(), good.end() - 2);
  EXPECT_EQ(DecodeRtu(good, 5).unit, bare);
  EXPECT_EQ(DecodeRtu(good, 0).unit, bare) << "length not known";
  EXPECT_EQ(DecodeRtu(good, 68).unit, bare) << "the length is only a bound";
  EXPECT_EQ(DecodeRtu(good, 4).result, ModbusResult::kCrcError);
  EXPECT_EQ(DecodeRtu({0x0B, 0x83, 0x02, 0x60, 0xF1}, 5).result, ModbusResult::kCrcError);

  Unit exception{0x0B, 0x83, 0x02};
  EncodeRtuFrame(Unit(exception), exception);
  EXPECT_EQ(DecodeRtu(exception, 5).result, ExceptionResult(2));
  for (std::size_t length = 0; length < good.size(); ++length) {
    EXPECT_EQ(
        DecodeRtu(Unit(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(length)), 5).result,
        ModbusResult::kCrcError)
        << length << " bytes of the answer";
  }
}

}  // namespace
}  // namespace zelorgas
