#include <gtest/gtest.h>

#include <utility>

#include "cli/JsonWriter.h"

namespace zelorgas {
namespace {

TEST(JsonWriter, StringsStayValidWhateverTheBytes) {
  const std::pair<std::string_view, std::string> cases[] = {
      {"", R"("")"},
      {R"(a"b\c)", R"("a\"b\\c")"},
      {std::string_view("\0\r\n\t\x1F\x7F", 6), R"("\u0000\u000d\u000a\u0009\u001f\u007f")"},
      // Two, three and four bytes a character: the first and the last of each length.
      {"\xC2\x80 \xDF\xBF", "\"\xC2\x80 \xDF\xBF\""},
      {"\xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xEF\xBF\xBF",
       "\"\xE0\xA0\x80 \xED\x9F\xBF \xEE\x80\x80 \xEF\xBF\xBF\""},
      {"\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF", "\"\xF0\x90\x80\x80 \xF4\x8F\xBF\xBF\""},
      // Cut short, alone, over-long, surrogate, beyond the last code point, never a lead byte.
      {"\xC3", R"("\u00c3")"},
      {"\xF0\x9F\x98z", R"("\u00f0\u009f\u0098z")"},
      {"\x80", R"("\u0080")"},
      {"\xED\xA0\x80", R"("\u00ed\u00a0\u0080")"},
      {"\xF4\x90\x80\x80", R"("\u00f4\u0090\u0080\u0080")"},
      {"\xF5\x80\x80\x80\xFF", R"("\u00f5\u0080\u0080\u0080\u00ff")"},
  };
  for (const auto& [bytes, json] : cases) {
    EXPECT_EQ(JsonWriter().String(bytes).Text(), json);
    EXPECT_EQ(JsonWriter().Key(bytes).Text(), json + ":") << "a key is escaped the same way";
  }
}

}  // namespace
}  // namespace zelorgas
