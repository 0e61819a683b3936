#include <gtest/gtest.h>

#include <vector>

#include "app/CommandLine.h"

namespace zelorgas {
namespace {

CommandLine Parse(std::vector<std::string> arguments) { return ParseCommandLine(arguments); }

TEST(WindowCommandLine, TakesItsPartsInAnyOrder) {
  EXPECT_FALSE(Parse({}).admin || Parse({}).demo || Parse({}).documents);
  for (const char* admin : {"admin", "/ADMIN", "-aDmIn"}) {
    for (const auto& arguments :
         {std::vector<std::string>{admin, "demo", "documents", "/maps/Car 1.FOB"},
          std::vector<std::string>{"/maps/Car 1.FOB", "documents", "demo", admin}}) {
      const CommandLine all = Parse(arguments);
      EXPECT_TRUE(all.admin && all.demo && all.documents) << admin;
      EXPECT_EQ(all.file, "/maps/Car 1.FOB");
      EXPECT_EQ(all.problem, "");
    }
  }
}

TEST(WindowCommandLine, NamesTheFirstArgumentThatItCannotTake) {
  for (const char* argument : {"--admin", "//admin", "-/admin", "admins", "admi", "", "-", "admin ",
                               "demos", "-demo", "map.xml", ".fob", ".osc", "a.fob ", "-help"}) {
    const CommandLine line = Parse({"demo", argument, "other"});
    EXPECT_FALSE(line.admin) << argument;
    EXPECT_TRUE(
        line.problem.English().starts_with("Unknown argument \"" + std::string(argument) + "\".\n"))
        << argument;
  }
  const CommandLine two = Parse({"a.fob", "b.fob"});
  EXPECT_TRUE(
      two.problem.English().starts_with("Only one file can be opened, not also \"b.fob\".\n"));
  EXPECT_EQ(two.file, "a.fob");
  EXPECT_EQ(Parse({"C:\\cars\\drive.Osc"}).file, "C:\\cars\\drive.Osc");
}

}  // namespace
}  // namespace zelorgas
