#include <gmock/gmock.h>

#include <sstream>

#include "config/StoragePaths.h"
#include "config/StorageTree.h"
#include "config/Utf8Text.h"
#include "platform/FileSystem.h"
#include "support/SampleConfiguration.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;

TEST(StoragePaths, NamesStayInsideTheirFolder) {
  const TemporaryFolder folder;
  Message problem;
  std::istringstream bad(
      "\n.\n..\n../car\na/b\na\\b\nC:car\n/etc\ncar.\ncar \n "
      "car\na\tb\na\x7F\nwhat?\na*\na|b\n<a>\n"
      "a\"b\nnul\nCON.fob\nCom1\nLPT9.old\nCOM\u00B2\naux "
      ".x\nCONIN$\n\xC3\n\xC0\xAE\n\xED\xA0\x80\n" +
      std::string(201, 'a') + '\n' + std::string(1, '\0') + '\n');
  for (std::string name; std::getline(bad, name);) {
    EXPECT_FALSE(StorageFile(folder.Path(), name, ".fob", problem)) << name;
    EXPECT_NE(problem, "") << name;
  }
  std::istringstream good("Golf 1.6\na..b\nCOM10\nconsole\n.fob\n\u041B\u0430\u0434\u0430\n");
  for (std::string name; std::getline(good, name);) {
    const auto path = StorageFile(folder.Path(), name, ".fob", problem);
    ASSERT_TRUE(path) << name << ": " << problem.English();
    EXPECT_EQ(PathText(path->filename()), name + ".fob");
    Message reason;
    EXPECT_TRUE(WriteWholeFile(*path, "x", reason)) << reason.English();
  }
  EXPECT_EQ(StorageFile("x", "car.FOB", ".fob", problem), std::filesystem::path("x") / "car.FOB");
}

TEST(Utf8Text, IsCutBetweenItsCharacters) {
  EXPECT_EQ(Shortened("12345", 5), "12345");
  EXPECT_EQ(Shortened("123456", 5), "12345...");
  EXPECT_EQ(Shortened("1234\u041B", 5), "1234...");
  EXPECT_EQ(Shortened("1\n2\n", 9, 2), "1\n2");
  EXPECT_EQ(Shortened("1\n2\n3", 9, 2), "1\n2...");
}

TEST(StorageTree, ListsFoldersAndFilesWithTheirNotes) {
  const TemporaryFolder folder;
  const std::filesystem::path root = folder.Path() / "storage";
  EXPECT_THAT(ReadStorageFolders(root).folders, testing::IsEmpty());
  EXPECT_EQ(ReadStorageFolders(root).problem, "");
  const std::filesystem::path brand = root / "LPG" / "Opel";
  std::filesystem::create_directories(brand / "folder.fob");
  std::filesystem::create_directories(root / "CNG");
  std::filesystem::create_directories(root / "backup");
  Message problem;
  ASSERT_TRUE(WriteWholeFile(brand / "b.fob", SampleText("its notes"), problem));
  ASSERT_TRUE(WriteWholeFile(brand / "A.FOB", SampleText().substr(0, 3000), problem));
  ASSERT_TRUE(WriteWholeFile(brand / "c.fob", "", problem));
  ASSERT_TRUE(WriteWholeFile(brand / "run.osc", "", problem));

  const StorageFolderEntry tree = ReadStorageFolders(root);
  EXPECT_EQ(tree.name, "User Folders");
  std::vector<std::string> names;
  for (const StorageFolderEntry& entry : tree.folders) names.push_back(entry.name);
  EXPECT_THAT(names, ElementsAre("backup", "CNG", "LPG"));
  ASSERT_EQ(tree.folders[2].folders.size(), 1U);
  EXPECT_EQ(tree.folders[2].folders[0].path, brand);

  const StorageFiles list = ReadStorageFiles(brand, ".fob");
  ASSERT_EQ(list.files.size(), 3U);
  EXPECT_EQ(list.files[0].name, "A.FOB");
  EXPECT_THAT(list.files[0].problem.English(), testing::HasSubstr("unterminated"));
  EXPECT_EQ(list.files[1].notes, "its notes");
  EXPECT_EQ(list.files[1].size, SampleText("its notes").size());
  EXPECT_EQ(list.files[1].problem, "");
  EXPECT_THAT(ModifiedText(list.files[1]), testing::MatchesRegex("20.+-.+-.+ .+:.+"));
  EXPECT_NE(list.files[2].problem, "");
  EXPECT_EQ(ReadStorageFiles(brand, ".osc").files.size(), 1U);
  EXPECT_NE(ReadStorageFiles(brand / "b.fob", ".fob").problem, "") << "a file in place of a folder";
}

}  // namespace
}  // namespace zelorgas
