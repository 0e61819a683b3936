#include "link/ModbusSerialPort.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <utility>

#include "link/AsciiFrame.h"
#include "link/RtuFrame.h"
#include "platform/LineTiming.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

constexpr std::size_t kQueueSize = 1024;  // bytes in the driver's queues and in our buffers
constexpr std::size_t kRtuBufferSize = 512;
constexpr std::size_t kRtuCheckBytes = 2;
constexpr std::size_t kRtuHead = 4;  // read first: enough to know that an answer has begun
constexpr int kEchoLooks = 20;
constexpr milliseconds kLongestRawTimeout = std::chrono::hours(1);
constexpr std::uint8_t kStoredParity = 255;
// An ECU that sends a late answer sends the next one right behind it: what follows an answer within
// this time shows that it was the late one.
constexpr milliseconds kLateAnswerWatch{100};

milliseconds PerBaud(std::uint32_t millibits, std::uint32_t baud) {
  return milliseconds{baud == 0 ? 0 : millibits / baud};
}

}  // namespace

ModbusSerialPort::ModbusSerialPort(SerialOpener opener, Clock& clock)
    : opener_(std::move(opener)), clock_(clock) {
  frame_.reserve(kQueueSize);
  echo_.reserve(kQueueSize);
  answer_.reserve(kQueueSize);
}

ModbusSerialPort::~ModbusSerialPort() { Close(); }

void ModbusSerialPort::SetPortNumber(std::uint8_t number) {
  port_number_ = number;
  port_name_.clear();
}

void ModbusSerialPort::SetInterCharacterTimeout(Milliseconds time_out) {
  if (time_out != Milliseconds{0}) inter_character_timeout_ = time_out;
}

void ModbusSerialPort::SetSliceHook(SerialDevice::SliceHook hook) {
  Lock().SetSliceHook(hook);
  const std::lock_guard guard(Lock());
  slice_hook_ = std::move(hook);
  if (device_) device_->SetSliceHook(slice_hook_);
}

void ModbusSerialPort::SetTraceSink(TraceSink sink) {
  const std::lock_guard guard(Lock());
  trace_ = std::move(sink);
}

void ModbusSerialPort::SetPortLostSink(std::function<void()> sink) {
  const std::lock_guard guard(Lock());
  port_lost_sink_ = std::move(sink);
}

bool ModbusSerialPort::Open(std::uint8_t port, std::uint32_t baud, std::uint8_t parity) {
  const std::lock_guard guard(Lock());
  if (exchanging_) return false;
  CloseDevice();
  std::unique_ptr<SerialDevice> device = OpenDevice(port);
  if (!device) return false;
  // A driver may keep its own queue sizes; ours only have to hold one frame.
  static_cast<void>(device->SetQueueSizes(kQueueSize, kQueueSize));

  LineSettings line = line_;
  if (baud != 0) line.baud = baud;
  if (parity != kStoredParity) line.parity = static_cast<Parity>(parity);
  // Four characters of data bits and sixteen framing bits, in whole milliseconds.
  const Milliseconds needed = PerBaud((line.data_bits * 4U + 16U) * 1000U, line.baud);
  inter_character_timeout_ = std::max(inter_character_timeout_, needed);

  if (port != 0) SetPortNumber(port);
  line_ = line;
  if (!device->SetTimeouts(ModeTimeouts()) || !device->Configure(line_)) return false;
  device->SetSliceHook(slice_hook_);
  device_ = std::move(device);
  open_framing_ = framing_;
  character_time_ = CharacterTime(line_);
  answer_owed_ = false;
  open_ = true;
  lost_ = false;
  return true;
}

std::unique_ptr<SerialDevice> ModbusSerialPort::OpenDevice(std::uint8_t port) const {
  if (port == 0 && !port_name_.empty()) return opener_(port_name_);
  const unsigned number = port != 0 ? port : port_number_;
  if (number == 0) return nullptr;
  const std::string name = "COM" + std::to_string(number);
  if (std::unique_ptr<SerialDevice> device = opener_(name)) return device;
  // The form that ports from COM10 up need.
  return opener_("\\\\.\\" + name);
}

PortTimeouts ModbusSerialPort::ModeTimeouts() const {
  PortTimeouts timeouts;
  if (framing_ == FramingMode::kAscii) {
    timeouts.read_interval = PortTimeouts::kReturnAtOnce;
    return timeouts;
  }
  const auto inter_character = static_cast<std::uint32_t>(inter_character_timeout_.count());
  const auto response = static_cast<std::uint32_t>(response_timeout_.count());
  const Milliseconds per_character = PerBaud((line_.data_bits + 4U) * 1000U, line_.baud);
  timeouts.read_interval = inter_character;
  timeouts.read_total_multiplier =
      std::max<std::uint32_t>(1, static_cast<std::uint32_t>(per_character.count()));
  timeouts.read_total_constant = response;
  timeouts.write_total_multiplier = inter_character;
  timeouts.write_total_constant = response;
  return timeouts;
}

bool ModbusSerialPort::Close() {
  const std::lock_guard guard(Lock());
  if (exchanging_) {
    close_after_exchange_ = true;
    return false;
  }
  CloseDevice();
  lost_ = false;
  return true;
}

void ModbusSerialPort::CloseDevice() {
  open_ = false;
  device_.reset();
}

ModbusResult ModbusSerialPort::Exchange(std::span<const std::uint8_t> request,
                                        std::span<std::uint8_t> response,
                                        std::size_t expected_length, std::size_t& received_length) {
  const std::lock_guard guard(Lock());
  received_length = 0;
  if (exchanging_) return ModbusResult::kLockTimeOut;
  exchanging_ = true;
  answer_.clear();
  ModbusResult result = ModbusResult::kPortNotOpen;
  if (device_) {
    result = open_framing_ == FramingMode::kAscii
                 ? ExchangeAscii(request, response, received_length)
                 : ExchangeRtu(request, response, expected_length, received_length);
    if (result == ModbusResult::kOk && answer_owed_) {
      if (MoreFollows(expected_length)) {
        result = ModbusResult::kInvalidResponse;
      } else {
        answer_owed_ = false;
      }
    } else if (result != ModbusResult::kOk && !IsException(result)) {
      // Whatever came, noise or an echo once more, the ECU's own answer may still be to come.
      answer_owed_ = true;
    }
    if (trace_) trace_({FrameTrace::Direction::kReceived, clock_.Now(), answer_, result});
  }
  if (result != ModbusResult::kOk) {
    NoticeLostPort();
    PauseAfterFailure();
  }
  EndExchange();
  return result;
}

void ModbusSerialPort::EndExchange() {
  exchanging_ = false;
  if (std::exchange(close_after_exchange_, false)) Close();
}

// Sends frame_. What was sent before the write's end is not taken back: the purge that starts the
// next exchange clears the line.
bool ModbusSerialPort::WriteFrame() {
  sent_by_ = clock_.Now() + character_time_ * frame_.size();
  if (trace_) trace_({FrameTrace::Direction::kSent, clock_.Now(), frame_});
  if (!device_->Write(frame_)) {
    device_->ClearError();
    return false;
  }
  StartStopwatch();
  return device_->OutputQueueLength() == std::size_t{0};
}

ModbusResult ModbusSerialPort::ExchangeAscii(std::span<const std::uint8_t> request,
                                             std::span<std::uint8_t> response,
                                             std::size_t& received_length) {
  EncodeAsciiFrame(request, frame_);
  device_->Purge(PurgeScope::kBoth);
  device_->Purge(PurgeScope::kReceive);
  if (!WriteFrame()) return ModbusResult::kWriteError;
  ModbusResult result = ReadEcho();
  if (result == ModbusResult::kOk) result = ReadAsciiAnswer();
  StopStopwatch();
  if (result != ModbusResult::kOk) return result;
  // A second echo has a good check too. Only a single write is answered by its own request.
  const bool single_write =
      request.size() > 1 &&
      (request[1] == static_cast<std::uint8_t>(ModbusFunction::kWriteSingleCoil) ||
       request[1] == static_cast<std::uint8_t>(ModbusFunction::kWriteSingleRegister));
  if (answer_ == frame_ && !single_write) return ModbusResult::kInvalidResponse;
  return DecodeAsciiFrame(answer_, response, received_length);
}

ModbusResult ModbusSerialPort::ReadEcho() {
  // Where the driver does not say when the last character is out, the echo has the frame's own time
  // on the wire before the looks are counted.
  if (const Clock::Duration left = sent_by_ - clock_.Now(); left > Clock::Duration{0}) {
    device_->WaitForInput(frame_.size(), left);
  }
  for (int look = 1;; ++look) {
    const std::optional<std::size_t> queued = device_->InputQueueLength();
    if (!queued) return ReadFailure();
    if (*queued >= frame_.size()) break;
    if (look == kEchoLooks) return ModbusResult::kTimeOut;
    if (slice_hook_) slice_hook_();
    if (!device_->WaitForInput(frame_.size(), SerialDevice::kWaitSlice) && DeviceGone()) {
      return ReadFailure();
    }
  }
  echo_.resize(frame_.size());
  if (device_->Read(echo_) != echo_.size()) return ReadFailure();
  return echo_ == frame_ ? ModbusResult::kOk : ModbusResult::kReadError;
}

// Collects answer_ up to its LF.
ModbusResult ModbusSerialPort::ReadAsciiAnswer() {
  if (!AppendQueued()) return ReadFailure();
  if (answer_.empty() || answer_.back() != '\n') {
    // An error that came with the echo has not hurt it, nor says anything about the answer.
    device_->ClearError();
    const LineEvent event = device_->WaitForEvent(end_timeout_);
    if (event == LineEvent::kLineError || event == LineEvent::kFailed) return ReadFailure();
    // After a time-out what is there is taken as it stands; its check decides.
    if (!AppendQueued()) return ReadFailure();
  }
  return answer_.empty() ? ModbusResult::kTimeOut : ModbusResult::kOk;
}

bool ModbusSerialPort::AppendQueued() {
  const std::size_t before = answer_.size();
  answer_.resize(before + kQueueSize);
  const std::optional<std::size_t> count = device_->Read(std::span(answer_).subspan(before));
  answer_.resize(before + count.value_or(0));
  return count.has_value();
}

ModbusResult ModbusSerialPort::ReadFailure() {
  device_->ClearError();
  return ModbusResult::kReadError;
}

ModbusResult ModbusSerialPort::ExchangeRtu(std::span<const std::uint8_t> request,
                                           std::span<std::uint8_t> response,
                                           std::size_t expected_length,
                                           std::size_t& received_length) {
  EncodeRtuFrame(request, frame_);
  device_->Purge(PurgeScope::kBoth);
  if (!WriteFrame()) return ModbusResult::kWriteError;
  answer_.assign(kRtuBufferSize, 0);
  const std::optional<std::size_t> received = ReadRtuAnswer();
  StopStopwatch();
  const ModbusResult result =
      !received ? ReadFailure()
      : received.value() == 0
          ? ModbusResult::kTimeOut
          : DecodeRtuFrame(answer_, *received, expected_length, response, received_length);
  answer_.resize(received.value_or(0));
  return result;
}

std::optional<std::size_t> ModbusSerialPort::ReadRtuAnswer() {
  const std::span<std::uint8_t> buffer(answer_);
  const std::optional<std::size_t> head = device_->Read(buffer.first(kRtuHead));
  if (head != kRtuHead) return DeviceGone() ? std::nullopt : head;
  // The rest ends when the line is quiet for the inter-character time-out.
  const std::optional<std::size_t> rest = device_->Read(buffer.subspan(kRtuHead));
  if (!rest || DeviceGone()) return std::nullopt;
  return kRtuHead + *rest;
}

ModbusResult ModbusSerialPort::RawExchange(std::span<const std::uint8_t> bytes,
                                           std::size_t expected, Milliseconds time_out,
                                           std::vector<std::uint8_t>& received) {
  const std::lock_guard guard(Lock());
  received.clear();
  if (exchanging_) return ModbusResult::kLockTimeOut;
  if (!device_) return ModbusResult::kPortNotOpen;
  const std::optional<PortTimeouts> kept = device_->Timeouts();
  if (!kept) return ModbusResult::kPortNotOpen;
  exchanging_ = true;
  device_->Purge(PurgeScope::kBoth);
  ModbusResult result = RawTransfer(bytes, expected, time_out, received);
  if (!device_->SetTimeouts(*kept)) result = ModbusResult::kPortNotOpen;
  EndExchange();
  return result;
}

// The body of RawExchange between keeping and restoring the port's time-outs.
ModbusResult ModbusSerialPort::RawTransfer(std::span<const std::uint8_t> bytes,
                                           std::size_t expected, Milliseconds time_out,
                                           std::vector<std::uint8_t>& received) {
  if (!device_->Write(bytes)) {
    device_->ClearError();
    return ModbusResult::kWriteError;
  }
  const Clock::TimePoint deadline = clock_.Now() + std::min(time_out, kLongestRawTimeout);
  while (received.size() < expected) {
    const auto left = std::chrono::ceil<Milliseconds>(deadline - clock_.Now());
    PortTimeouts byte_timeouts;
    byte_timeouts.read_total_constant =
        static_cast<std::uint32_t>(std::max<Milliseconds::rep>(left.count(), 0));
    if (byte_timeouts.read_total_constant == 0) return ModbusResult::kTimeOut;
    if (!device_->SetTimeouts(byte_timeouts)) return ReadFailure();
    std::array<std::uint8_t, 1> byte{};
    const std::optional<std::size_t> count = device_->Read(byte);
    if (!count) return ReadFailure();
    if (*count == 1) received.push_back(byte[0]);
  }
  return ModbusResult::kOk;
}

// Whether something comes behind the answer that has just been read.
bool ModbusSerialPort::MoreFollows(std::size_t expected_length) {
  if (open_framing_ == FramingMode::kRtu && answer_.size() > expected_length + kRtuCheckBytes) {
    return true;
  }
  const Clock::TimePoint end = clock_.Now() + kLateAnswerWatch;
  while (clock_.Now() < end) {
    if (device_->WaitForInput(1, SerialDevice::kWaitSlice)) return true;
    if (DeviceGone()) return false;
    if (slice_hook_) slice_hook_();
  }
  return false;
}

double ModbusSerialPort::LastTransactionSeconds() const {
  const std::lock_guard guard(Lock());
  return std::chrono::duration<double>(transaction_time_).count();
}

void ModbusSerialPort::NoticeLostPort() {
  if (!device_ || lost_ || !DeviceGone()) return;
  lost_ = true;
  if (port_lost_sink_) port_lost_sink_();
}

// Gives the line and the ECU time to settle, in slices that keep the calling thread's window alive.
void ModbusSerialPort::PauseAfterFailure() {
  const Clock::TimePoint end = clock_.Now() + end_timeout_;
  while (clock_.Now() < end) {
    clock_.SleepUntil(std::min(end, clock_.Now() + SerialDevice::kWaitSlice));
    if (slice_hook_) slice_hook_();
  }
}

}  // namespace zelorgas
