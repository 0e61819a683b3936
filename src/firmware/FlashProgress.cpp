#include "firmware/FlashProgress.h"

#include <algorithm>

#include "firmware/mbFlasher.h"

namespace zelorgas {

FlashStopwatch::FlashStopwatch(std::span<const std::uint8_t> image, std::size_t page_size,
                               const Clock& clock)
    : image_(image), page_size_(page_size), clock_(clock), start_(clock.Now()) {}

std::size_t FlashStopwatch::PagesSent(std::size_t bytes) const {
  std::size_t pages = 0;
  for (std::size_t first = 0; first < bytes; first += page_size_) {
    const auto page = image_.subspan(first, std::min(page_size_, image_.size() - first));
    if (!mbFlasher::IsBlank(page)) ++pages;
  }
  return pages;
}

FlashProgress FlashStopwatch::At(std::size_t done) const {
  FlashProgress progress{.done = done, .total = image_.size(), .remaining = {}};
  progress.percent = static_cast<unsigned>(done * 100 / image_.size());
  const std::size_t sent = PagesSent(done);
  if (sent > 0) {
    const auto left = static_cast<Clock::Duration::rep>(PagesSent(image_.size()) - sent);
    const Clock::Duration a_page =
        (clock_.Now() - start_) / static_cast<Clock::Duration::rep>(sent);
    progress.remaining = std::chrono::ceil<std::chrono::seconds>(a_page * left);
  }
  return progress;
}

}  // namespace zelorgas
