// Brings the worker's WM_COMM_STATUS messages to the main view.
#pragma once

#include "app/CommStatus.h"
#include "ui/PostBox.h"

namespace zelorgas {

class QtStatusSink final : public StatusSink {
 public:
  // What the receiver takes the messages from when it gets its event.
  [[nodiscard]] PostBox<CommStatus>& Box() { return box_; }

  void Post(CommStatus status) override { box_.Post(status); }

 private:
  PostBox<CommStatus> box_;
};

}  // namespace zelorgas
