// A kernel handle of Windows: closed when it goes, moved but never copied. Used by one thread at a
// time.
#pragma once

#include <windows.h>

#include <utility>

namespace zelorgas {

class Win32Handle {
 public:
  Win32Handle() = default;
  // Takes over what CreateFile or CreateEvent gave, their two ways of saying "none" included.
  explicit Win32Handle(HANDLE value) : value_(IsInvalid(value) ? nullptr : value) {}
  Win32Handle(Win32Handle&& other) noexcept : value_(std::exchange(other.value_, nullptr)) {}
  Win32Handle& operator=(Win32Handle&& other) noexcept {
    if (this != &other) {
      Close();
      value_ = std::exchange(other.value_, nullptr);
    }
    return *this;
  }
  ~Win32Handle() { Close(); }

  void Close() {
    if (value_ != nullptr) ::CloseHandle(std::exchange(value_, nullptr));
  }

  [[nodiscard]] HANDLE Get() const { return value_; }
  // Whoever takes it closes it.
  [[nodiscard]] HANDLE Release() { return std::exchange(value_, nullptr); }
  [[nodiscard]] explicit operator bool() const { return value_ != nullptr; }

 private:
  // INVALID_HANDLE_VALUE is a cast from a number; its meaning is all bits set.
  static bool IsInvalid(HANDLE value) { return ~reinterpret_cast<ULONG_PTR>(value) == 0; }

  HANDLE value_ = nullptr;
};

}  // namespace zelorgas
