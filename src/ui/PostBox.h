// Hands values from any thread to one object of the user-interface thread: what is posted lies in a
// queue, and the receiver gets one custom event for all that came since it looked last.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <mutex>
#include <utility>
#include <vector>

namespace zelorgas {

template <typename T>
class PostBox {
 public:
  // Whom the events go to from now on; null: nobody, and what is posted is dropped. The receiver
  // takes itself out before it goes.
  void SetReceiver(QObject* receiver) {
    const std::lock_guard guard(lock_);
    receiver_ = receiver;
    values_.clear();
  }

  void Post(T value) {
    const std::lock_guard guard(lock_);
    if (receiver_ == nullptr) return;
    if (values_.empty()) QCoreApplication::postEvent(receiver_, new QEvent(QEvent::User));
    values_.push_back(std::move(value));
  }

  // In the order in which they were posted.
  [[nodiscard]] std::vector<T> TakeAll() {
    const std::lock_guard guard(lock_);
    return std::exchange(values_, {});
  }

 private:
  std::mutex lock_;
  QObject* receiver_ = nullptr;  // guarded by lock_, as what follows
  std::vector<T> values_;
};

}  // namespace zelorgas
