#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <optional>
#include <thread>
#include <utility>

#include "platform/FileDescriptor.h"
#include "platform/PortWatchLinux.h"

namespace zelorgas {
namespace {

// A new device file gets its owner and permissions only after it has appeared.
constexpr std::uint32_t kChanges =
    IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ATTRIB | IN_ONLYDIR;
constexpr std::uint32_t kWatchLost = IN_IGNORED | IN_UNMOUNT;

class PortWatcherLinux final : public PortWatcher {
 public:
  PortWatcherLinux(const std::filesystem::path& folder, std::function<void(PortWatchEvent)> notify)
      : notify_(std::move(notify)),
        changes_(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)),
        stop_(::eventfd(0, EFD_CLOEXEC)) {
    if (!changes_ || !stop_) {
      failure_ = PortWatchEvent::kTrackingFailed;
    } else if (::inotify_add_watch(changes_.Get(), folder.c_str(), kChanges) < 0) {
      // The one failure of the notification itself: no watches left for this user.
      failure_ = errno == ENOSPC ? PortWatchEvent::kTrackingFailed : PortWatchEvent::kOpenFailed;
    }
    thread_ = std::thread([this] {
      Run();
      ended_ = true;
    });
  }

  ~PortWatcherLinux() override {
    if (stop_) static_cast<void>(::eventfd_write(stop_.Get(), 1));
    thread_.join();
  }

  bool Ended() const override { return ended_; }

 private:
  void Run() {
    while (!failure_) {
      std::array<pollfd, 2> waits = {{{stop_.Get(), POLLIN, 0}, {changes_.Get(), POLLIN, 0}}};
      if (RetryInterrupted([&] { return ::poll(waits.data(), waits.size(), -1); }) < 0) {
        failure_ = PortWatchEvent::kTrackingFailed;
        break;
      }
      if (waits[0].revents != 0) return;
      if (TakeChanges()) notify_(PortWatchEvent::kChanged);
    }
    notify_(*failure_);
  }

  // Empties the queue. True when a serial port is among what has changed. Sets failure_ when there
  // will be no further changes to read.
  bool TakeChanges() {
    bool serial = false;
    alignas(inotify_event) std::array<char, 4096> buffer{};
    for (;;) {
      const ssize_t size =
          RetryInterrupted([&] { return ::read(changes_.Get(), buffer.data(), buffer.size()); });
      if (size <= 0) {
        if (size == 0 || errno != EAGAIN) failure_ = PortWatchEvent::kTrackingFailed;
        return serial;
      }
      for (std::size_t at = 0; at < static_cast<std::size_t>(size);) {
        inotify_event event{};
        std::memcpy(&event, buffer.data() + at, sizeof(event));
        const char* const name = buffer.data() + at + sizeof(event);
        if ((event.mask & kWatchLost) != 0) failure_ = PortWatchEvent::kTrackingFailed;
        // After an overflow nobody knows which names have changed.
        if ((event.mask & IN_Q_OVERFLOW) != 0) serial = true;
        if (event.len > 0 && IsSerialPortName(name)) serial = true;
        at += sizeof(event) + event.len;
      }
    }
  }

  const std::function<void(PortWatchEvent)> notify_;
  const FileDescriptor changes_;
  const FileDescriptor stop_;
  std::optional<PortWatchEvent> failure_;  // the thread's own once it runs
  std::atomic<bool> ended_{false};
  std::thread thread_;
};

}  // namespace

bool IsSerialPortName(std::string_view name) {
  constexpr std::string_view kTerminal = "tty";
  if (name.starts_with("rfcomm")) return true;
  if (!name.starts_with(kTerminal) || name.size() == kTerminal.size()) return false;
  // tty0, tty1 and so on are the consoles.
  const char next = name[kTerminal.size()];
  return next < '0' || next > '9';
}

std::unique_ptr<PortWatcher> WatchPortFolder(const std::filesystem::path& folder,
                                             std::function<void(PortWatchEvent)> notify) {
  return std::make_unique<PortWatcherLinux>(folder, std::move(notify));
}

std::unique_ptr<PortWatcher> WatchSerialPorts(std::function<void(PortWatchEvent)> notify) {
  return WatchPortFolder("/dev", std::move(notify));
}

}  // namespace zelorgas
