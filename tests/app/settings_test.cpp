#include "app/Settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "app/RecentFiles.h"
#include "support/MemorySettings.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

TEST(Settings, AreKeptUnderTheirKeys) {
  MemorySettings store;
  Settings settings(store);
  EXPECT_EQ(settings.Language(), 9);
  EXPECT_FALSE(settings.SaveFile());
  EXPECT_TRUE(settings.SetPort("COM3"));
  EXPECT_EQ(settings.Port(), store.ReadString("Settings", "COMMPORT", ""));
  for (const bool on : {true, false}) {
    EXPECT_TRUE(settings.SetSaveFile(on));
    EXPECT_EQ(settings.SaveFile(), on);
    EXPECT_EQ(store.ReadInteger("Settings", "SAVEFILE", 7), on ? 1 : 0);
  }
}

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
  EXPECT_EQ(LanguageLibrary(1413), "ZelorGas_bg");
  EXPECT_EQ(kLanguageNames[LanguageEntry(1413)], "Bulgarian");
  for (const int language : {1414, 9, 0}) {
    EXPECT_EQ(LanguageLibrary(language), "");
    EXPECT_EQ(kLanguageNames[LanguageEntry(language)], "English");
  }
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

TEST(RecentFiles, LoseWhatCannotBeOpened) {
  const std::string present = Whole(fs::temp_directory_path().string());
  MemorySettings store;
  RecentFiles recent(store);
  for (const std::string& name : {std::string("no such 1"), std::string("no such 2"), present}) {
    recent.Add(name);
  }
  recent.Remove("no such 2");
  EXPECT_THAT(recent.Files(), ElementsAre(present, Whole("no such 1")));
  recent.RemoveMissing();
  EXPECT_THAT(RecentFiles(store).Files(), ElementsAre(present));
  store.RefuseWrites();
  recent.Remove(present);
  EXPECT_THAT(recent.Files(), ElementsAre());
}

}  // namespace
}  // namespace zelorgas
