// The bytes that a serial device has taken from its driver and nobody has read yet. Used by one
// thread at a time, as the device is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zelorgas {

class ReceiveQueue {
 public:
  // A device stops taking bytes from its driver here: no frame is nearly as long, so whoever sends
  // this much without being read sends noise.
  static constexpr std::size_t kCapacity = 16384;

  [[nodiscard]] std::size_t Size() const { return bytes_.size() - read_position_; }
  [[nodiscard]] bool Full() const { return Size() >= kCapacity; }

  // For appending received bytes at its end; what is there must stay as it is.
  [[nodiscard]] std::vector<std::uint8_t>& Tail() { return bytes_; }

  // Moves up to `into.size()` bytes out of the queue and gives their number.
  std::size_t Take(std::span<std::uint8_t> into);

  // True when `character` is among the bytes not yet read, the first `skip` of them left out.
  [[nodiscard]] bool Contains(std::uint8_t character, std::size_t skip) const;

  void Clear();

 private:
  std::vector<std::uint8_t> bytes_;
  std::size_t read_position_ = 0;
};

}  // namespace zelorgas
