// Message boxes for a procedure that runs on a thread of its own: each is shown on the
// user-interface thread, and the procedure waits for the answer. To be called on any thread but
// that one.
#pragma once

#include <QString>
#include <functional>

#include "app/MessageBoxes.h"
#include "ui/UiCalls.h"

namespace zelorgas {

class ThreadBoxes final : public MessageBoxes {
 public:
  // By `calls`, `boxes` shows the boxes and `status` takes the translated status line. All outlive
  // this.
  ThreadBoxes(UiCalls& calls, MessageBoxes& boxes, std::function<void(const QString&)> status);

  void Inform(const Message& text, MessageIcon icon) override;
  [[nodiscard]] bool Ask(const Message& text) override;
  void Status(const Message& text) override;

 private:
  UiCalls& calls_;
  MessageBoxes& boxes_;
  const std::function<void(const QString&)> status_;
};

}  // namespace zelorgas
