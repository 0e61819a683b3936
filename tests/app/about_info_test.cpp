#include <gtest/gtest.h>

#include "app/AboutInfo.h"
#include "app/StartUp.h"

namespace zelorgas {
namespace {

std::string VersionFields(std::string file_version) {
  const AboutInfo about = MakeAboutInfo({"", std::move(file_version)}, "");
  return about.version + "|" + about.revision + "|" + about.build;
}

TEST(AboutInfo, StartsWithFixedFields) {
  const AboutInfo about = MakeAboutInfo({}, "");
  EXPECT_EQ(about.product, "Petrol=>GAS Conversion Kit");
  EXPECT_EQ(about.date, "12.06.2006");
  EXPECT_EQ(VersionFields(""), "0.12|01|0001");
}

TEST(AboutInfo, ShowsTheVersionOnlyWithAllFourNumbers) {
  EXPECT_EQ(VersionFields("2.3.4.5"), " 2.03|04|0005");
  EXPECT_EQ(VersionFields("12.345.678.91234"), "12.345|678|91234");
  EXPECT_EQ(VersionFields(" 1. 2.3.4 beta"), " 1.02|03|0004");
  for (const char* text :
       {"2.3.4", "2.3.4.", "2.3.4.x", "2,3,4,5", "v2.3.4.5", "2 .3.4.5", "99999999999.1.1.1"}) {
    EXPECT_EQ(VersionFields(text), "0.12|01|0001") << text;
  }
  EXPECT_EQ(MakeAboutInfo({"Other name", "2.3"}, "").product, "Other name");
}

TEST(AboutInfo, RewritesTheCompilersDate) {
  const auto date = [](std::string_view built) { return MakeAboutInfo({}, built).date; };
  EXPECT_EQ(date("Jul  3 2007 at 12:34:56"), "03.07.2007 / 12:34:56");
  EXPECT_EQ(date("jan 31 2026 at 00:00:00"), "31.01.2026 / 00:00:00");
  EXPECT_EQ(date("DEC 1 2026 at 1"), "01.12.2026 / 1");
  for (const char* text : {"", "July 3 2007 at 1", "Jux 3 2007 at 1", "Jul 2007",
                           "Jul 3 2007 12:34", "??? ?? ???? at ??:??:??"}) {
    EXPECT_EQ(date(text), "12.06.2006") << text;
  }
  EXPECT_NE(date(BuildTime()), "12.06.2006");
}

TEST(StartUp, HasTheTextsOfTheProgram) {
  EXPECT_EQ(StartFailureText(StartFailure::kNone), "");
  EXPECT_EQ(StartFailureText(StartFailure::kSockets), "Windows sockets initialization failed.");
  EXPECT_EQ(
      StartFailureText(StartFailure::kOle),
      "OLE initialization failed.  Make sure that the OLE libraries are the correct version.");
  EXPECT_EQ(TemplateString(DocumentString::kWindowTitle), "ZelorGAS");
  EXPECT_EQ(TemplateString(DocumentString::kDocumentName), "");
  EXPECT_EQ(TemplateString(DocumentString::kFilterName), "ZelorGAS Files (*.fob)");
  EXPECT_EQ(TemplateString(DocumentString::kExtension), ".fob");
  EXPECT_EQ(TemplateString(DocumentString::kFileTypeName), "zelorgas.Document");
  EXPECT_EQ(WindowTitle("car.fob"), "ZELOR GASECU - [car.fob]");
}

}  // namespace
}  // namespace zelorgas
