// The worker's messages on their way to a thread that has no message loop: it waits for them and
// takes them. Any thread may post, one takes.
#pragma once

#include <condition_variable>
#include <mutex>
#include <vector>

#include "app/CommStatus.h"
#include "platform/Clock.h"

namespace zelorgas {

class StatusQueue final : public StatusSink {
 public:
  // A message that repeats the one before it, still waiting, says nothing new and is dropped, so
  // that a slow reader finds the latest state and not a backlog.
  void Post(CommStatus status) override;

  // Returns when there are messages to take, after `timeout` of real time at the latest.
  void Wait(Clock::Duration timeout);
  // All that have come since the last call, oldest first.
  [[nodiscard]] std::vector<CommStatus> TakeAll();

 private:
  std::mutex lock_;
  std::condition_variable posted_;
  std::vector<CommStatus> messages_;  // guarded by lock_
};

}  // namespace zelorgas
