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
using testing::IsEmpty;

TEST(Settings, WithoutAnyStartBuiltInWithEmptyPortAndNoFile) {
  MemorySettings store;
  const Settings settings(store);
  EXPECT_EQ(settings.Language(), 9);
  EXPECT_EQ(LanguageLibrary(settings.Language()), "");
  EXPECT_EQ(settings.Port(), "");
  EXPECT_FALSE(settings.SaveFile());
}

TEST(Settings, AreKeptUnderTheirKeys) {
  MemorySettings store;
  Settings settings(store);
  EXPECT_TRUE(settings.SetPort("COM3"));
  EXPECT_TRUE(settings.SetSaveFile(true));
  EXPECT_EQ(store.ReadString("Settings", "COMMPORT", ""), "COM3");
  EXPECT_EQ(store.ReadInteger("Settings", "SAVEFILE", 7), 1);
  EXPECT_TRUE(settings.SaveFile());
  EXPECT_TRUE(settings.SetSaveFile(false));
  EXPECT_EQ(store.ReadInteger("Settings", "SAVEFILE", 7), 0);
  EXPECT_EQ(settings.Port(), "COM3");
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
  EXPECT_EQ(LanguageLibrary(1414), "");
  EXPECT_EQ(LanguageLibrary(0), "");
  EXPECT_EQ(kLanguageNames[LanguageEntry(1413)], "Bulgarian");
  EXPECT_EQ(kLanguageNames[LanguageEntry(1414)], "English");
  EXPECT_EQ(kLanguageNames[LanguageEntry(9)], "English");
}

std::string Whole(const std::string& name) {
  const std::u8string path = fs::absolute(fs::path(name)).lexically_normal().u8string();
  return {path.begin(), path.end()};
}

TEST(RecentFiles, KeepTheLatestFourInFrontOrder) {
  MemorySettings store;
  RecentFiles recent(store);
  EXPECT_THAT(recent.Files(), IsEmpty());
  for (const char* name : {"a.fob", "b.fob", "c.fob", "d.fob", "e.fob", "./x/../c.fob", ""}) {
    recent.Add(name);
  }
  const std::vector<std::string> expected = {Whole("c.fob"), Whole("e.fob"), Whole("d.fob"),
                                             Whole("b.fob")};
  EXPECT_EQ(recent.Files(), expected);
  EXPECT_EQ(store.ReadString("Recent File List", "File1", ""), Whole("c.fob"));
  EXPECT_EQ(store.ReadString("Recent File List", "File4", ""), Whole("b.fob"));
  EXPECT_EQ(RecentFiles(store).Files(), expected) << "after a new start";
}

TEST(RecentFiles, LoseWhatCannotBeOpened) {
  const std::u8string here = fs::temp_directory_path().lexically_normal().u8string();
  const std::string present(here.begin(), here.end());
  MemorySettings store;
  RecentFiles recent(store);
  for (const char* name : {"no such file 1", "no such file 2"}) recent.Add(name);
  recent.Add(present);
  recent.Remove("no such file 2");
  EXPECT_THAT(recent.Files(), ElementsAre(Whole(present), Whole("no such file 1")));
  recent.RemoveMissing();
  EXPECT_THAT(recent.Files(), ElementsAre(Whole(present)));
  EXPECT_EQ(RecentFiles(store).Files(), recent.Files());
  store.RefuseWrites();
  recent.Remove(present);
  EXPECT_THAT(recent.Files(), IsEmpty());
}

}  // namespace
}  // namespace zelorgas
