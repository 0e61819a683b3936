#include "sim/SimulatedLine.h"

#include <algorithm>
#include <utility>

#include "link/AsciiFrame.h"
#include "link/RtuFrame.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;
using Frame = std::vector<std::uint8_t>;

constexpr std::size_t kLongestFrame = 600;
constexpr std::size_t kCrcBytes = 2;
constexpr std::uint32_t kDefaultBaud = 19200;
// Silence within an ASCII frame that gives it up.
constexpr std::chrono::seconds kAsciiSilence{1};

// The length of an RTU request with its CRC, as far as its first bytes tell; 0 when they do not.
std::size_t RtuRequestLength(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < 2) return 0;
  switch (static_cast<ModbusFunction>(bytes[1])) {
    case ModbusFunction::kWriteMultipleRegisters:
      return bytes.size() < 7 ? 0 : 7U + bytes[6] + kCrcBytes;
    case ModbusFunction::kReadFifoQueue:
      return 4 + kCrcBytes;
    case ModbusFunction::kEncapsulatedInterface:
      return 5 + kCrcBytes;
    default:
      return 6 + kCrcBytes;
  }
}

// Flips something that the master checks, keeping a normal function byte.
void SpoilUnit(Frame& unit, FaultKind kind) {
  if (kind == FaultKind::kWrongUnit) unit[0] ^= 0x01U;
  if (kind == FaultKind::kWrongFunction) unit[1] ^= 0x40U;
  // Writes repeat address and value, an identification its MEI type; a read repeats no more than
  // its function.
  if (kind == FaultKind::kWrongEcho) unit[unit[1] <= 4 || unit[1] == 24 ? 0 : 2] ^= 0x01U;
  if (kind == FaultKind::kShortAnswer && unit.size() > 2) unit.pop_back();
}

void SpoilFrame(Frame& frame, const Fault& fault, bool ascii) {
  switch (fault.kind) {
    case FaultKind::kBadCheck: {
      std::uint8_t& digit = frame[frame.size() - (ascii ? 3 : 1)];
      digit = static_cast<std::uint8_t>(!ascii ? digit ^ 0x01U : digit == '0' ? '1' : '0');
      break;
    }
    case FaultKind::kCorrupt:
      frame[fault.parameter / 8 % frame.size()] ^=
          static_cast<std::uint8_t>(1U << (fault.parameter % 8));
      break;
    case FaultKind::kTruncate:
    case FaultKind::kPowerLoss:
    case FaultKind::kUnplug:
      frame.resize(std::min<std::size_t>(fault.parameter, frame.size()));
      break;
    case FaultKind::kDuplicate: {
      const Frame once = frame;
      frame.insert(frame.end(), once.begin(), once.end());
      break;
    }
    case FaultKind::kNoiseBefore:
      frame.insert(frame.begin(), {0x55, 0x2A, 0x7F});
      break;
    case FaultKind::kNoiseAfter:
      frame.insert(frame.end(), {0x55, 0x2A, 0x7F});
      break;
    default:
      break;
  }
}

}  // namespace

SimulatedLine::SimulatedLine(SimulatedEcu& ecu, Clock& clock, SimulatedLineOptions options)
    : ecu_(ecu),
      clock_(clock),
      options_(options),
      character_time_(Clock::Duration(std::chrono::seconds(10)) /
                      (options.baud != 0 ? options.baud : kDefaultBaud)),
      character_(options.paced ? character_time_ : Clock::Duration{0}),
      faults_(options.seed),
      noise_(static_cast<std::minstd_rand::result_type>(options.seed)) {}

Clock::TimePoint SimulatedLine::Transmit(std::span<const std::uint8_t> bytes) {
  const std::lock_guard guard(lock_);
  transmit_free_ = std::max(transmit_free_, clock_.Now());
  for (const std::uint8_t byte : bytes) {
    if (!plugged_) break;
    transmit_free_ += character_;
    TakeByte(byte, transmit_free_);
  }
  return transmit_free_;
}

Clock::Duration SimulatedLine::TransmitBacklog() const {
  const std::lock_guard guard(lock_);
  return std::max(transmit_free_ - clock_.Now(), Clock::Duration{0});
}

void SimulatedLine::TakeByte(std::uint8_t byte, Clock::TimePoint when) {
  const bool ascii = !request_.empty() && request_.front() == ':';
  // A frame is given up by silence, 3.5 characters long in RTU (and one more, as both times are a
  // character's end); an ASCII frame also by a new colon.
  const Clock::Duration silence = when - last_byte_;
  if (silence > (ascii ? kAsciiSilence : character_time_ * 9 / 2) || (ascii && byte == ':')) {
    request_.clear();
  }
  // Between two frames only what can begin one counts.
  const bool begins = byte == ':' || byte == ECU_SLAVE_ADDRESS;
  if (request_.empty() && !begins) {
    if (options_.echo) Send(std::span(&byte, 1), when - character_);
    return;
  }
  if (request_.empty()) BeginRequest();
  request_.push_back(byte);
  last_byte_ = when;
  Echo(byte, when);
  if (request_.front() == ':') {
    if (byte == '\n') FrameComplete(when);
  } else if (request_.size() == RtuRequestLength(request_)) {
    FrameComplete(when);
  }
  if (request_.size() > kLongestFrame) request_.clear();
}

void SimulatedLine::BeginRequest() {
  fault_ = faults_.ForRequest(++requests_);
  if (fault_) ++fault_count_;
}

void SimulatedLine::Echo(std::uint8_t byte, Clock::TimePoint when) {
  if (!options_.echo || FaultIs(FaultKind::kNoEcho)) return;
  const std::size_t position = request_.size() - 1;
  if (FaultIs(FaultKind::kPartialEcho) && position == 0) return;
  if (FaultIs(FaultKind::kCorruptEcho) && position == 4) byte ^= 0x01U;
  Send(std::span(&byte, 1), when - character_);
}

void SimulatedLine::FrameComplete(Clock::TimePoint when) {
  const Frame frame = std::exchange(request_, {});
  const bool ascii = frame.front() == ':';
  Frame unit(frame.size());
  std::size_t length = 0;
  const ModbusResult check =
      ascii ? DecodeAsciiFrame(frame, unit, length)
            : DecodeRtuFrame(frame, frame.size(), frame.size() - kCrcBytes, unit, length);
  unit.resize(length);
  // A frame whose check fails was spoilt on the way: no answer.
  const Frame answer = check == ModbusResult::kOk ? Serve(unit, ascii, when) : Frame{};
  if (FaultIs(FaultKind::kUnplug)) unplug_when_quiet_ = true;
  if (report_) report_({requests_, when, frame, answer, fault_});
}

Frame SimulatedLine::Serve(std::span<const std::uint8_t> unit, bool ascii, Clock::TimePoint when) {
  // Faults of the answer are no business of a unit that the ECU does not answer.
  if (unit.empty() || unit[0] != ECU_SLAVE_ADDRESS) return {};
  std::optional<Frame> answer = AnswerUnit(unit, when);
  if (FaultIs(FaultKind::kEndlessNoise)) SendNoise(when, milliseconds{fault_->parameter});
  if (!answer) return {};
  if (fault_) SpoilUnit(*answer, fault_->kind);
  Frame frame;
  ascii ? EncodeAsciiFrame(*answer, frame) : EncodeRtuFrame(*answer, frame);
  if (fault_) SpoilFrame(frame, *fault_, ascii);
  const milliseconds delay{FaultIs(FaultKind::kDelay) ? fault_->parameter : 0};
  const Clock::TimePoint from = std::max(when + options_.answer_delay + delay, receive_free_);
  receive_free_ = from + character_ * frame.size();
  Send(frame, from, !ascii);
  return frame;
}

std::optional<Frame> SimulatedLine::AnswerUnit(std::span<const std::uint8_t> unit,
                                               Clock::TimePoint when) {
  if (FaultIs(FaultKind::kSilent)) silent_until_ = when + milliseconds{fault_->parameter};
  if (when < silent_until_ || FaultIs(FaultKind::kDropRequest)) return std::nullopt;
  if (FaultIs(FaultKind::kPowerLoss) && fault_->parameter == 0) {
    ecu_.LosePower();
    return std::nullopt;
  }
  if (FaultIs(FaultKind::kRestart)) {
    ecu_.Restart();
    return std::nullopt;
  }
  if (FaultIs(FaultKind::kException) && unit.size() >= 2) {
    return Frame{unit[0], static_cast<std::uint8_t>(unit[1] | 0x80U),
                 static_cast<std::uint8_t>(fault_->parameter)};
  }
  std::optional<Frame> answer = ecu_.AnswerAt(unit, when);
  if (FaultIs(FaultKind::kPowerLoss)) ecu_.LosePower();
  if (FaultIs(FaultKind::kDropAnswer) || FaultIs(FaultKind::kEndlessNoise)) return std::nullopt;
  return answer;
}

// Characters one after the other from `from` on. What was sent earlier but arrives later (a delayed
// answer) keeps its own time.
void SimulatedLine::Send(std::span<const std::uint8_t> frame, Clock::TimePoint from, bool joined) {
  Arrival arrival{.when = from};
  for (std::size_t i = 0; i < frame.size(); ++i) {
    arrival.when += character_;
    arrival.byte = frame[i];
    arrival.joined = joined && i + 1 < frame.size();
    if (arrivals_.empty() || arrivals_.back().when <= arrival.when) {
      arrivals_.push_back(arrival);
      continue;
    }
    arrivals_.insert(std::ranges::upper_bound(arrivals_, arrival.when, {}, &Arrival::when),
                     arrival);
  }
}

void SimulatedLine::SendNoise(Clock::TimePoint from, milliseconds duration) {
  for (Clock::TimePoint when = from; when < from + duration; when += character_time_) {
    const auto byte = static_cast<std::uint8_t>(noise_() % 128);
    Send(std::span(&byte, 1), when);
  }
}

std::size_t SimulatedLine::Collect(std::vector<std::uint8_t>& received) {
  const std::lock_guard guard(lock_);
  const Clock::TimePoint now = clock_.Now();
  std::size_t count = 0;
  while (!arrivals_.empty() && arrivals_.front().when <= now) {
    received.push_back(arrivals_.front().byte);
    arrivals_.pop_front();
    ++count;
  }
  if (arrivals_.empty() && std::exchange(unplug_when_quiet_, false)) plugged_ = false;
  return count;
}

std::optional<Clock::TimePoint> SimulatedLine::NextArrival() const {
  const std::lock_guard guard(lock_);
  if (arrivals_.empty()) return std::nullopt;
  return arrivals_.front().when;
}

std::optional<Clock::TimePoint> SimulatedLine::LastArrivalWithin(Clock::Duration window) const {
  const std::lock_guard guard(lock_);
  if (arrivals_.empty()) return std::nullopt;
  const Clock::TimePoint limit = arrivals_.front().when + window;
  auto last = std::prev(std::ranges::upper_bound(arrivals_, limit, {}, &Arrival::when));
  while (last->joined && std::next(last) != arrivals_.end()) ++last;
  return last->when;
}

void SimulatedLine::SetPlugged(bool plugged) {
  const std::lock_guard guard(lock_);
  plugged_ = plugged;
  unplug_when_quiet_ = false;
  arrivals_.clear();
  request_.clear();
}

bool SimulatedLine::Plugged() const {
  const std::lock_guard guard(lock_);
  return plugged_;
}

void SimulatedLine::WithFaults(const std::function<void(LineFaults&)>& change) {
  const std::lock_guard guard(lock_);
  change(faults_);
}

void SimulatedLine::ArmFault(Fault fault, std::uint64_t ahead) {
  const std::lock_guard guard(lock_);
  faults_.At(requests_ + ahead, fault);
}

std::uint64_t SimulatedLine::RequestCount() const {
  const std::lock_guard guard(lock_);
  return requests_;
}

std::uint64_t SimulatedLine::FaultCount() const {
  const std::lock_guard guard(lock_);
  return fault_count_;
}

void SimulatedLine::SetReportSink(ReportSink sink) {
  const std::lock_guard guard(lock_);
  report_ = std::move(sink);
}

}  // namespace zelorgas
