#include <gtest/gtest.h>

#include <utility>

#include "cli/JsonWriter.h"

namespace zelorgas {
namespace {

TEST(JsonWriter, SeparatesMembersAndElements) {
  JsonWriter document;
  document.BeginObject().Key("empty").BeginArray().EndArray().Key("list").BeginArray();
  document.Number(0).BeginObject().EndObject().Null().Number(4294967295);
  document.Decimal(-0.5, 1).Decimal(20, 0).EndArray();
  document.Key("on").Bool(true).Key("off").Bool(false).Key("object").BeginObject();
  document.Key("x").String("y").EndObject().Key("last").Null().EndObject();
  EXPECT_EQ(document.Text(),
            R"({"empty":[],"list":[0,{},null,4294967295,-0.5,20],"on":true,"off":false,)"
            R"("object":{"x":"y"},"last":null})");
}

TEST(JsonWriter, StringsStayValidWhateverTheBytes) {
  const std::pair<std::string_view, std::string> cases[] = {
      {"", R"("")"},
      {"Petrol<=>GAS / kit", R"("Petrol<=>GAS / kit")"},
      {R"(a"b\c)", R"("a\"b\\c")"},
      {std::string_view("\0\r\n\t\x1F\x7F", 6), R"("\u0000\u000d\u000a\u0009\u001f\u007f")"},
      // Two, three and four bytes a character: the first and the last of each length.
      {"\xC2\x80 \xDF\xBF", "\"\xC2\x80 \xDF\xBF\""},
      {"\xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xEF\xBF\xBF",
       "\"\xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xEF\xBF\xBF\""},
      {"\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF", "\"\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF\""},
      // Cut short, alone, over-long, surrogate, beyond the last code point, never a lead byte.
      {"\xC3", R"("\u00c3")"},
      {"\xE2\x82", R"("\u00e2\u0082")"},
      {"\xF0\x9F\x98z", R"("\u00f0\u009f\u0098z")"},
      {"\x80", R"("\u0080")"},
      {"\xC1\x81", R"("\u00c1\u0081")"},
      {"\xE0\x9F\xBF", R"("\u00e0\u009f\u00bf")"},
      {"\xED\xA0\x80", R"("\u00ed\u00a0\u0080")"},
      {"\xF0\x8F\xBF\xBF", R"("\u00f0\u008f\u00bf\u00bf")"},
      {"\xF4\x90\x80\x80", R"("\u00f4\u0090\u0080\u0080")"},
      {"\xF5\x80\x80\x80\xFF", R"("\u00f5\u0080\u0080\u0080\u00ff")"},
      {"\xC3\xC3\xA9", "\"\\u00c3\xC3\xA9\""},
  };
  for (const auto& [bytes, json] : cases) {
    EXPECT_EQ(JsonWriter().String(bytes).Text(), json);
    EXPECT_EQ(JsonWriter().Key(bytes).Text(), json + ":") << "a key is escaped the same way";
  }
}

}  // namespace
}  // namespace zelorgas
