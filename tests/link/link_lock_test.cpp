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

TEST_F(LinkLockTest, ThreadsExcludeEachOther) {
  constexpr int kThreads = 4;
  constexpr int kTurns = 2000;
  int turns = 0;  // what an unguarded count would lose, and ThreadSanitizer would report
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int turn = 0; turn < kTurns; ++turn) {
        const std::lock_guard outer(lock_);
        const std::lock_guard inner(lock_);
        ++turns;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(turns, kThreads * kTurns);
}

}  // namespace
}  // namespace zelorgas
