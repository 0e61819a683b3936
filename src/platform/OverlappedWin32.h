// Overlapped calls on a Windows serial port: one read or write at a time, and the wait for a port
// event. Used by one thread at a time, as the device is.
#pragma once

#include <windows.h>

#include <optional>

#include "platform/Clock.h"
#include "platform/SerialDevice.h"
#include "platform/Win32Handle.h"

namespace zelorgas {

// The error that a failed call left means that the port is no longer there.
[[nodiscard]] bool MeansUnplugged(DWORD error);

// A pending call's record and the event that ends it.
class OverlappedCall {
 public:
  OverlappedCall();
  OverlappedCall(const OverlappedCall&) = delete;
  OverlappedCall& operator=(const OverlappedCall&) = delete;

  // A fresh record for the next call.
  [[nodiscard]] OVERLAPPED* Start();

  // Waits for the call's end, at most `limit`; false when it is still pending.
  [[nodiscard]] bool Wait(Clock::Duration limit) const;

  // Ends a pending call if it has not ended, and waits for it to be over: only then may the record
  // be used again. Gives whether it had succeeded, with the bytes moved in `count`; a call that the
  // port's time-outs have ended has.
  bool Settle(HANDLE port, bool cancel, DWORD& count);

 private:
  Win32Handle event_;
  OVERLAPPED record_{};
};

// Waits for the port events of `mask` and restores the mask that was set before.
class PortEventWait {
 public:
  // `call` outlives the wait.
  PortEventWait(HANDLE port, OverlappedCall& call, DWORD mask, Clock& clock);
  PortEventWait(const PortEventWait&) = delete;
  PortEventWait& operator=(const PortEventWait&) = delete;
  ~PortEventWait();

  // The events that came, waiting at most `limit`. 0: none, or the driver woke for nothing; in both
  // cases look at the queue and wait on. Empty: the port has failed.
  [[nodiscard]] std::optional<DWORD> Wait(Clock::Duration limit);

 private:
  [[nodiscard]] std::optional<DWORD> Came(DWORD events);

  HANDLE port_;
  OverlappedCall& call_;
  DWORD mask_;
  Clock& clock_;
  DWORD previous_mask_ = 0;
  DWORD events_ = 0;
  bool armed_ = false;
  bool pending_ = false;
};

}  // namespace zelorgas
