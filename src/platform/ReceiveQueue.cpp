#include "platform/ReceiveQueue.h"

#include <algorithm>

namespace zelorgas {

std::size_t ReceiveQueue::Take(std::span<std::uint8_t> into) {
  const std::size_t count = std::min(into.size(), Size());
  const auto first = bytes_.begin() + static_cast<std::ptrdiff_t>(read_position_);
  std::copy_n(first, count, into.begin());
  read_position_ += count;
  if (read_position_ == bytes_.size()) {
    Clear();
  } else if (read_position_ >= kCapacity) {
    // A reader that never catches up with the line must not make the buffer grow.
    bytes_.erase(bytes_.begin(), bytes_.begin() + static_cast<std::ptrdiff_t>(read_position_));
    read_position_ = 0;
  }
  return count;
}

bool ReceiveQueue::Contains(std::uint8_t character, std::size_t skip) const {
  const auto first = bytes_.begin() + static_cast<std::ptrdiff_t>(read_position_ + skip);
  return std::find(first, bytes_.end(), character) != bytes_.end();
}

void ReceiveQueue::Clear() {
  bytes_.clear();
  read_position_ = 0;
}

}  // namespace zelorgas
