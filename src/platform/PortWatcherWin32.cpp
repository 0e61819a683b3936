#include <array>
#include <atomic>
#include <future>
#include <thread>
#include <utility>

#include "platform/PortWatchWin32.h"
#include "platform/SerialMapWin32.h"
#include "platform/Win32Handle.h"

namespace zelorgas {
namespace {

constexpr DWORD kAllChanges = REG_NOTIFY_CHANGE_NAME | REG_NOTIFY_CHANGE_ATTRIBUTES |
                              REG_NOTIFY_CHANGE_LAST_SET | REG_NOTIFY_CHANGE_SECURITY;

Win32Handle MakeManualResetEvent() {
  return Win32Handle(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
}

class RegistryKey {
 public:
  RegistryKey(HKEY root, const std::wstring& path) {
    if (::RegOpenKeyExW(root, path.c_str(), 0, KEY_NOTIFY, &key_) != ERROR_SUCCESS) key_ = nullptr;
  }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() {
    if (key_ != nullptr) ::RegCloseKey(key_);
  }

  [[nodiscard]] explicit operator bool() const { return key_ != nullptr; }

  // Has `event` set at the next change of this key or of one below it.
  [[nodiscard]] bool NotifyChange(HANDLE event) const {
    return ::RegNotifyChangeKeyValue(key_, TRUE, kAllChanges, event, TRUE) == ERROR_SUCCESS;
  }

 private:
  HKEY key_ = nullptr;
};

class PortWatcherWin32 final : public PortWatcher {
 public:
  PortWatcherWin32(HKEY root, std::wstring path, std::function<void(PortWatchEvent)> notify)
      : root_(root),
        path_(std::move(path)),
        notify_(std::move(notify)),
        stop_(MakeManualResetEvent()),
        thread_([this] {
          Run();
          ended_ = true;
        }) {
    watching_.get_future().wait();
  }

  ~PortWatcherWin32() override {
    if (stop_) ::SetEvent(stop_.Get());
    thread_.join();
  }

  bool Ended() const override { return ended_; }

 private:
  void Run() {
    const RegistryKey key(root_, path_);
    const Win32Handle changed = MakeManualResetEvent();
    bool asked = key && changed && stop_ && key.NotifyChange(changed.Get());
    watching_.set_value();
    if (!key) return notify_(PortWatchEvent::kOpenFailed);
    const std::array<HANDLE, 2> events = {stop_.Get(), changed.Get()};
    while (asked) {
      const DWORD result = ::WaitForMultipleObjects(static_cast<DWORD>(events.size()),
                                                    events.data(), FALSE, INFINITE);
      if (result == WAIT_OBJECT_0) return;
      if (result != WAIT_OBJECT_0 + 1) break;
      // Asked for again before the list is read: a change meanwhile is not lost.
      ::ResetEvent(changed.Get());
      asked = key.NotifyChange(changed.Get());
      notify_(PortWatchEvent::kChanged);
    }
    notify_(PortWatchEvent::kTrackingFailed);
  }

  const HKEY root_;
  const std::wstring path_;
  const std::function<void(PortWatchEvent)> notify_;
  const Win32Handle stop_;
  std::atomic<bool> ended_{false};
  // No std::latch: mingw-w64's may never wake who waits.
  std::promise<void> watching_;
  std::thread thread_;
};

}  // namespace

std::unique_ptr<PortWatcher> WatchRegistryKey(HKEY root, std::wstring path,
                                              std::function<void(PortWatchEvent)> notify) {
  return std::make_unique<PortWatcherWin32>(root, std::move(path), std::move(notify));
}

std::unique_ptr<PortWatcher> WatchSerialPorts(std::function<void(PortWatchEvent)> notify) {
  return WatchRegistryKey(HKEY_LOCAL_MACHINE, kSerialMap, std::move(notify));
}

}  // namespace zelorgas
