// Watches the machine's list of serial ports and says when it changes. A thread of its own waits
// for the system's notification; it neither polls nor sleeps.
#pragma once

#include <functional>
#include <memory>

namespace zelorgas {

enum class PortWatchEvent {
  kChanged,         // the list may have changed: read it again
  kTrackingFailed,  // the notification could not be asked for; the watcher has ended
  kOpenFailed,      // there is no list to watch; the watcher has ended
};

class PortWatcher {
 public:
  // Destroying it ends the thread and waits for that.
  virtual ~PortWatcher() = default;

  // True once the thread has ended by itself: nothing more will be reported.
  [[nodiscard]] virtual bool Ended() const = 0;
};

// `notify` is called on the watcher's thread, never after the watcher is gone; it must not wait for
// the thread that destroys the watcher.
[[nodiscard]] std::unique_ptr<PortWatcher> WatchSerialPorts(
    std::function<void(PortWatchEvent)> notify);

}  // namespace zelorgas
