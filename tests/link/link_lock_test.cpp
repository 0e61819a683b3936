#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

#include "link/LinkLock.h"

namespace zelorgas {
namespace {

TEST(LinkLock, ItsOwnerMayTakeItAgain) {
  LinkLock lock;
  std::atomic<bool> waits{false};
  lock.SetSliceHook([&] { waits = true; });
  lock.lock();
  lock.lock();
  lock.lock();
  lock.unlock();
  lock.unlock();
  // Still held: another gets it only after the last unlock.
  std::atomic<bool> released{false};
  std::thread other([&] {
    const std::lock_guard guard(lock);
    EXPECT_TRUE(released);
  });
  while (!waits) std::this_thread::yield();
  released = true;
  lock.unlock();
  other.join();
}

TEST(LinkLock, ThreadsExcludeEachOther) {
  constexpr int kThreads = 4;
  constexpr int kTurns = 2000;
  LinkLock lock;
  int turns = 0;  // what an unguarded count would lose, and ThreadSanitizer would report
  int inside = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&] {
      for (int turn = 0; turn < kTurns; ++turn) {
        const std::lock_guard outer(lock);
        const std::lock_guard inner(lock);
        EXPECT_EQ(++inside, 1);
        ++turns;
        --inside;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(turns, kThreads * kTurns);
}

TEST(LinkLock, TheHookRunsWhileSomebodyWaitsAndThenOnly) {
  LinkLock lock;
  std::atomic<int> hooked{0};
  std::atomic<bool> on_another_thread{true};
  const std::thread::id self = std::this_thread::get_id();
  lock.SetSliceHook([&] {
    if (std::this_thread::get_id() == self) on_another_thread = false;
    ++hooked;
  });
  lock.lock();
  lock.lock();
  lock.unlock();
  lock.unlock();
  EXPECT_EQ(hooked, 0) << "nobody waited";

  lock.lock();
  std::atomic<bool> started{false};
  std::thread waiter([&] {
    started = true;
    const std::lock_guard guard(lock);
  });
  while (!started) std::this_thread::yield();
  // The lock is held until the waiting thread has come by three times: it does not just block.
  while (hooked < 3) std::this_thread::yield();
  lock.unlock();
  waiter.join();
  EXPECT_TRUE(on_another_thread) << "not on the owner's";
}

// A worker that takes the lock for exchange after exchange leaves a page its turn.
TEST(LinkLock, WhoWaitsIsServedBeforeWhoComesBack) {
  LinkLock lock;
  std::atomic<bool> waits{false};
  lock.SetSliceHook([&] { waits = true; });
  std::vector<int> order;  // guarded by lock
  lock.lock();
  std::thread page([&] {
    const std::lock_guard guard(lock);
    order.push_back(1);
  });
  while (!waits) std::this_thread::yield();
  lock.unlock();
  lock.lock();
  order.push_back(2);
  lock.unlock();
  page.join();
  EXPECT_EQ(order, (std::vector{1, 2}));
}

}  // namespace
}  // namespace zelorgas
