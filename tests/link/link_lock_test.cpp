#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "link/LinkLock.h"

namespace zelorgas {
namespace {

class LinkLockTest : public testing::Test {
 protected:
  // Another thread asks for the lock, which the test holds, and runs `inside` under it. Returns
  // when the other has come by three times: it does not just block.
  void LetWait(std::function<void()> inside) {
    other_ = std::thread([this, inside] {
      const std::lock_guard guard(lock_);
      inside();
    });
    while (hooked_ < 3) std::this_thread::yield();
  }

  LinkLock lock_;
  std::atomic<int> hooked_{0};
  std::thread other_;
};

TEST_F(LinkLockTest, ItsOwnerMayTakeItAgainAndOthersWaitForTheLastUnlock) {
  lock_.SetSliceHook([this] { ++hooked_; });
  lock_.lock();
  lock_.lock();
  lock_.unlock();
  EXPECT_EQ(hooked_, 0) << "nobody waits";
  bool released = false;
  LetWait([&] { EXPECT_TRUE(released); });
  released = true;
  lock_.unlock();
  other_.join();
}

// A worker that takes the lock for exchange after exchange leaves a page its turn, also when the
// messages that the page dispatches meanwhile ask for the lock themselves.
TEST_F(LinkLockTest, WhoWaitsIsServedBeforeWhoComesBack) {
  std::vector<int> order;
  lock_.SetSliceHook([&] {
    if (hooked_++ != 0) return;
    const std::lock_guard guard(lock_);
    order.push_back(0);
  });
  lock_.lock();
  LetWait([&] { order.push_back(1); });
  lock_.unlock();
  lock_.lock();
  order.push_back(2);
  lock_.unlock();
  other_.join();
  EXPECT_EQ(order, (std::vector{0, 1, 2}));
}

}  // namespace
}  // namespace zelorgas
