#include "firmware/FirmwareWorker.h"

#include <utility>

namespace zelorgas {

FirmwareWorker::FirmwareWorker(std::function<void()> job, std::function<void(bool has_run)> ended)
    : thread_([this, job = std::move(job), ended = std::move(ended)] {
        const bool run = start_.Wait(kStartLimit) && !given_up_;
        if (run) job();
        ended(run);
      }) {}

FirmwareWorker::~FirmwareWorker() {
  // Looked at behind the event only, so a start that has been seen is not taken back.
  given_up_ = true;
  start_.Set();
  thread_.join();
}

}  // namespace zelorgas
