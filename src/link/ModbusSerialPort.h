// The serial transport of the ECU link: one exchange of a request and its response over a
// half-duplex line that gives the PC its own transmission back.
//
// In ASCII mode (the mode in use) every request is first read back as an echo and compared with
// what was sent; only then is the response read, up to its LF. In RTU mode there is no echo.
//
// Open, Close, Exchange, RawExchange and LastTransactionSeconds run under the link lock, so any
// thread may call them. Settings take effect at the next Open and are set while no exchange runs.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "link/ModbusMaster.h"
#include "platform/Clock.h"
#include "platform/SerialDevice.h"

namespace zelorgas {

enum class FramingMode : std::uint16_t { kRtu = 0, kAscii = 1 };

// What one frame on the wire looked like; for logs.
struct FrameTrace {
  enum class Direction : std::uint8_t { kSent, kReceived };
  Direction direction;
  Clock::TimePoint time;
  std::span<const std::uint8_t> frame;      // valid during the call only
  ModbusResult result = ModbusResult::kOk;  // of the exchange; for kReceived
};

class ModbusSerialPort : public ModbusMaster {
 public:
  using Milliseconds = std::chrono::milliseconds;
  using TraceSink = std::function<void(const FrameTrace&)>;

  // `opener` opens a port by its name; `clock` times the waits. It and what the opener refers to
  // outlive the port.
  ModbusSerialPort(SerialOpener opener, Clock& clock);
  ~ModbusSerialPort() override;

  // Opens the port and applies the line settings. `port` 0 means the stored port, `baud` 0 the
  // stored baud rate, `parity` 255 the stored parity; what was given is stored. False when there is
  // no port to open, it is in use, or it does not take the settings: the port is then closed.
  [[nodiscard]] bool Open(std::uint8_t port, std::uint32_t baud, std::uint8_t parity);
  // True when the port is closed, also when it was not open. From a slice hook, inside an exchange,
  // the port is closed when that exchange ends: false.
  bool Close();
  [[nodiscard]] bool IsOpen() const { return open_; }

  // Result kPortNotOpen when closed, and otherwise:
  //   kWriteError      the request could not be written, or was still queued after the write
  //   kTimeOut         no complete echo after 20 looks, or no answer at all within the end time-out
  //   kReadError       the echo differs from the request, a read failed, the line had an error, or
  //                    the port was unplugged
  //   kCrcError        the answer's check does not match
  //   0x8000 + code    the ECU's exception
  //   kInvalidResponse after an exchange without an answer: two answers came, and one of them must
  //                    be the late one
  //   kLockTimeOut     called from a slice hook, inside another exchange: nothing was sent
  // After every other result but kOk the failure pause passes before the lock is released.
  ModbusResult Exchange(std::span<const std::uint8_t> request, std::span<std::uint8_t> response,
                        std::size_t expected_length, std::size_t& received_length) override;

  // Writes `bytes` as they are, then reads until `expected` bytes have come or `time_out` has
  // passed; `received` is what came. kPortNotOpen when closed or when the port's time-outs cannot
  // be read or restored; kTimeOut when fewer bytes came. No echo is taken away, no check is made,
  // no pause follows.
  ModbusResult RawExchange(std::span<const std::uint8_t> bytes, std::size_t expected,
                           Milliseconds time_out, std::vector<std::uint8_t>& received);

  [[nodiscard]] double LastTransactionSeconds() const override;

  // COM port number, 1 for COM1; 0 is no port. Drops a stored port name.
  void SetPortNumber(std::uint8_t number);
  [[nodiscard]] std::uint8_t PortNumber() const { return port_number_; }
  // A port that is opened by its name instead of a number: a device's path.
  void SetPortName(std::string name) { port_name_ = std::move(name); }
  [[nodiscard]] const std::string& PortName() const { return port_name_; }
  void SetBaudRate(std::uint32_t baud) { line_.baud = baud; }
  [[nodiscard]] std::uint32_t BaudRate() const { return line_.baud; }
  void SetDataBits(std::uint8_t bits) { line_.data_bits = bits; }
  [[nodiscard]] std::uint8_t DataBits() const { return line_.data_bits; }
  void SetParity(Parity parity) { line_.parity = parity; }
  [[nodiscard]] Parity LineParity() const { return line_.parity; }
  void SetStopBits(StopBits bits) { line_.stop_bits = bits; }
  [[nodiscard]] StopBits LineStopBits() const { return line_.stop_bits; }
  // Bits kFlowDsrDtr, kFlowCtsRts, kFlowXonXoff.
  void SetFlowControl(std::uint8_t flags) { line_.flow_control = flags; }
  [[nodiscard]] std::uint8_t FlowControl() const { return line_.flow_control; }
  void SetFraming(FramingMode mode) { framing_ = mode; }
  [[nodiscard]] FramingMode Framing() const { return framing_; }
  // RTU: how long the answer's first byte may take.
  void SetResponseTimeout(Milliseconds time_out) { response_timeout_ = time_out; }
  [[nodiscard]] Milliseconds ResponseTimeout() const { return response_timeout_; }
  // A time-out of 0 is ignored. Open raises the value to what the line settings need, never lowers
  // it.
  void SetInterCharacterTimeout(Milliseconds time_out);
  [[nodiscard]] Milliseconds InterCharacterTimeout() const { return inter_character_timeout_; }
  // ASCII: how long the answer's LF may take. Also the failure pause.
  void SetEndTimeout(Milliseconds time_out) { end_timeout_ = time_out; }
  [[nodiscard]] Milliseconds EndTimeout() const { return end_timeout_; }

  // Runs on the exchanging thread between the slices of every wait, at least every 10 ms, also
  // while it waits for another thread's exchange; for dispatching window messages. It must not
  // start an exchange. Set before the port is shared between threads.
  void SetSliceHook(SerialDevice::SliceHook hook);
  // Sees every frame sent and received, under the lock.
  void SetTraceSink(TraceSink sink);
  // Runs once when an exchange finds the open port unplugged, before its failure pause, under the
  // lock.
  void SetPortLostSink(std::function<void()> sink);
  // True from then on, until the port is opened again with success, or closed.
  [[nodiscard]] bool PortLost() const { return lost_; }

 private:
  void CloseDevice();
  [[nodiscard]] std::unique_ptr<SerialDevice> OpenDevice(std::uint8_t port) const;
  [[nodiscard]] PortTimeouts ModeTimeouts() const;
  [[nodiscard]] bool WriteFrame();
  ModbusResult ExchangeAscii(std::span<const std::uint8_t> request,
                             std::span<std::uint8_t> response, std::size_t& received_length);
  ModbusResult ReadEcho();
  ModbusResult ReadAsciiAnswer();
  [[nodiscard]] bool AppendQueued();
  ModbusResult ExchangeRtu(std::span<const std::uint8_t> request, std::span<std::uint8_t> response,
                           std::size_t expected_length, std::size_t& received_length);
  [[nodiscard]] std::optional<std::size_t> ReadRtuAnswer();
  ModbusResult RawTransfer(std::span<const std::uint8_t> bytes, std::size_t expected,
                           Milliseconds time_out, std::vector<std::uint8_t>& received);
  ModbusResult ReadFailure();
  [[nodiscard]] bool DeviceGone() { return !device_->OutputQueueLength(); }
  void EndExchange();
  [[nodiscard]] bool MoreFollows(std::size_t expected_length);
  void NoticeLostPort();
  void PauseAfterFailure();
  void StartStopwatch() { transaction_start_ = clock_.Now(); }
  void StopStopwatch() { transaction_time_ = clock_.Now() - transaction_start_; }

  const SerialOpener opener_;
  Clock& clock_;
  SerialDevice::SliceHook slice_hook_;
  TraceSink trace_;
  std::function<void()> port_lost_sink_;

  std::string port_name_;
  std::uint8_t port_number_ = 2;
  LineSettings line_;
  FramingMode framing_ = FramingMode::kRtu;
  Milliseconds response_timeout_{1000};
  Milliseconds inter_character_timeout_{0};
  Milliseconds end_timeout_{1000};

  // Guarded by the link lock.
  std::unique_ptr<SerialDevice> device_;
  FramingMode open_framing_ = FramingMode::kRtu;  // of the open port, as is character_time_
  Clock::Duration character_time_{0};
  bool exchanging_ = false;
  bool close_after_exchange_ = false;
  bool answer_owed_ = false;  // to a request that was given up: it may come while another waits
  std::atomic<bool> open_{false};
  std::atomic<bool> lost_{false};
  std::vector<std::uint8_t> frame_;  // what is sent
  std::vector<std::uint8_t> echo_;   // what came back of it
  std::vector<std::uint8_t> answer_;
  Clock::TimePoint sent_by_{};  // when frame_ is out at the line's pace
  Clock::TimePoint transaction_start_{};
  Clock::Duration transaction_time_{0};
};

}  // namespace zelorgas
