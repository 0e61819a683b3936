// What no line in use shows of the frames; the rest is in master_test.cpp and bad_line_test.cpp.
#include <gtest/gtest.h>

#include "link/AsciiFrame.h"
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

}  // namespace
}  // namespace zelorgas
