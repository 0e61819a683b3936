// An open file of a POSIX system: closed when it goes, moved but never copied. Used by one thread
// at a time.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace zelorgas {

class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int value) : value_(value) {}
  FileDescriptor(FileDescriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
      Close();
      value_ = std::exchange(other.value_, -1);
    }
    return *this;
  }
  ~FileDescriptor() { Close(); }

  void Close() {
    // Not repeated after a signal: the system has released the number by then.
    if (value_ >= 0) ::close(std::exchange(value_, -1));
  }

  [[nodiscard]] int Get() const { return value_; }
  // Whoever takes it closes it.
  [[nodiscard]] int Release() { return std::exchange(value_, -1); }
  [[nodiscard]] explicit operator bool() const { return value_ >= 0; }

 private:
  int value_ = -1;
};

// Calls `call` again for as long as a signal interrupts it, and gives its result.
template <typename Call>
auto RetryInterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace zelorgas
