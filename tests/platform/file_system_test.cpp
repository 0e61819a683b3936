#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "platform/FileSystem.h"
#include "support/FaultyFiles.h"
#include "support/TemporaryFolder.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

class FileSystem : public testing::Test {
 protected:
  std::string Contents(const fs::path& path) {
    std::string contents = "(none)";
    Message reason;
    return ReadWholeFile(path, contents, reason) ? contents : "(" + reason.English() + ")";
  }
  std::ptrdiff_t FileCount() {
    return std::distance(fs::directory_iterator(folder_.Path()), fs::directory_iterator());
  }

  const TemporaryFolder folder_;
  const fs::path file_ = folder_.Path() / PathFromText("m\xC3\xBCll.fob");
  const std::string old_ = std::string(100'000, 'o') + std::string("\0\r\n", 3);
  const std::string new_ = std::string(200'000, 'n');
  Message reason_;
};

TEST_F(FileSystem, WritesAndReadsWhatItWasGiven) {
  for (const std::string& contents : {old_, new_, std::string()}) {
    ASSERT_TRUE(WriteWholeFile(file_, contents, reason_)) << reason_.English();
    EXPECT_EQ(Contents(file_), contents);
    EXPECT_EQ(FileCount(), 1);
  }
  EXPECT_EQ(PathText(file_.filename()), "m\xC3\xBCll.fob");
}

TEST_F(FileSystem, AfterAnyFailureTheFileIsTheOldOrTheNewOne) {
  for (const bool exists : {true, false}) {
    int index = 0;
    for (bool happened = true; happened; ++index) {
      fs::remove(file_);
      ASSERT_TRUE(!exists || WriteWholeFile(file_, old_, reason_));
      FaultyFiles files(index, FileFault::kFails);
      reason_ = {};
      const bool written = WriteWholeFileWith(files, file_, new_, reason_);
      happened = files.Happened();
      const std::string kept = exists ? old_ : "(No such file or directory)";
      const bool renamed = index > 5;
      EXPECT_TRUE(Contents(file_) == (renamed ? new_ : kept)) << index;
      EXPECT_EQ(written, !happened) << index;
      const std::string undone = "it is written, but a power failure may still undo that: ";
      EXPECT_EQ(reason_, written ? "" : (renamed ? undone : "") + "No space left on device");
      EXPECT_EQ(FileCount(), fs::exists(file_) ? 1 : 0) << "temporary file left " << index;
    }
    EXPECT_EQ(index, 8) << "create, two writes, sync, close, rename, sync of the folder, none";
  }
}

TEST_F(FileSystem, WhatIsNoFileIsRefusedWithItsReason) {
  EXPECT_EQ(Contents(folder_.Path()), "(Is a directory)");
  EXPECT_EQ(Contents(file_), "(No such file or directory)");
  std::ofstream(folder_.Path() / "large").seekp(kLargestWholeFile).put('\n');
  EXPECT_EQ(Contents(folder_.Path() / "large"), "(it is larger than 16 MB)");
  fs::remove(folder_.Path() / "large");
  EXPECT_FALSE(WriteWholeFile(folder_.Path(), new_, reason_));
  EXPECT_EQ(reason_, "Is a directory");
  reason_ = {};
  EXPECT_FALSE(WriteWholeFile(folder_.Path() / "no" / "such", new_, reason_));
  EXPECT_NE(reason_, "");
  EXPECT_EQ(FileCount(), 0);
}

}  // namespace
}  // namespace zelorgas
