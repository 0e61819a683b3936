// The thread of one firmware update: it waits to be begun, does the update, and ends. The dialog
// makes one for every update. Made, begun and destroyed by the user-interface thread.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

#include "app/Event.h"

namespace zelorgas {

class FirmwareWorker {
 public:
  static constexpr std::chrono::milliseconds kStartLimit{5000};

  // `job` runs on the new thread when Begin is called within kStartLimit; `ended` runs there last,
  // with false when `job` has not run.
  FirmwareWorker(std::function<void()> job, std::function<void(bool has_run)> ended);
  FirmwareWorker(const FirmwareWorker&) = delete;
  FirmwareWorker& operator=(const FirmwareWorker&) = delete;
  // Ends the waiting; a job that runs is waited for.
  ~FirmwareWorker();

  void Begin() { start_.Set(); }

 private:
  Event start_;
  std::atomic<bool> given_up_{false};
  std::thread thread_;
};

}  // namespace zelorgas
