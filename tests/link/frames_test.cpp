// What no line in use shows of the frames; the rest is in master_test.cpp and bad_line_test.cpp.
#include <gtest/gtest.h>

#include "link/AsciiFrame.h"
#include "link/RtuFrame.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

using Unit = std::vector<std::uint8_t>;

TEST(AsciiFrame, LongerThanTheBufferIsCutButStillChecked) {
  Unit unit(3);
  std::size_t length = 999;
  EXPECT_EQ(DecodeAsciiFrame(Bytes(":0B0302FFFFF2\r\n"), unit, length), ModbusResult::kOk);
  EXPECT_EQ(length, 3U);
  EXPECT_EQ(unit, (Unit{0x0B, 0x03, 0x02}));
  for (const char* bad : {":0B0302FFFEF2\r\n", ":0B0302FFFFF2x\n", ":0B0302FFFFF2\rx",
                          ":0b0302ffffF2\r\n", ":0B0302FFFF0F2\r\n"}) {
    EXPECT_EQ(DecodeAsciiFrame(Bytes(bad), unit, length), ModbusResult::kCrcError) << bad;
  }
  EXPECT_EQ(DecodeAsciiFrame(Bytes(":00\r\n"), unit, length), ModbusResult::kOk);
  EXPECT_EQ(length, 0U);
}

TEST(RtuFrame, TheExpectedLengthIsABound) {
  const Unit good{0x0B, 0x03, 0x02, 0xFF, 0xFF, 0x21, 0xF5};
  for (const std::size_t expected : {5U, 0U, 68U}) {
    Unit buffer = good;
    buffer.resize(512);
    Unit unit(512);
    std::size_t length = 0;
    EXPECT_EQ(DecodeRtuFrame(buffer, 7, expected, unit, length), ModbusResult::kOk);
    unit.resize(length);
    EXPECT_EQ(unit, Unit(good.begin(), good.end() - 2)) << expected;
    EXPECT_EQ(DecodeRtuFrame(buffer, 7, 4, unit, length), ModbusResult::kCrcError);
  }
  EXPECT_EQ(Crc16(good, 0), 0);
  EXPECT_EQ(Crc16(good, good.size() + 1), 0);
}

}  // namespace
}  // namespace zelorgas
