#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <csignal>
#include <cstdlib>

#include "platform/FileSystem.h"
#include "support/FaultyFiles.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

// The child that dies shares the folder: only a forked one does.
TEST(FileSystemPosix, AKilledProcessLeavesTheOldOrTheNewFile) {
  const TemporaryFolder folder;
  const fs::path file = folder.Path() / "file";
  const std::string old_contents(100'000, 'o');
  const std::string new_contents(200'000, 'n');
  std::string contents;
  Message reason;
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
      for (const fs::directory_entry& entry : fs::directory_iterator(folder.Path())) {
        const auto written = fs::last_write_time(entry.path());
        fs::last_write_time(entry.path(), written - std::chrono::minutes(2));
      }
    }
  }
}

// The system itself takes a part of the bytes and then no more.
TEST(FileSystemPosix, AWriteThatEndsHalfwayLeavesTheOldFileAlone) {
  const TemporaryFolder folder;
  const fs::path file = folder.Path() / "file";
  const std::string old_contents(1'000, 'o');
  Message reason;
  ASSERT_TRUE(WriteWholeFile(file, old_contents, reason));
  EXPECT_EXIT(
      {
        rlimit limit{};
        limit.rlim_cur = limit.rlim_max = 150'000;
        std::signal(SIGXFSZ, SIG_IGN);
        const bool limited = setrlimit(RLIMIT_FSIZE, &limit) == 0;
        const bool written = WriteWholeFile(file, std::string(200'000, 'n'), reason);
        std::_Exit(limited && !written && !reason.empty() ? EXIT_SUCCESS : EXIT_FAILURE);
      },
      testing::ExitedWithCode(EXIT_SUCCESS), "");
  std::string contents;
  ASSERT_TRUE(ReadWholeFile(file, contents, reason));
  EXPECT_EQ(contents, old_contents);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator()), 1);
}

}  // namespace
}  // namespace zelorgas
