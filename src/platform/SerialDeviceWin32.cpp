#include <windows.h>

#include <algorithm>

#include "platform/ControlBlockWin32.h"
#include "platform/LineTiming.h"
#include "platform/OverlappedWin32.h"
#include "platform/ReceiveQueue.h"
#include "platform/SerialDevice.h"
#include "platform/WideText.h"
#include "platform/Win32Handle.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

constexpr DWORD kLineErrors = CE_FRAME | CE_OVERRUN | CE_RXPARITY | CE_RXOVER;
// Between two looks at an output queue that is nearly empty.
constexpr milliseconds kShortestPause{1};
// What a driver may take longer for a read than its time-outs allow.
constexpr milliseconds kReadGrace{1000};

// Asked at once: whatever runs in between may set another error.
DWORD ErrorOf(BOOL succeeded) { return succeeded != FALSE ? ERROR_SUCCESS : ::GetLastError(); }

class Win32SerialDevice final : public SerialDevice {
 public:
  Win32SerialDevice(Win32Handle port, Clock& clock) : clock_(clock), port_(std::move(port)) {}
  ~Win32SerialDevice() override { ::PurgeComm(port_.Get(), kPurgeSend | kPurgeReceive); }

  void SetSliceHook(SliceHook hook) override { hook_ = std::move(hook); }
  bool SetQueueSizes(std::size_t in, std::size_t out) override;
  bool Configure(const LineSettings& settings) override;
  std::optional<PortTimeouts> Timeouts() const override;
  bool SetTimeouts(const PortTimeouts& timeouts) override;
  void Purge(PurgeScope scope) override;
  bool Write(std::span<const std::uint8_t> bytes) override;
  std::optional<std::size_t> OutputQueueLength() override;
  std::optional<std::size_t> InputQueueLength() override;
  bool WaitForInput(std::size_t count, Clock::Duration timeout) override;
  std::optional<std::size_t> Read(std::span<std::uint8_t> into) override;
  LineEvent WaitForEvent(Clock::Duration timeout) override;
  void ClearError() override;

 private:
  static constexpr DWORD kPurgeSend = PURGE_TXABORT | PURGE_TXCLEAR;
  static constexpr DWORD kPurgeReceive = PURGE_RXABORT | PURGE_RXCLEAR;

  // Keeps in mind that the port is gone if that is why a call has failed. Always false.
  bool Fail(DWORD error);
  // The driver's queue lengths. Reading them resets the driver's errors, so these are kept here.
  [[nodiscard]] std::optional<COMSTAT> Look();
  // Moves what the driver has queued into queue_, where it can be searched. False: the port failed.
  [[nodiscard]] bool Collect();
  // Ends a read or write whose call gave `error`: it is done, has failed, or is waited for in
  // slices.
  [[nodiscard]] bool Finish(DWORD error, Clock::TimePoint deadline, DWORD& count);
  [[nodiscard]] bool Drain(Clock::TimePoint deadline);
  [[nodiscard]] bool WaitSlice(PortEventWait& events, Clock::TimePoint deadline);
  void RunSliceHook() const {
    if (hook_) hook_();
  }

  Clock& clock_;
  SliceHook hook_;
  Win32Handle port_;
  OverlappedCall transfer_;
  OverlappedCall event_;
  PortTimeouts timeouts_;
  Clock::Duration character_time_{0};
  std::uint8_t event_character_ = '\n';
  ReceiveQueue queue_;
  Clock::TimePoint slice_end_{};
  bool line_error_ = false;
  bool gone_ = false;
};

bool Win32SerialDevice::Fail(DWORD error) {
  gone_ = gone_ || MeansUnplugged(error);
  return false;
}

bool Win32SerialDevice::SetQueueSizes(std::size_t in, std::size_t out) {
  if (gone_) return false;
  if (::SetupComm(port_.Get(), static_cast<DWORD>(in), static_cast<DWORD>(out)) != FALSE) {
    return true;
  }
  return Fail(::GetLastError());
}

bool Win32SerialDevice::Configure(const LineSettings& settings) {
  if (gone_) return false;
  DCB block = MakeControlBlock(settings);
  if (::SetCommState(port_.Get(), &block) == FALSE) {
    // A driver that keeps only a part of the settings may refuse to be asked again for what it has
    // already. Coming from another character there is something to change.
    DCB other = block;
    other.ByteSize = 8;
    other.Parity = NOPARITY;
    other.StopBits = block.StopBits == ONESTOPBIT ? TWOSTOPBITS : ONESTOPBIT;
    ::SetCommState(port_.Get(), &other);
    if (::SetCommState(port_.Get(), &block) == FALSE) return Fail(::GetLastError());
  }
  character_time_ = CharacterTime(settings);
  event_character_ = static_cast<std::uint8_t>(settings.event_character);
  return true;
}

std::optional<PortTimeouts> Win32SerialDevice::Timeouts() const {
  COMMTIMEOUTS record{};
  if (gone_ || ::GetCommTimeouts(port_.Get(), &record) == FALSE) return std::nullopt;
  return FromCommTimeouts(record);
}

bool Win32SerialDevice::SetTimeouts(const PortTimeouts& timeouts) {
  if (gone_) return false;
  COMMTIMEOUTS record = ToCommTimeouts(timeouts);
  if (::SetCommTimeouts(port_.Get(), &record) == FALSE) return Fail(::GetLastError());
  timeouts_ = timeouts;
  return true;
}

void Win32SerialDevice::Purge(PurgeScope scope) {
  queue_.Clear();
  if (gone_) return;
  const DWORD send = scope == PurgeScope::kBoth ? kPurgeSend : 0;
  if (::PurgeComm(port_.Get(), send | kPurgeReceive) == FALSE) Fail(::GetLastError());
  ClearError();
}

void Win32SerialDevice::ClearError() {
  static_cast<void>(Look());
  line_error_ = false;
}

std::optional<COMSTAT> Win32SerialDevice::Look() {
  if (gone_) return std::nullopt;
  DWORD errors = 0;
  COMSTAT status{};
  if (::ClearCommError(port_.Get(), &errors, &status) == FALSE) {
    Fail(::GetLastError());
    return std::nullopt;
  }
  if ((errors & kLineErrors) != 0) line_error_ = true;
  return status;
}

bool Win32SerialDevice::Finish(DWORD error, Clock::TimePoint deadline, DWORD& count) {
  if (error != ERROR_SUCCESS && error != ERROR_IO_PENDING) return Fail(error);
  bool done = error == ERROR_SUCCESS;
  Clock::TimePoint now = clock_.Now();
  while (!done && now < deadline) {
    done = transfer_.Wait(std::min<Clock::Duration>(kWaitSlice, deadline - now));
    if (!done) RunSliceHook();
    now = clock_.Now();
  }
  return transfer_.Settle(port_.Get(), !done, count) || Fail(::GetLastError());
}

bool Win32SerialDevice::Write(std::span<const std::uint8_t> bytes) {
  if (gone_) return false;
  const auto wire_time = character_time_ * static_cast<Clock::Duration::rep>(bytes.size());
  const Clock::TimePoint deadline = clock_.Now() + WriteLimit(timeouts_, bytes.size(), wire_time);
  const auto size = static_cast<DWORD>(bytes.size());
  DWORD count = 0;
  const DWORD error =
      ErrorOf(::WriteFile(port_.Get(), bytes.data(), size, nullptr, transfer_.Start()));
  if (Finish(error, deadline, count) && count == size && Drain(deadline)) return true;
  // The rest must not go out later, in front of another frame.
  if (!gone_) ::PurgeComm(port_.Get(), kPurgeSend);
  return false;
}

// A driver that keeps its own copy of the bytes ends the write before they are sent.
bool Win32SerialDevice::Drain(Clock::TimePoint deadline) {
  while (true) {
    const std::optional<std::size_t> queued = OutputQueueLength();
    if (!queued || *queued == 0) return queued.has_value();
    const Clock::TimePoint now = clock_.Now();
    if (now >= deadline) return false;
    const Clock::Duration left = character_time_ * static_cast<Clock::Duration::rep>(*queued);
    clock_.SleepUntil(
        std::min(deadline, now + std::clamp<Clock::Duration>(left, kShortestPause, kWaitSlice)));
    RunSliceHook();
  }
}

std::optional<std::size_t> Win32SerialDevice::OutputQueueLength() {
  const std::optional<COMSTAT> status = Look();
  if (!status) return std::nullopt;
  return status->cbOutQue;
}

std::optional<std::size_t> Win32SerialDevice::InputQueueLength() {
  const std::optional<COMSTAT> status = Look();
  // What came before the plug was pulled can still be read.
  if (!status && queue_.Size() == 0) return std::nullopt;
  return queue_.Size() + (status ? status->cbInQue : 0);
}

bool Win32SerialDevice::WaitSlice(PortEventWait& events, Clock::TimePoint deadline) {
  const std::optional<DWORD> came = events.Wait(std::min(deadline, slice_end_) - clock_.Now());
  if (!came) {
    Fail(::GetLastError());
    if (gone_) return false;
    // A driver that cannot wait for events can still be looked at now and then.
    clock_.SleepUntil(std::min(deadline, slice_end_));
  }
  if (came && (*came & EV_ERR) != 0) line_error_ = true;
  // By time, not by "nothing came": on a busy line something comes in every slice.
  if (clock_.Now() >= slice_end_) {
    RunSliceHook();
    slice_end_ = clock_.Now() + kWaitSlice;
  }
  return true;
}

bool Win32SerialDevice::WaitForInput(std::size_t count, Clock::Duration timeout) {
  const Clock::TimePoint deadline = clock_.Now() + timeout;
  slice_end_ = clock_.Now() + kWaitSlice;
  if (InputQueueLength().value_or(0) >= count) return true;
  PortEventWait events(port_.Get(), event_, EV_RXCHAR, clock_);
  while (true) {
    // Also the first time: the bytes may have come before the mask was set.
    const std::optional<std::size_t> queued = InputQueueLength();
    if (!queued || *queued >= count) return queued.has_value();
    if (gone_ || clock_.Now() >= deadline || !WaitSlice(events, deadline)) return false;
  }
}

std::optional<std::size_t> Win32SerialDevice::Read(std::span<std::uint8_t> into) {
  const std::size_t kept = queue_.Take(into);
  into = into.subspan(kept);
  bool good = !gone_;
  if (good && timeouts_.ReadReturnsAtOnce()) {
    // Not every driver ends a read at once that asks for more than is there.
    const std::optional<COMSTAT> status = Look();
    good = status.has_value();
    into = into.first(std::min<std::size_t>(into.size(), good ? status->cbInQue : 0));
  }
  DWORD count = 0;
  if (good && !into.empty()) {
    // The driver ends the read by the port's time-outs.
    // The bound is for one that does not.
    const Clock::Duration total =
        TotalLimit(timeouts_.read_total_multiplier, timeouts_.read_total_constant, into.size());
    const Clock::TimePoint deadline =
        total > Clock::Duration{0} ? clock_.Now() + total + kReadGrace : Clock::TimePoint::max();
    const DWORD error = ErrorOf(::ReadFile(
        port_.Get(), into.data(), static_cast<DWORD>(into.size()), nullptr, transfer_.Start()));
    good = Finish(error, deadline, count);
  }
  if (!good && kept == 0) return std::nullopt;
  return kept + count;
}

bool Win32SerialDevice::Collect() {
  const std::optional<COMSTAT> status = Look();
  if (!status) return false;
  if (queue_.Full()) line_error_ = true;
  if (status->cbInQue == 0 || queue_.Full()) return true;
  std::vector<std::uint8_t>& tail = queue_.Tail();
  const std::size_t before = tail.size();
  tail.resize(before + status->cbInQue);
  DWORD count = 0;
  // No more than is there, so that no time-out comes into it.
  const DWORD error = ErrorOf(
      ::ReadFile(port_.Get(), tail.data() + before, status->cbInQue, nullptr, transfer_.Start()));
  const bool good = Finish(error, clock_.Now() + kWaitSlice, count);
  tail.resize(before + count);
  return good;
}

LineEvent Win32SerialDevice::WaitForEvent(Clock::Duration timeout) {
  const Clock::TimePoint deadline = clock_.Now() + timeout;
  slice_end_ = clock_.Now() + kWaitSlice;
  if (queue_.Contains(event_character_, 0)) return LineEvent::kEventCharacter;
  std::size_t scanned = queue_.Size();
  PortEventWait events(port_.Get(), event_, EV_RXFLAG | EV_ERR, clock_);
  while (true) {
    // The character may have come before the mask was set, and not every driver tells of it: the
    // queue decides, the event only says when to look.
    const bool good = Collect();
    if (queue_.Contains(event_character_, scanned)) return LineEvent::kEventCharacter;
    scanned = queue_.Size();
    if (line_error_) return LineEvent::kLineError;
    if (!good) return LineEvent::kFailed;
    if (clock_.Now() >= deadline) return LineEvent::kTimeout;
    if (!WaitSlice(events, deadline)) return LineEvent::kFailed;
  }
}

std::unique_ptr<SerialDevice> OpenPort(const std::string& name, Clock& clock) {
  Win32Handle port(::CreateFileW(ToWide(name).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr));
  // A name may be that of a file, or of a device that is no serial port.
  DCB block{};
  block.DCBlength = sizeof(block);
  if (!port || ::GetCommState(port.Get(), &block) == FALSE) return nullptr;
  return std::make_unique<Win32SerialDevice>(std::move(port), clock);
}

}  // namespace

SerialOpener SystemSerialPorts(Clock& clock) {
  return [&clock](const std::string& name) { return OpenPort(name, clock); };
}

}  // namespace zelorgas
