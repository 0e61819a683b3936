#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>

#include "platform/SettingsContract.h"
#include "platform/SettingsFilePosix.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

class SettingsFiles : public testing::Test {
 protected:
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

  const TemporaryFolder folder_;
  const fs::path& root_ = folder_.Path();
  const fs::path file_ = root_ / "config/Tarnwick/ZelorGAS.ini";
};

TEST(SettingsFileName, FollowsTheEnvironment) {
  EXPECT_EQ(SettingsFile("Tarnwick", "/x", "/home/a"), "/x/Tarnwick/ZelorGAS.ini");
  for (const char* xdg : {static_cast<const char*>(nullptr), "", "relative"}) {
    EXPECT_EQ(SettingsFile("Tarnwick", xdg, "/home/a"), "/home/a/.config/Tarnwick/ZelorGAS.ini");
    EXPECT_EQ(SettingsFile("Tarnwick", xdg, nullptr), "");
    EXPECT_EQ(SettingsFile("Tarnwick", xdg, ""), "");
  }
}

TEST_F(SettingsFiles, KeepValuesForTheNextStart) {
  EXPECT_EQ(OpenSettingsFile(file_)->ReadInteger("Settings", "Language", 9), 9);
  EXPECT_FALSE(fs::exists(file_)) << "reading makes no file";
  ExpectKeepsValues([this] { return OpenSettingsFile(file_); });
  EXPECT_THAT(Names(), testing::ElementsAre("ZelorGAS.ini"));
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
  int number = 0;
  for (const std::string& damage :
       {std::string("\0\0\0", 3), std::string("garbage\n"), std::string(2U << 20U, 'a'),
        std::string("damaged while the program runs")}) {
    const bool running = ++number == 4;
    std::unique_ptr<SettingsStore> store;
    if (running) store = OpenSettingsFile(file_);
    Write(damage);
    if (!running) store = OpenSettingsFile(file_);
    EXPECT_EQ(store->ReadInteger("Settings", "Language", 9), 9);
    EXPECT_TRUE(store->WriteInteger("Settings", "Language", 1414));
    EXPECT_EQ(Read(file_), "[Settings]\nLanguage=1414\n");
    const std::string aside =
        number == 1 ? "ZelorGAS.ini.damaged" : "ZelorGAS.ini.damaged" + std::to_string(number);
    EXPECT_EQ(Read(file_.parent_path() / aside), damage);
    EXPECT_EQ(Names().size(), static_cast<std::size_t>(number) + 1) << "nothing else is left";
    fs::remove(file_);
  }
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
