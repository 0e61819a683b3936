// How far a download is, and how long it will still take. Used by the thread that downloads.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/Clock.h"

namespace zelorgas {

struct FlashProgress {
  std::size_t done = 0;   // bytes of the image, blank ones included
  std::size_t total = 0;  // at least 1
  unsigned percent = 0;
  // Nothing until the first page was sent.
  std::optional<std::chrono::seconds> remaining;
};

// Measures the pages of an image as they go out. Blank pages take no time.
class FlashStopwatch {
 public:
  // `image` has at least one byte; it and `clock` outlive the stopwatch.
  FlashStopwatch(std::span<const std::uint8_t> image, std::size_t page_size, const Clock& clock);

  // The first `done` bytes are in the flash now.
  [[nodiscard]] FlashProgress At(std::size_t done) const;

 private:
  // Pages with something to send among those that begin in the first `bytes` bytes.
  [[nodiscard]] std::size_t PagesSent(std::size_t bytes) const;

  const std::span<const std::uint8_t> image_;
  const std::size_t page_size_;
  const Clock& clock_;
  const Clock::TimePoint start_;
};

}  // namespace zelorgas
