#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <termios.h>

#include <algorithm>
#include <array>
#include <ctime>

#include "platform/FileDescriptor.h"
#include "platform/LineTiming.h"
#include "platform/PolledSerialDevice.h"
#include "platform/SerialDriverLinux.h"
#include "platform/TermiosSettings.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kReadSize = 4096;
// Between two looks at an output queue that is nearly empty.
constexpr milliseconds kShortestPause{1};

// The one place that says what a failed read or write means: try again later, or never.
bool MeansLater(int error) { return error == EAGAIN || error == EWOULDBLOCK || error == EINTR; }

class PosixSerialDevice final : public PolledSerialDevice {
 public:
  PosixSerialDevice(FileDescriptor file, Clock& clock)
      : PolledSerialDevice(clock), file_(std::move(file)), driver_(file_.Get()) {
    driver_.SetExclusive(true);
    driver_.RequestLowLatency();
    line_errors_ = driver_.LineErrors();
  }
  // What is still queued to be sent is dropped: closing would wait for it.
  ~PosixSerialDevice() override {
    ::tcflush(file_.Get(), TCIOFLUSH);
    driver_.SetExclusive(false);
  }

  bool SetQueueSizes(std::size_t in, std::size_t out) override;
  bool Configure(const LineSettings& settings) override;
  void Purge(PurgeScope scope) override;
  bool Write(std::span<const std::uint8_t> bytes) override;
  std::optional<std::size_t> OutputQueueLength() override;

 protected:
  Arrival Receive(std::vector<std::uint8_t>& received, Clock::TimePoint deadline) override;

 private:
  [[nodiscard]] bool Transmit(std::span<const std::uint8_t> bytes, Clock::TimePoint deadline);
  [[nodiscard]] bool Drain(Clock::TimePoint deadline);
  // Waits until `events` come, at most `duration`. Gives what poll gave, with errors that come
  // unasked: an interrupted wait is one in which nothing came.
  [[nodiscard]] short Poll(short events, Clock::Duration duration) const;
  // One slice of a write's waits. False when the time is over or the port has gone.
  [[nodiscard]] bool WaitWriteSlice(short events, Clock::Duration most, Clock::TimePoint deadline);

  FileDescriptor file_;
  SerialDriver driver_;
  Clock::Duration character_time_{0};
  std::uint32_t line_errors_ = 0;
};

bool PosixSerialDevice::SetQueueSizes(std::size_t /*in*/, std::size_t /*out*/) {
  // A terminal driver's queues have their own, larger size.
  return !Gone();
}

bool PosixSerialDevice::Configure(const LineSettings& settings) {
  if (Gone()) return false;
  termios present{};
  if (::tcgetattr(file_.Get(), &present) != 0) return false;
  const std::optional<termios> wanted = WithLineSettings(present, settings);
  if (!wanted) return false;
  // The answer is not looked at. It is success when a part of the request was met, and a refusal
  // when a pseudo terminal that never keeps 7 bits is asked for them again. What the driver says
  // afterwards counts.
  static_cast<void>(RetryInterrupted([&] { return ::tcsetattr(file_.Get(), TCSANOW, &*wanted); }));
  termios actual{};
  if (::tcgetattr(file_.Get(), &actual) != 0) return false;
  if (!IsSameLine(*wanted, actual, driver_.IsPseudoTerminal())) return false;
  driver_.RaiseModemLines((settings.flow_control & kFlowCtsRts) == 0);
  character_time_ = CharacterTime(settings);
  SetEventCharacter(settings.event_character);
  return true;
}

void PosixSerialDevice::Purge(PurgeScope scope) {
  if (!Gone()) ::tcflush(file_.Get(), scope == PurgeScope::kReceive ? TCIFLUSH : TCIOFLUSH);
  DropReceived();
  line_errors_ = driver_.LineErrors();
}

bool PosixSerialDevice::Write(std::span<const std::uint8_t> bytes) {
  if (Gone()) return false;
  const auto count = static_cast<Clock::Duration::rep>(bytes.size());
  const Clock::TimePoint deadline = WriteDeadline(bytes.size(), character_time_ * count);
  if (Transmit(bytes, deadline) && Drain(deadline)) return true;
  // The rest must not go out later, in front of another frame.
  ::tcflush(file_.Get(), TCOFLUSH);
  return false;
}

bool PosixSerialDevice::Transmit(std::span<const std::uint8_t> bytes, Clock::TimePoint deadline) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file_.Get(), bytes.data(), bytes.size());
    if (count > 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(count));
    } else if (count < 0 && !MeansLater(errno)) {
      MarkGone();
      return false;
    } else if (!WaitWriteSlice(POLLOUT, kWaitSlice, deadline)) {
      return false;
    }
  }
  return true;
}

bool PosixSerialDevice::Drain(Clock::TimePoint deadline) {
  // What a pseudo terminal has taken is at its far end already.
  if (driver_.IsPseudoTerminal()) return true;
  while (true) {
    const std::optional<std::size_t> queued = OutputQueueLength();
    if (!queued) return false;
    if (*queued == 0 && driver_.TransmitterIdle()) break;
    // No event tells when the queue is empty; its length tells how long that takes at least.
    const Clock::Duration left = character_time_ * static_cast<Clock::Duration::rep>(*queued);
    if (!WaitWriteSlice(0, std::max<Clock::Duration>(left, kShortestPause), deadline)) return false;
  }
  // What the hardware still holds, on a driver that cannot be asked: a few characters.
  if (RetryInterrupted([&] { return ::tcdrain(file_.Get()); }) == 0) return true;
  MarkGone();
  return false;
}

bool PosixSerialDevice::WaitWriteSlice(short events, Clock::Duration most,
                                       Clock::TimePoint deadline) {
  const Clock::Duration left = deadline - DeviceClock().Now();
  if (left <= Clock::Duration{0}) return false;
  const short came = Poll(events, std::min({left, most, Clock::Duration{kWaitSlice}}));
  if ((came & (POLLERR | POLLHUP | POLLNVAL)) != 0) {
    MarkGone();
    return false;
  }
  RunSliceHook();
  return true;
}

std::optional<std::size_t> PosixSerialDevice::OutputQueueLength() {
  if (Gone()) return std::nullopt;
  const std::optional<std::size_t> queued = driver_.OutputQueueLength();
  if (!queued) MarkGone();
  return queued;
}

short PosixSerialDevice::Poll(short events, Clock::Duration duration) const {
  const auto whole = std::chrono::floor<std::chrono::seconds>(duration);
  const timespec limit{.tv_sec = whole.count(), .tv_nsec = (duration - whole).count()};
  pollfd entry{.fd = file_.Get(), .events = events, .revents = 0};
  return ::ppoll(&entry, 1, &limit, nullptr) > 0 ? entry.revents : short{0};
}

PolledSerialDevice::Arrival PosixSerialDevice::Receive(std::vector<std::uint8_t>& received,
                                                       Clock::TimePoint deadline) {
  short came = 0;
  const Clock::Duration wait = deadline - DeviceClock().Now();
  if (wait > Clock::Duration{0}) {
    came = Poll(POLLIN, wait);
    if (came == 0) return Arrival::kNothing;
  }
  std::array<std::uint8_t, kReadSize> bytes{};
  const ssize_t count = ::read(file_.Get(), bytes.data(), bytes.size());
  // Nothing to read on a line that is in error means that none will ever come; waiting on would
  // return at once for ever.
  const bool broken = (came & (POLLERR | POLLHUP | POLLNVAL)) != 0;
  if (count == 0 || (count < 0 && (broken || !MeansLater(errno)))) return Arrival::kGone;
  if (count > 0) received.insert(received.end(), bytes.data(), bytes.data() + count);
  const std::uint32_t errors = driver_.LineErrors();
  if (std::exchange(line_errors_, errors) != errors) return Arrival::kLineError;
  return count > 0 ? Arrival::kBytes : Arrival::kNothing;
}

std::unique_ptr<SerialDevice> OpenPort(const std::string& name, Clock& clock) {
  FileDescriptor file(RetryInterrupted(
      [&] { return ::open(name.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC); }));
  if (!file || ::isatty(file.Get()) == 0) return nullptr;
  if (RetryInterrupted([&] { return ::flock(file.Get(), LOCK_EX | LOCK_NB); }) != 0) return nullptr;
  return std::make_unique<PosixSerialDevice>(std::move(file), clock);
}

}  // namespace

SerialOpener SystemSerialPorts(Clock& clock) {
  return [&clock](const std::string& name) { return OpenPort(name, clock); };
}

}  // namespace zelorgas
