#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "platform/SettingsFilePosix.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

class SettingsFiles : public testing::Test {
 protected:
  SettingsFiles() {
    std::string name = (fs::temp_directory_path() / "settings-XXXXXX").string();
    root_ = mkdtemp(name.data());
    file_ = root_ / "config/Tarnwick/ZelorGAS.ini";
  }
  ~SettingsFiles() override { fs::remove_all(root_); }

  void Write(const std::string& text) {
    fs::create_directories(file_.parent_path());
    std::ofstream(file_, std::ios::binary) << text;
  }
  static std::string Read(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(file_.parent_path())) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  fs::path root_;
  fs::path file_;
};

using testing::UnorderedElementsAre;

TEST(SettingsFileName, FollowsTheEnvironment) {
  EXPECT_EQ(SettingsFile("Tarnwick", "/x", "/home/a"), "/x/Tarnwick/ZelorGAS.ini");
  for (const char* xdg : {static_cast<const char*>(nullptr), "", "relative"}) {
    EXPECT_EQ(SettingsFile("Tarnwick", xdg, "/home/a"), "/home/a/.config/Tarnwick/ZelorGAS.ini");
    EXPECT_EQ(SettingsFile("Tarnwick", xdg, nullptr), "");
    EXPECT_EQ(SettingsFile("Tarnwick", xdg, ""), "");
  }
}

TEST_F(SettingsFiles, KeepValuesForTheNextStart) {
  const auto first = OpenSettingsFile(file_);
  const auto second = OpenSettingsFile(file_);
  EXPECT_EQ(first->ReadInteger("Settings", "Language", 9), 9);
  EXPECT_EQ(first->ReadString("Settings", "COMMPORT", "none"), "none");
  EXPECT_FALSE(fs::exists(file_)) << "reading makes no file";
  EXPECT_TRUE(first->WriteInteger("Settings", "Language", 1413));
  EXPECT_TRUE(second->WriteString("Settings", "COMMPORT", "/dev/ttyUSB0"));
  EXPECT_TRUE(first->WriteInteger("Settings", "SAVEFILE", -1));
  EXPECT_EQ(second->ReadInteger("Settings", "Language", 9), 1413);
  EXPECT_EQ(second->ReadInteger("Settings", "SAVEFILE", 0), -1);
  EXPECT_EQ(Read(file_), "[Settings]\nLanguage=1413\nCOMMPORT=/dev/ttyUSB0\nSAVEFILE=-1\n");
  EXPECT_THAT(Names(), UnorderedElementsAre("ZelorGAS.ini"));
}

TEST_F(SettingsFiles, IntegersMustBeWholeNumbers) {
  Write("[S]\na=12x\nb=\nc= 7 \nd=99999999999\ne=0x10\n");
  const auto store = OpenSettingsFile(file_);
  EXPECT_EQ(store->ReadInteger("S", "c", 5), 7);
  for (const char* key : {"a", "b", "d", "e"}) EXPECT_EQ(store->ReadInteger("S", key, 5), 5) << key;
}

TEST_F(SettingsFiles, AreReplacedWholeAndKeepLinkAndPermissions) {
  const std::string old = "# mine\n[Layout]\nunknown=1\n";
  const fs::path real = root_ / "real.ini";
  const fs::path before = root_ / "before.ini";
  std::ofstream(real) << old;
  ::chmod(real.c_str(), 0640);
  fs::create_hard_link(real, before);
  fs::create_directories(file_.parent_path());
  fs::create_symlink(real, file_);
  EXPECT_TRUE(OpenSettingsFile(file_)->WriteInteger("Settings", "SAVEFILE", 1));
  EXPECT_EQ(Read(before), old) << "the old file was written into";
  EXPECT_EQ(Read(real), old + "\n[Settings]\nSAVEFILE=1\n");
  EXPECT_TRUE(fs::is_symlink(file_));
  EXPECT_EQ(fs::status(real).permissions(), fs::perms(0640));
}

TEST_F(SettingsFiles, DamagedOnesArePutAside) {
  const std::string huge(2U << 20U, 'a');
  std::vector<std::string> expected;
  for (const std::string& damage : {std::string("\0\0\0", 3), std::string("garbage\n"), huge}) {
    Write(damage);
    const auto store = OpenSettingsFile(file_);
    expected.push_back(expected.empty()
                           ? "ZelorGAS.ini.damaged"
                           : "ZelorGAS.ini.damaged" + std::to_string(expected.size() + 1));
    EXPECT_THAT(Names(), testing::UnorderedElementsAreArray(expected));
    EXPECT_EQ(Read(file_.parent_path() / expected.back()), damage);
    EXPECT_EQ(store->ReadInteger("Settings", "Language", 9), 9);
    EXPECT_TRUE(store->WriteInteger("Settings", "Language", 1414));
    EXPECT_EQ(Read(file_), "[Settings]\nLanguage=1414\n");
    fs::remove(file_);
  }
  // Damaged while the program runs.
  const auto store = OpenSettingsFile(file_);
  Write("garbage");
  EXPECT_EQ(store->ReadString("Settings", "COMMPORT", "-"), "-");
  EXPECT_TRUE(store->WriteString("Settings", "COMMPORT", "COM3"));
  EXPECT_EQ(Read(file_.parent_path() / "ZelorGAS.ini.damaged4"), "garbage");
}

TEST_F(SettingsFiles, WithoutAPlaceReadFallbacksAndRefuseWrites) {
  fs::create_directories(root_ / "folder.ini");
  std::ofstream(root_ / "file") << "text";
  fs::create_symlink("nowhere/at/all", root_ / "dangling.ini");
  for (const fs::path& path : {fs::path(), root_ / "folder.ini", root_ / "file/ZelorGAS.ini",
                               root_ / "dangling.ini", fs::path("/dev/null")}) {
    const auto store = OpenSettingsFile(path);
    EXPECT_FALSE(store->WriteInteger("Settings", "Language", 1413)) << path;
    EXPECT_FALSE(store->WriteString("Settings", "COMMPORT", "COM3")) << path;
    EXPECT_EQ(store->ReadInteger("Settings", "Language", 9), 9) << path;
    EXPECT_EQ(store->ReadString("Settings", "COMMPORT", "-"), "-") << path;
  }
  EXPECT_EQ(Read(root_ / "file"), "text");
}

}  // namespace
}  // namespace zelorgas
