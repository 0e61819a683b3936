#include "platform/OverlappedWin32.h"

#include <algorithm>

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

// After a wake-up without an event. Some drivers do not know the event character and end the wait
// at once; without the pause the reader would spin.
constexpr milliseconds kIdlePause{2};

}  // namespace

// ERROR_NO_SUCH_DEVICE, which mingw-w64's headers lack.
constexpr DWORD kErrorNoSuchDevice = 433;

bool MeansUnplugged(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_ACCESS_DENIED:
    case ERROR_INVALID_HANDLE:
    case ERROR_BAD_UNIT:
    case ERROR_NOT_READY:
    case ERROR_BAD_COMMAND:
    case ERROR_GEN_FAILURE:
    case ERROR_DEV_NOT_EXIST:
    case kErrorNoSuchDevice:
    case ERROR_IO_DEVICE:
    case ERROR_DEVICE_NOT_CONNECTED:
    case ERROR_DEVICE_REMOVED:
    case ERROR_DEVICE_NOT_AVAILABLE:
      return true;
    default:
      return false;
  }
}

OverlappedCall::OverlappedCall() : event_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

OVERLAPPED* OverlappedCall::Start() {
  record_ = OVERLAPPED{};
  record_.hEvent = event_.Get();
  ::ResetEvent(event_.Get());
  return &record_;
}

bool OverlappedCall::Wait(Clock::Duration limit) const {
  const auto whole = std::chrono::ceil<milliseconds>(std::max(limit, Clock::Duration{0}));
  return ::WaitForSingleObject(event_.Get(), static_cast<DWORD>(whole.count())) != WAIT_TIMEOUT;
}

bool OverlappedCall::Settle(HANDLE port, bool cancel, DWORD& count) {
  if (cancel) ::CancelIoEx(port, &record_);
  count = 0;
  if (::GetOverlappedResult(port, &record_, &count, TRUE) != FALSE) return true;
  // The end of the port's own time-outs is no failure, though not every system reports it as
  // success.
  return ::GetLastError() == ERROR_TIMEOUT;
}

PortEventWait::PortEventWait(HANDLE port, OverlappedCall& call, DWORD mask, Clock& clock)
    : port_(port), call_(call), mask_(mask), clock_(clock) {
  armed_ = ::GetCommMask(port_, &previous_mask_) != FALSE && ::SetCommMask(port_, mask_) != FALSE;
}

PortEventWait::~PortEventWait() {
  // A change of the mask ends a pending wait, also with a driver that cannot cancel it.
  if (armed_) ::SetCommMask(port_, previous_mask_);
  DWORD unused = 0;
  if (pending_) call_.Settle(port_, true, unused);
}

std::optional<DWORD> PortEventWait::Wait(Clock::Duration limit) {
  if (!armed_) return std::nullopt;
  if (!pending_) {
    events_ = 0;
    if (::WaitCommEvent(port_, &events_, call_.Start()) != FALSE) return Came(events_);
    if (::GetLastError() != ERROR_IO_PENDING) return std::nullopt;
    pending_ = true;
  }
  if (!call_.Wait(limit)) return DWORD{0};
  pending_ = false;
  DWORD unused = 0;
  if (call_.Settle(port_, false, unused)) return Came(events_);
  // Cancelled, though not by us: a driver that cannot wait for these events says it this way. If
  // the port is gone the next look at it tells.
  if (::GetLastError() == ERROR_OPERATION_ABORTED) return Came(0);
  return std::nullopt;
}

std::optional<DWORD> PortEventWait::Came(DWORD events) {
  if ((events & mask_) == 0) clock_.Sleep(kIdlePause);
  return events & mask_;
}

}  // namespace zelorgas
