#include <gtest/gtest.h>

#include "app/AboutInfo.h"
#include "app/StartUp.h"

namespace zelorgas {
namespace {

TEST(AboutInfo, ShowsTheVersionOnlyWithAllFourNumbers) {
  const auto fields = [](const char* file_version) {
    const AboutInfo about = MakeAboutInfo({"", file_version}, "");
    return about.version + "|" + about.revision + "|" + about.build;
  };
  EXPECT_EQ(fields("2.3.4.5"), " 2.03|04|0005");
  EXPECT_EQ(fields(" 12. 345.678.91234 beta"), "12.345|678|91234");
  for (const char* text : {"", "2.3.4", "2.3.4.x", "2,3,4,5", "2 .3.4.5", "99999999999.1.1.1"}) {
    EXPECT_EQ(fields(text), "0.12|01|0001") << text;
  }
  EXPECT_EQ(MakeAboutInfo({}, "").product, "Petrol=>GAS Conversion Kit");
  EXPECT_EQ(MakeAboutInfo({"Other name", "2.3"}, "").product, "Other name");
}

TEST(AboutInfo, RewritesTheCompilersDate) {
  const auto date = [](std::string_view built) { return MakeAboutInfo({}, built).date; };
  EXPECT_EQ(date("Jul  3 2007 at 12:34:56"), "03.07.2007 / 12:34:56");
  EXPECT_EQ(date("DEC 31 2026 at 1"), "31.12.2026 / 1");
  for (const char* text : {"", "July 3 2007 at 1", "Jux 3 2007 at 1", "Jul 2007",
                           "Jul 3 2007 12:34", "??? ?? ???? at ??:??:??"}) {
    EXPECT_EQ(date(text), "12.06.2006") << text;
  }
  EXPECT_NE(date(BuildTime()), "12.06.2006");
}

TEST(StartUp, HasTheTextsOfTheProgram) {
  EXPECT_EQ(StartFailureText(StartFailure::kNone), "");
  EXPECT_NE(StartFailureText(StartFailure::kSockets), StartFailureText(StartFailure::kOle));
  EXPECT_EQ(TemplateString(DocumentString::kDocumentName), "");
  EXPECT_EQ(TemplateString(DocumentString::kFileTypeName), "zelorgas.Document");
}

}  // namespace
}  // namespace zelorgas
