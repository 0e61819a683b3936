#include "platform/SerialDriverLinux.h"

#include <linux/serial.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <cerrno>

namespace zelorgas {
namespace {

// Device numbers of pseudo terminals' client sides.
constexpr unsigned kFirstPtyMajor = 136;
constexpr unsigned kLastPtyMajor = 143;

bool IsPty(int fd) {
  struct stat status {};
  if (::fstat(fd, &status) != 0) return false;
  const unsigned number = major(status.st_rdev);
  return number >= kFirstPtyMajor && number <= kLastPtyMajor;
}

}  // namespace

SerialDriver::SerialDriver(int fd) : fd_(fd), pseudo_terminal_(IsPty(fd)) {
  serial_icounter_struct counters{};
  counts_errors_ = ::ioctl(fd_, TIOCGICOUNT, &counters) == 0;
  int status = 0;
  tells_idle_ = ::ioctl(fd_, TIOCSERGETLSR, &status) == 0;
}

void SerialDriver::SetExclusive(bool exclusive) const {
  // On a pseudo terminal the mark outlives the program that set it for as long as the serving side
  // stays open: killed once, never opened again.
  if (!pseudo_terminal_) ::ioctl(fd_, exclusive ? TIOCEXCL : TIOCNXCL);
}

void SerialDriver::RequestLowLatency() const {
  serial_struct settings{};
  if (::ioctl(fd_, TIOCGSERIAL, &settings) != 0) return;
  settings.flags |= ASYNC_LOW_LATENCY;
  ::ioctl(fd_, TIOCSSERIAL, &settings);
}

void SerialDriver::RaiseModemLines(bool rts) const {
  const int lines = TIOCM_DTR | (rts ? TIOCM_RTS : 0);
  ::ioctl(fd_, TIOCMBIS, &lines);
}

std::optional<std::size_t> SerialDriver::OutputQueueLength() const {
  int queued = 0;
  if (::ioctl(fd_, TIOCOUTQ, &queued) == 0) return static_cast<std::size_t>(queued);
  // A driver that cannot tell has no queue worth waiting for.
  if (errno == ENOTTY || errno == EINVAL) return 0;
  return std::nullopt;
}

bool SerialDriver::TransmitterIdle() const {
  int status = 0;
  return !tells_idle_ || ::ioctl(fd_, TIOCSERGETLSR, &status) != 0 || (status & TIOCSER_TEMT) != 0;
}

std::uint32_t SerialDriver::LineErrors() const {
  serial_icounter_struct counters{};
  if (!counts_errors_ || ::ioctl(fd_, TIOCGICOUNT, &counters) != 0) return 0;
  return static_cast<std::uint32_t>(counters.frame) + static_cast<std::uint32_t>(counters.overrun) +
         static_cast<std::uint32_t>(counters.parity);
}

}  // namespace zelorgas
