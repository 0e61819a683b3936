#include <gtest/gtest.h>

#include "platform/FileSystem.h"
#include "support/FaultyFiles.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

TEST(FileSystemPosix, LinksPermissionsAndDevicesStay) {
  const TemporaryFolder folder;
  const fs::path file = folder.Path() / "file";
  const fs::path link = folder.Path() / "link";
  std::string reason;
  constexpr fs::perms kPrivate = fs::perms::owner_read | fs::perms::owner_write;
  ASSERT_TRUE(WriteWholeFile(file, "old", reason));
  fs::permissions(file, kPrivate);
  fs::create_symlink(file.filename(), link);
  ASSERT_TRUE(WriteWholeFile(link, "new", reason)) << reason;
  EXPECT_TRUE(fs::is_symlink(link));
  std::string contents;
  ASSERT_TRUE(ReadWholeFile(file, contents, reason));
  EXPECT_EQ(contents, "new");
  EXPECT_EQ(fs::status(file).permissions(), kPrivate);
  EXPECT_FALSE(WriteWholeFile("/dev/null", "new", reason));
  EXPECT_EQ(reason, "not a regular file");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

// The child that dies shares the folder: only a forked one does.
TEST(FileSystemPosix, AKilledProcessLeavesTheOldOrTheNewFile) {
  const TemporaryFolder folder;
  const fs::path file = folder.Path() / "file";
  const std::string old_contents(100'000, 'o');
  const std::string new_contents(200'000, 'n');
  std::string contents;
  std::string reason;
  constexpr int kOperations = 7;
  constexpr int kRename = 5;
  for (int index = 0; index < kOperations; ++index) {
    for (const FileFault fault : {FileFault::kKillsBefore, FileFault::kKillsAfter}) {
      ASSERT_TRUE(WriteWholeFile(file, old_contents, reason));
      EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1)
          << "what the process before has left is gone";
      EXPECT_EXIT(
          {
            FaultyFiles files(index, fault);
            static_cast<void>(WriteWholeFileWith(files, file, new_contents, reason));
          },
          testing::ExitedWithCode(FaultyFiles::kKilled), "");
      const bool renamed = index > kRename || (index == kRename && fault == FileFault::kKillsAfter);
      ASSERT_TRUE(ReadWholeFile(file, contents, reason));
      EXPECT_TRUE(contents == (renamed ? new_contents : old_contents)) << index;
    }
  }
}

}  // namespace
}  // namespace zelorgas
