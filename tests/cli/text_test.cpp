#include "cli/Text.h"

#include <gtest/gtest.h>

namespace zelorgas {
namespace {

TEST(ParseNumber, TakesDigitsAndNothingElse) {
  const struct {
    std::string_view text;
    std::optional<std::uint32_t> number;
  } cases[] = {
      {"0", 0},
      {"583", 583},
      {"007", 7},
      {"0x10", 16},
      {"0XfF", 255},
      {"65536", 65536},
      {"99999999999999999999", 0xFFFFFFFF},
      {"0x100000000", 0xFFFFFFFF},
      {"", {}},
      {"0x", {}},
      {"x10", {}},
      {"-1", {}},
      {"+1", {}},
      {" 1", {}},
      {"1 ", {}},
      {"1.0", {}},
      {"10h", {}},
      {"0x-1", {}},
      {"0x0x1", {}},
      {"99999999999999999999z", {}},
  };
  for (const auto& c : cases) EXPECT_EQ(ParseNumber(c.text), c.number) << c.text;
}

TEST(ReadNumber, RefusesWhatIsOutOfRange) {
  const NumberArgument count{"COUNT", 1, 125};
  std::string problem;
  EXPECT_EQ(ReadNumber(count, "1", problem), 1);
  EXPECT_EQ(ReadNumber(count, "0x7D", problem), 125);
  EXPECT_EQ(problem, "");
  for (const std::string_view text : {"0", "126", "65537", "4294967297", "one"}) {
    EXPECT_FALSE(ReadNumber(count, text, problem)) << text;
    EXPECT_EQ(problem, "COUNT takes a number from 1 to 125, not \"" + std::string(text) + "\"");
  }
}

TEST(ReadSeconds, TakesWholeAndDecimalSecondsAboveNothing) {
  using std::chrono::milliseconds;
  const struct {
    std::string_view text;
    std::optional<Clock::Duration> time;
  } cases[] = {
      {"3", milliseconds(3000)},
      {"0.25", milliseconds(250)},
      {"0.001", milliseconds(1)},
      {"10000000", milliseconds(10'000'000'000)},
      {"0", {}},
      {"0.0009", {}},
      {"-1", {}},
      {"10000001", {}},
      {"1e3", {}},
      {"1,5", {}},
      {"1.5s", {}},
      {" 1", {}},
      {"", {}},
      {"nan", {}},
      {"inf", {}},
  };
  for (const auto& c : cases) {
    std::string problem;
    EXPECT_EQ(ReadSeconds("--seconds", c.text, problem), c.time) << c.text;
    EXPECT_EQ(problem.empty(), c.time.has_value()) << c.text;
  }
}

TEST(PrintableText, KeepsOneLineWhateverComes) {
  EXPECT_EQ(PrintableText(":0B03\r\n"), ":0B03\\r\\n");
  EXPECT_EQ(PrintableText(std::string_view("a\0\x1B[31m\x7F\xFF~", 10)),
            "a\\x00\\x1B[31m\\x7F\\xFF~");
  EXPECT_EQ(PrintableText("say \"\\\""), "say \\\"\\\\\\\"");
}

}  // namespace
}  // namespace zelorgas
