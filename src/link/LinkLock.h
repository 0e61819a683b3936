// A lock whose owner may take it again, like a Windows critical section, which goes to whoever has
// waited longest, and whose wait for another thread is cut into slices with the slice hook between
// them: a user-interface thread that waits for the polling to finish its exchange keeps its window
// alive.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

namespace zelorgas {

class LinkLock {
 public:
  LinkLock() = default;
  LinkLock(const LinkLock&) = delete;
  LinkLock& operator=(const LinkLock&) = delete;

  // The names that std::lock_guard asks for.
  void lock();
  void unlock();

  // Runs on the waiting thread, at least every 10 ms, without any lock held; it may take this lock
  // and give it back. Set before the lock is shared between threads.
  void SetSliceHook(std::function<void()> hook) { hook_ = std::move(hook); }

 private:
  std::function<void()> hook_;

  std::mutex mutex_;
  std::condition_variable released_;
  // Guarded by mutex_.
  std::thread::id owner_;
  unsigned depth_ = 0;
  std::uint64_t next_turn_ = 0;  // for the next one who comes
  std::uint64_t turn_ = 0;       // whose turn it is
  // The turns of those who wait. One whose hook asks for the lock meanwhile gets it in that turn,
  // and keeps the turn for what it was waiting for.
  std::map<std::thread::id, std::uint64_t> waiting_;
  bool taken_while_waiting_ = false;
};

}  // namespace zelorgas
