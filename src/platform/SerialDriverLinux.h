// What a Linux serial driver offers beyond the POSIX terminal interface. Which of it a driver has
// is found out once, when the port is opened; a driver without an ability costs no further calls.
// Used by one thread at a time, as the device is.
#pragma once

#include <cstdint>
#include <optional>

namespace zelorgas {

class SerialDriver {
 public:
  // `fd` is an open terminal and stays the caller's.
  explicit SerialDriver(int fd);

  [[nodiscard]] bool IsPseudoTerminal() const { return pseudo_terminal_; }

  // Keeps other programs away from the port. No more than a courtesy on top of a file lock, because
  // the administrator's programs pass it.
  void SetExclusive(bool exclusive) const;

  // Asks the driver to hand received bytes over at once instead of collecting them for some
  // milliseconds.
  void RequestLowLatency() const;

  // Raises DTR, and RTS unless the driver moves it for its handshake. A port without modem lines is
  // left as it is.
  void RaiseModemLines(bool rts) const;

  // Bytes written and not yet handed to the transmitter; empty when the port is gone.
  [[nodiscard]] std::optional<std::size_t> OutputQueueLength() const;

  // False while the transmitter is known to be still sending.
  [[nodiscard]] bool TransmitterIdle() const;

  // Framing, overrun and parity errors since the driver was started; always 0 where it does not
  // count them.
  [[nodiscard]] std::uint32_t LineErrors() const;

 private:
  int fd_;
  bool pseudo_terminal_ = false;
  bool counts_errors_ = false;
  bool tells_idle_ = false;
};

}  // namespace zelorgas
