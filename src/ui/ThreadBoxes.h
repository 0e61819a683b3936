// Message boxes for a procedure that runs on a thread of its own: each is shown on the
// user-interface thread, and the procedure waits for the answer. To be called on any thread but
// that one.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "app/MessageBoxes.h"

namespace zelorgas {

class ThreadBoxes final : public MessageBoxes {
 public:
  // `boxes` shows the boxes and `status` takes the translated status line, both on the thread of
  // `ui`. That thread keeps its event loop running while the procedure does. `boxes` and `ui`
  // outlive this.
  ThreadBoxes(QObject& ui, MessageBoxes& boxes, std::function<void(const QString&)> status);

  void Inform(std::string_view text, MessageIcon icon) override;
  [[nodiscard]] bool Ask(std::string_view text) override;
  void Status(std::string_view text) override;

 private:
  QObject& ui_;
  MessageBoxes& boxes_;
  const std::function<void(const QString&)> status_;
};

}  // namespace zelorgas
