// How a thread of its own gets something done on the user-interface thread: calls that one object
// there runs in the order in which they were made.
#pragma once

#include <QObject>
#include <functional>
#include <future>
#include <memory>

#include "ui/PostBox.h"

namespace zelorgas {

class UiCalls {
 public:
  using Task = std::function<void()>;

  // `receiver` calls Run from its customEvent, keeps its event loop running, and outlives the
  // calls.
  explicit UiCalls(QObject& receiver) { box_.SetReceiver(&receiver); }
  // No thread may call any more.
  ~UiCalls() { box_.SetReceiver(nullptr); }
  UiCalls(const UiCalls&) = delete;
  UiCalls& operator=(const UiCalls&) = delete;

  // Any thread: `task` runs later.
  void Post(Task task) { box_.Post(std::move(task)); }
  // Any thread but the user-interface's: returns when `task` has run.
  void Call(const Task& task) {
    const auto job = std::make_shared<std::packaged_task<void()>>(task);
    Post([job] { (*job)(); });
    job->get_future().wait();
  }

  // User-interface thread.
  void Run() {
    for (const Task& task : box_.TakeAll()) task();
  }

 private:
  PostBox<Task> box_;
};

}  // namespace zelorgas
