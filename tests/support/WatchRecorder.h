// Keeps what a port watcher reports and lets a test wait for it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/PortWatcher.h"

namespace zelorgas {

class WatchRecorder {
 public:
  std::function<void(PortWatchEvent)> Notify() {
    return [this](PortWatchEvent event) {
      const std::lock_guard guard(lock_);
      events_.push_back(event);
      changed_.notify_all();
    };
  }

  // True once `count` reports have come.
  bool WaitFor(std::size_t count) {
    std::unique_lock guard(lock_);
    return changed_.wait_for(guard, kPatience, [&] { return events_.size() >= count; });
  }

  std::vector<PortWatchEvent> Events() {
    const std::lock_guard guard(lock_);
    return events_;
  }

 private:
  static constexpr std::chrono::seconds kPatience{30};

  std::mutex lock_;
  std::condition_variable changed_;
  std::vector<PortWatchEvent> events_;  // guarded by lock_
};

// True once the watcher's thread has ended by itself.
inline bool WaitForEnd(const PortWatcher& watcher) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!watcher.Ended() && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::yield();
  }
  return watcher.Ended();
}

}  // namespace zelorgas
