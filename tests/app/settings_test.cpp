#include "app/Settings.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "app/RecentFiles.h"
#include "support/MemorySettings.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

TEST(Settings, OnlyTheTwoLanguagesOfTheListCanBeChosen) {
  MemorySettings store;
  Settings settings(store);
  EXPECT_TRUE(settings.ChooseLanguage(0));
  EXPECT_EQ(store.ReadInteger("Settings", "Language", 0), 1413);
  for (const int entry : {-1, 2, 1413}) {
    EXPECT_FALSE(settings.ChooseLanguage(entry)) << entry;
    EXPECT_EQ(settings.Language(), 1413) << entry;
  }
  EXPECT_TRUE(settings.ChooseLanguage(1));
  EXPECT_EQ(settings.Language(), 1414);
  store.RefuseWrites();
  EXPECT_FALSE(settings.ChooseLanguage(0));
}

std::string Whole(const std::string& name) {
  const std::u8string path = fs::absolute(fs::path(name)).lexically_normal().u8string();
  return {path.begin(), path.end()};
}

TEST(RecentFiles, KeepTheLatestFourInFrontOrder) {
  MemorySettings store;
  RecentFiles recent(store);
  for (const char* name : {"a.fob", "b.fob", "c.fob", "d.fob", "e.fob", "./x/../c.fob", ""}) {
    recent.Add(name);
  }
  const std::vector<std::string> expected = {Whole("c.fob"), Whole("e.fob"), Whole("d.fob"),
                                             Whole("b.fob")};
  EXPECT_EQ(recent.Files(), expected);
  EXPECT_EQ(store.ReadString("Recent File List", "File1", ""), expected.front());
  EXPECT_EQ(RecentFiles(store).Files(), expected) << "after a new start";
}

}  // namespace
}  // namespace zelorgas
