#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/PortWatchLinux.h"
#include "support/TemporaryFolder.h"
#include "support/WatchRecorder.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;
using testing::Each;
using testing::ElementsAre;
using testing::SizeIs;

class WatchedFolder : public testing::Test {
 protected:
  void Plug(const std::string& name) { std::ofstream(folder_ / name) << ""; }

  const TemporaryFolder temporary_;
  const fs::path& folder_ = temporary_.Path();
  WatchRecorder recorder_;
};

TEST_F(WatchedFolder, ReportsEveryKindOfChangeOfASerialPortOnce) {
  auto watcher = WatchPortFolder(folder_, recorder_.Notify());
  Plug("null");
  Plug("ttyUSB0");
  ASSERT_TRUE(recorder_.WaitFor(1)) << "plugged";
  fs::permissions(folder_ / "null", fs::perms::owner_read);
  fs::permissions(folder_ / "ttyUSB0", fs::perms::owner_read);
  ASSERT_TRUE(recorder_.WaitFor(2)) << "permissions";
  fs::rename(folder_ / "ttyUSB0", folder_ / "sda");
  ASSERT_TRUE(recorder_.WaitFor(3)) << "renamed away";
  fs::rename(folder_ / "sda", folder_ / "ttyUSB0");
  ASSERT_TRUE(recorder_.WaitFor(4)) << "renamed back";
  fs::remove(folder_ / "null");
  fs::remove(folder_ / "ttyUSB0");
  ASSERT_TRUE(recorder_.WaitFor(5)) << "unplugged";
  EXPECT_FALSE(watcher->Ended());
  watcher.reset();
  Plug("ttyUSB0");
  EXPECT_THAT(recorder_.Events(), testing::AllOf(SizeIs(5), Each(PortWatchEvent::kChanged)));
}

TEST_F(WatchedFolder, ThatIsNotThereCannotBeOpened) {
  for (const fs::path& path : {folder_ / "missing", fs::path("/dev/null")}) {
    WatchRecorder recorder;
    const auto watcher = WatchPortFolder(path, recorder.Notify());
    EXPECT_TRUE(WaitForEnd(*watcher)) << path;
    EXPECT_THAT(recorder.Events(), ElementsAre(PortWatchEvent::kOpenFailed)) << path;
  }
}

TEST_F(WatchedFolder, ThatGoesAwayCannotBeTracked) {
  const auto watcher = WatchPortFolder(folder_, recorder_.Notify());
  fs::remove(folder_);
  EXPECT_TRUE(WaitForEnd(*watcher));
  EXPECT_THAT(recorder_.Events(), ElementsAre(PortWatchEvent::kTrackingFailed));
}

}  // namespace
}  // namespace zelorgas
