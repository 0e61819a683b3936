// One open serial port, as the transport needs it: line settings, purge, write, queue lengths,
// read, and the wait for the last character of a frame. The operations keep the meaning of the
// serial driver model they were first written for (driver queues, read intervals, an event
// character), so that the transport above is the same program on every system.
//
// A device is used by one thread at a time; the transport's lock sees to that. Every wait inside an
// operation is cut into slices of at most kWaitSlice, and the slice hook runs between two slices: a
// caller on the user-interface thread keeps its window alive there.
//
// After the port has been unplugged every operation fails at once and goes on failing until the
// device is destroyed; nothing spins.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "platform/Clock.h"

namespace zelorgas {

enum class Parity : std::uint8_t { kNone = 0, kOdd = 1, kEven = 2, kMark = 3, kSpace = 4 };
enum class StopBits : std::uint8_t { kOne = 0, kOneAndHalf = 1, kTwo = 2 };

// Flow-control flags of LineSettings::flow_control.
inline constexpr std::uint8_t kFlowDsrDtr = 1U << 0U;
inline constexpr std::uint8_t kFlowCtsRts = 1U << 1U;
inline constexpr std::uint8_t kFlowXonXoff = 1U << 2U;

struct LineSettings {
  std::uint32_t baud = 9600;
  std::uint8_t data_bits = 8;
  Parity parity = Parity::kNone;
  StopBits stop_bits = StopBits::kOne;
  std::uint8_t flow_control = 0;
  // The character that raises LineEvent::kEventCharacter: LF, the end of an ASCII frame.
  char event_character = '\n';
};

// How long Read and Write may take, in milliseconds, by the rules of the Win32 COMMTIMEOUTS record:
// a read of n bytes ends after read_total_multiplier * n + read_total_constant, or when the line
// has been quiet for read_interval after a byte; a read interval of kReturnAtOnce with both totals
// 0 means "return what is queued". A field of 0 switches its rule off.
struct PortTimeouts {
  static constexpr std::uint32_t kReturnAtOnce = 0xFFFFFFFF;

  std::uint32_t read_interval = 0;
  std::uint32_t read_total_multiplier = 0;
  std::uint32_t read_total_constant = 0;
  std::uint32_t write_total_multiplier = 0;
  std::uint32_t write_total_constant = 0;

  [[nodiscard]] bool ReadReturnsAtOnce() const {
    return read_interval == kReturnAtOnce && read_total_multiplier == 0 && read_total_constant == 0;
  }

  friend bool operator==(const PortTimeouts&, const PortTimeouts&) = default;
};

enum class PurgeScope : std::uint8_t { kBoth, kReceive };

enum class LineEvent : std::uint8_t {
  kEventCharacter,  // the event character has arrived and is queued
  kLineError,       // framing, overrun or parity error; ClearError resets it
  kTimeout,         // neither came in time
  kFailed,          // the port is gone
};

class SerialDevice {
 public:
  using SliceHook = std::function<void()>;
  static constexpr std::chrono::milliseconds kWaitSlice{10};

  SerialDevice() = default;
  SerialDevice(const SerialDevice&) = delete;
  SerialDevice& operator=(const SerialDevice&) = delete;
  // Cancels what is pending and closes the port.
  virtual ~SerialDevice() = default;

  // `hook` runs between the slices of every later wait, on the waiting thread. Empty: none.
  virtual void SetSliceHook(SliceHook hook) = 0;

  // Asks the driver for queues of these sizes in bytes; a driver may give others. False: refused.
  [[nodiscard]] virtual bool SetQueueSizes(std::size_t in, std::size_t out) = 0;

  // Applies the line settings. False when the port does not take them.
  [[nodiscard]] virtual bool Configure(const LineSettings& settings) = 0;

  // Empty when the port cannot be asked (it is gone).
  [[nodiscard]] virtual std::optional<PortTimeouts> Timeouts() const = 0;
  [[nodiscard]] virtual bool SetTimeouts(const PortTimeouts& timeouts) = 0;

  // Aborts what is pending and drops what is queued.
  virtual void Purge(PurgeScope scope) = 0;

  // Hands all of `bytes` to the line and waits until they are sent, at most their wire time and the
  // write time-outs (a second when these are 0). False: an error, a time-out, or the port is gone.
  [[nodiscard]] virtual bool Write(std::span<const std::uint8_t> bytes) = 0;

  // Bytes written and not yet sent; bytes received and not yet read. Empty: the port is gone.
  [[nodiscard]] virtual std::optional<std::size_t> OutputQueueLength() = 0;
  [[nodiscard]] virtual std::optional<std::size_t> InputQueueLength() = 0;

  // Waits until at least `count` bytes are queued for reading, at most `timeout`; true if they are.
  virtual bool WaitForInput(std::size_t count, Clock::Duration timeout) = 0;

  // Reads up to `into.size()` bytes under the port's time-outs. Gives the number read (0: nothing
  // came in time), or empty when the read failed.
  [[nodiscard]] virtual std::optional<std::size_t> Read(std::span<std::uint8_t> into) = 0;

  // Waits for the event character or a line error among the bytes not yet read, at most `timeout`.
  [[nodiscard]] virtual LineEvent WaitForEvent(Clock::Duration timeout) = 0;

  // Reads and resets the driver's error state, so that the next exchange starts clean.
  virtual void ClearError() = 0;
};

// Opens an existing port by its name, for this program alone. Null when it does not exist, is in
// use or cannot be opened. "COM3" (or "\\.\COM10") on Windows, the device's path elsewhere.
using SerialOpener = std::function<std::unique_ptr<SerialDevice>(const std::string& name)>;

// The system's serial ports. `clock` times every wait of their devices and must outlive these. The
// system waits in real time, so it is the steady clock or one that keeps its pace.
[[nodiscard]] SerialOpener SystemSerialPorts(Clock& clock);

}  // namespace zelorgas
