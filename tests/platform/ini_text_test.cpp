#include <gtest/gtest.h>

#include "platform/IniText.h"

namespace zelorgas {
namespace {

std::string Set(std::string_view text, std::string_view section, std::string_view key,
                std::string_view value) {
  std::optional<IniText> ini = IniText::Parse(text);
  return ini && ini->SetValue(section, key, value) ? ini->Text() : "refused";
}

TEST(IniText, FindsValuesByNameWithoutRegardToCase) {
  const auto ini = IniText::Parse(
      "; comment\n# comment\r\nstray=0\n\n [Settings] \r\n COMMPORT = /dev/ttyUSB0 \r\nA=1\nA=2\n"
      "[Other]\nEmpty=\nB=x=y;z\n[settings]\nLater=\"\\\"a\\\\\\x0a \"\nOdd=\"a\"b\"");
  ASSERT_TRUE(ini);
  EXPECT_EQ(ini->Value("Settings", "CommPort"), "/dev/ttyUSB0");
  EXPECT_EQ(ini->Value("Settings", "A"), "1");
  EXPECT_EQ(ini->Value("Settings", "Later"), "\"a\\\n ");
  EXPECT_EQ(ini->Value("Settings", "Odd"), "\"a\"b\"");
  EXPECT_EQ(ini->Value("Other", "Empty"), "");
  EXPECT_EQ(ini->Value("Other", "B"), "x=y;z");
  EXPECT_EQ(ini->Value("Settings", "B"), std::nullopt);
  EXPECT_EQ(ini->Value("Settings", "stray"), std::nullopt);
  EXPECT_EQ(ini->Value("", "stray"), std::nullopt);
}

TEST(IniText, ChangesOneLineAndKeepsTheOthers) {
  const std::string text = "; mine\n[A]\nx = 1\n\n# between\n[B]\nx=2\n";
  EXPECT_EQ(Set(text, "a", "X", "9"), "; mine\n[A]\nX=9\n\n# between\n[B]\nx=2\n");
  EXPECT_EQ(Set(text, "A", "y", "9"), "; mine\n[A]\nx = 1\n\n# between\ny=9\n[B]\nx=2\n");
  EXPECT_EQ(Set(text, "B", "y", "9"), text + "y=9\n");
  EXPECT_EQ(Set(text, "C", "y", "9"), text + "\n[C]\ny=9\n");
  EXPECT_EQ(Set("", "C", "y", "9"), "[C]\ny=9\n");
  EXPECT_EQ(Set("[C]", "C", "y", "9"), "[C]\ny=9\n");
}

TEST(IniText, AnyTextCanBeAValue) {
  std::string all_bytes;
  for (int c = 0; c < 256; ++c) all_bytes += static_cast<char>(c);
  for (const std::string& value :
       {std::string(), std::string(" a "), std::string("\""), std::string("\"a\""),
        std::string("C:\\maps\\x41.fob"), std::string("a\r\n[b]\nc=d"), std::string("карта.fob"),
        std::string("; not a comment"), std::string("\\"), std::string("tab\there"), all_bytes}) {
    const auto ini = IniText::Parse(Set("", "S", "k", value));
    ASSERT_TRUE(ini) << value;
    EXPECT_EQ(ini->Value("S", "k"), value);
  }
  EXPECT_EQ(Set("", "S", "k", "C:\\maps\\x41.fob"), "[S]\nk=C:\\maps\\x41.fob\n");
}

TEST(IniText, KnowsDamage) {
  using namespace std::string_literals;
  for (const std::string& text : {"\0"s, "[S]\nk=1\n\0\0\0\0"s, "[S"s, "[S]\nno value"s, "=1"s,
                                  "k=\x01"s, "a=1\rb=2"s, "\x7f\x45LF\x02\x01"s, "<xml/>"s}) {
    EXPECT_FALSE(IniText::Parse(text)) << text;
  }
}

}  // namespace
}  // namespace zelorgas
