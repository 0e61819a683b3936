#include "cli/Text.h"

#include <gtest/gtest.h>

#include <utility>

namespace zelorgas {
namespace {

TEST(ParseNumber, TakesDigitsAndNothingElse) {
  const std::pair<std::string_view, std::uint32_t> cases[] = {
      {"0", 0},
      {"583", 583},
      {"007", 7},
      {"0x10", 16},
      {"0XfF", 255},
      {"99999999999999999999", 0xFFFFFFFF},
      {"0x100000000", 0xFFFFFFFF},
  };
  for (const auto& [text, number] : cases) EXPECT_EQ(ParseNumber(text), number) << text;
  for (const char* text : {"", "0x", "x10", "-1", "+1", " 1", "1 ", "1.0", "10h", "0x-1", "0x0x1",
                           "99999999999999999999z"}) {
    EXPECT_FALSE(ParseNumber(text)) << text;
  }
}

TEST(ReadNumber, RefusesWhatIsOutOfRange) {
  const NumberArgument count{"COUNT", 1, 125};
  std::string problem;
  EXPECT_EQ(ReadNumber(count, "1", problem), 1);
  EXPECT_EQ(ReadNumber(count, "0x7D", problem), 125);
  EXPECT_EQ(problem, "");
  for (const char* text : {"0", "126", "65537", "4294967297", "one"}) {
    EXPECT_FALSE(ReadNumber(count, text, problem)) << text;
    EXPECT_EQ(problem, "COUNT takes a number from 1 to 125, not \"" + std::string(text) + "\"");
  }
}

TEST(ReadSeconds, TakesWholeAndDecimalSecondsAboveNothing) {
  std::string problem;
  const std::pair<const char*, std::int64_t> cases[] = {
      {"3", 3000}, {"0.25", 250}, {"0.001", 1}, {"10000000", 10'000'000'000}};
  for (const auto& [text, ms] : cases) {
    EXPECT_EQ(ReadSeconds("--seconds", text, problem), std::chrono::milliseconds(ms)) << text;
  }
  EXPECT_EQ(problem, "");
  for (const char* text :
       {"0", "0.0009", "-1", "10000001", "1e3", "1,5", "1.5s", " 1", "", "nan", "inf"}) {
    EXPECT_FALSE(ReadSeconds("--seconds", text, problem)) << text;
    EXPECT_NE(std::exchange(problem, ""), "") << text;
  }
}

TEST(PrintableText, KeepsOneLineWhateverComes) {
  EXPECT_EQ(PrintableText(":0B03\r\n"), ":0B03\\r\\n");
  EXPECT_EQ(PrintableText(std::string_view("a\0\x1B[31m\x7F\xFF~", 10)),
            "a\\x00\\x1B[31m\\x7F\\xFF~");
  EXPECT_EQ(PrintableText("say \"\\\""), "say \\\"\\\\\\\"");
  EXPECT_EQ(EscapeControls("a\n\x7F\t\"\\\xC3\xA9", "\n"), "a\n\\x7F\\x09\"\\\xC3\xA9");
}

}  // namespace
}  // namespace zelorgas
