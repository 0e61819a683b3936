#include "app/CommWorker.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <span>
#include <vector>

#include "config/BlockTransfer.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPause{10};          // before each exchange of a poll, and while held
constexpr milliseconds kReopenPause{250};   // between looks for an unplugged port
constexpr milliseconds kUnknownPause{50};   // between rounds with an ECU that is not polled
constexpr std::uint8_t kOldestPolled = 36;  // software minor versions of major 0
constexpr std::uint8_t kNewestPolled = 39;
constexpr std::uint8_t kKeepsConnection = 39;  // from here on a lost link needs no full read
constexpr unsigned kFailuresAllowed = 2;
constexpr std::uint16_t kInputBits = 7;
constexpr std::uint16_t kLiveBlockBWords = 16;
constexpr std::uint16_t kExtraChannels = 2 * kCylinders;

bool IsPolled(Version software) {
  return software.major == 0 && software.minor >= kOldestPolled && software.minor <= kNewestPolled;
}

}  // namespace

void CommWorker::Run() {
  while (RunRound()) {
  }
}

bool CommWorker::RunRound() {
  if (!document_.run_) {
    Finish();
    return false;
  }
  if (document_.pause_ || document_.another_ecu_) {
    document_.paused_ = document_.pause_.load();
    document_.clock_.Sleep(kPause);
    return true;
  }
  document_.paused_ = false;
  if (document_.link_.PortLost() && !ReopenLostPort()) return true;
  const bool read_all = !connected_ || (document_.refresh_.IsSet() && MayRefresh());
  if (read_all && !FullRead()) return true;
  if (!document_.pause_ && !document_.another_ecu_) Poll();
  return true;
}

void CommWorker::Finish() {
  document_.paused_ = true;
  document_.Post(CommStatus::kNotConnected);
  // Tells the ECU that nobody listens any more. Without a port there is nothing to tell it through,
  // and another ECU has nobody to miss.
  if (!document_.link_.PortLost() && !document_.another_ecu_) {
    static_cast<void>(document_.link_.WriteSingleCoil(ECU_SLAVE_ADDRESS, kDisconnectCoil, 1));
    static_cast<void>(document_.link_.WriteSingleCoil(ECU_SLAVE_ADDRESS, kDisconnectCoil, 0));
  }
  document_.ClearRestartMarker();
  document_.finished_ = true;
}

bool CommWorker::ReopenLostPort() {
  // Whatever is plugged in again may be another ECU, or this one after a loss of power.
  connected_ = false;
  failures_ = 0;
  if (!document_.link_.Open(0, 0, 255)) {
    document_.clock_.Sleep(kReopenPause);
    return false;
  }
  document_.ClearRestartMarker();
  return true;
}

bool CommWorker::FullRead() {
  if (!connected_) document_.Post(CommStatus::kConnecting);
  const Version software = document_.image_.software;
  if (software.major != 0 || software.minor < kOldestPolled) return true;
  if (software.minor > kNewestPolled) {
    document_.clock_.Sleep(kUnknownPause);
    return false;
  }
  // Reset before it is read: what is asked for meanwhile is asked for anew.
  const bool asked = document_.refresh_.IsSet();
  document_.refresh_.Reset();
  const bool complete = ReadEverything();
  if (!complete && asked) document_.RequestRefresh();
  if (!complete) return !document_.another_ecu_;
  if (!connected_) document_.Post(CommStatus::kLinkUp);
  document_.Post(CommStatus::kFullRead);
  connected_ = true;
  return true;
}

bool CommWorker::ReadEverything() {
  ModbusSerialPort& link = document_.link_;
  // A page that wants the link does not wait for the whole block, and what it writes is not
  // overwritten by what was read before.
  const auto wanted = [this] { return !document_.pause_ && document_.run_; };
  const auto store = [&](std::size_t offset, std::span<const std::uint16_t> words) {
    const std::lock_guard guard(document_.image_lock_);
    if (!wanted()) return;
    std::ranges::copy(words, document_.image_.block.begin() + static_cast<std::ptrdiff_t>(offset));
  };
  if (ReadBlock(link, store, wanted) != ModbusResult::kOk || !wanted()) return false;
  if (ReadStatus() != Answer::kSame) return false;
  std::vector<std::uint8_t> coils;
  if (link.ReadCoils(ECU_SLAVE_ADDRESS, kFirstCoil,
                     static_cast<std::uint16_t>(CoilCount(document_.image_.software.minor)),
                     coils) != ModbusResult::kOk) {
    return false;
  }
  const std::lock_guard guard(document_.image_lock_);
  document_.image_.coils.Store(coils);
  return true;
}

CommWorker::Answer CommWorker::ReadStatus() {
  std::vector<std::uint16_t> status;
  if (document_.link_.ReadInputRegisters(ECU_SLAVE_ADDRESS, kStatusFirstRegister, kStatusWords,
                                         status) != ModbusResult::kOk) {
    return Answer::kNone;
  }
  {
    const std::lock_guard guard(document_.image_lock_);
    if (document_.image_.TakeStatus(status)) return Answer::kSame;
  }
  document_.another_ecu_ = true;
  document_.Post(CommStatus::kAnotherEcu);
  return Answer::kAnother;
}

bool CommWorker::HeldOrPaused() const { return document_.hold_.IsSet() || document_.pause_; }

void CommWorker::Poll() {
  PollFifo();
  if (HeldOrPaused()) return;
  PollBlockA();
  if (HeldOrPaused() || !IsPolled(document_.image_.software)) return;
  if (PollBlockB()) {
    if (!PollBits()) return;
    // A cable that was moved to another car costs a poll at least.
    const Answer answer = failures_ > 0 ? ReadStatus() : Answer::kSame;
    if (answer == Answer::kSame) CountGoodPoll();
    if (answer == Answer::kNone) CountFailedPoll();
  } else if (!document_.hold_.IsSet()) {
    CountFailedPoll();
  }
}

void CommWorker::PollFifo() {
  document_.clock_.Sleep(kPause);
  std::vector<std::uint16_t> registers;
  if (document_.link_.ReadFifoQueue(ECU_SLAVE_ADDRESS, fifo_pointer_, registers) !=
      ModbusResult::kOk) {
    return;
  }
  const std::vector<LiveRecord> records = LiveRecordsFrom(registers);
  if (records.empty()) return;
  fifo_pointer_ = NextFifoPointer(fifo_pointer_, records.size());
  for (const LiveRecord& record : records) document_.live_records_.Push(record);
  const std::lock_guard guard(document_.image_lock_);
  document_.image_.record = records.back();
}

void CommWorker::PollBlockA() {
  document_.clock_.Sleep(kPause);
  std::vector<std::uint16_t> words;
  if (document_.link_.ReadInputRegisters(ECU_SLAVE_ADDRESS, kLiveBlockARegister, 1, words) !=
      ModbusResult::kOk) {
    return;
  }
  const std::lock_guard guard(document_.image_lock_);
  document_.image_.gas_pressure_bar = words[0] / 100.0;
}

bool CommWorker::PollBlockB() {
  ModbusSerialPort& link = document_.link_;
  std::vector<std::uint16_t> words;
  if (link.ReadInputRegisters(ECU_SLAVE_ADDRESS, kLiveBlockBRegister, kLiveBlockBWords, words) !=
      ModbusResult::kOk) {
    return false;
  }
  {
    const std::lock_guard guard(document_.image_lock_);
    std::ranges::copy(words, document_.image_.live_block_b.begin());
  }
  if (document_.extra_channels_ &&
      link.ReadInputRegisters(ECU_SLAVE_ADDRESS, kExtraChannelsRegister, kExtraChannels, words) ==
          ModbusResult::kOk) {
    const std::lock_guard guard(document_.image_lock_);
    for (std::size_t i = 0; i < kCylinders; ++i) {
      document_.image_.petrol_times_ms[i] = words[i] / 1000.0;
      document_.image_.gas_times_ms[i] = words[kCylinders + i] / 1000.0;
    }
  }
  return true;
}

bool CommWorker::PollBits() {
  document_.clock_.Sleep(kPause);
  ModbusSerialPort& link = document_.link_;
  std::vector<std::uint8_t> bits;
  if (link.ReadCoils(ECU_SLAVE_ADDRESS, kFirstCoil,
                     static_cast<std::uint16_t>(CoilCount(document_.image_.software.minor)),
                     bits) != ModbusResult::kOk) {
    return false;
  }
  {
    const std::lock_guard guard(document_.image_lock_);
    document_.image_.coils.Store(bits);
  }
  if (link.ReadDiscreteInputs(ECU_SLAVE_ADDRESS, kFirstInputBit, kInputBits, bits) !=
      ModbusResult::kOk) {
    return false;
  }
  const std::lock_guard guard(document_.image_lock_);
  std::ranges::copy(bits, document_.image_.input_bits.begin());
  return true;
}

void CommWorker::CountGoodPoll() {
  const bool keeps_connection = document_.image_.software.minor >= kKeepsConnection;
  if (connected_ && keeps_connection && failures_ > kFailuresAllowed)
    document_.Post(CommStatus::kLinkUp);
  failures_ = 0;
  document_.Post(CommStatus::kLiveData);
  if (keeps_connection) HandleRestartFlag();
}

void CommWorker::CountFailedPoll() {
  ++failures_;
  if (failures_ <= kFailuresAllowed) return;
  if (document_.image_.software.minor < kKeepsConnection) {
    connected_ = false;
  } else {
    document_.Post(CommStatus::kConnecting);
  }
}

bool CommWorker::MayRefresh() {
  const bool restarts = document_.image_.software.minor >= kKeepsConnection;
  if (restarts && document_.restart_marker_ && !document_.write_back_due_) {
    if (!PollBits()) return false;
    HandleRestartFlag();
  }
  return !document_.write_back_due_ && !document_.another_ecu_;
}

// The ECU raises coil 43 when it has restarted. The first time after connecting that only means
// that it was switched on; later its configuration may be an old one.
void CommWorker::HandleRestartFlag() {
  const bool seen_before = document_.restart_marker_.exchange(true);
  if (document_.image_.coils.Coil(kRestartCoil) != 1) return;
  // What one ECU held is never written into another one.
  if (seen_before && ReadStatus() != Answer::kSame) return;
  const ModbusResult cleared = document_.link_.WriteSingleCoil(ECU_SLAVE_ADDRESS, kRestartCoil, 0);
  // Without a full read there is nothing that could be written back.
  if (cleared == ModbusResult::kOk && seen_before && connected_) {
    document_.write_back_due_ = true;
    document_.Post(CommStatus::kEcuRestarted);
  }
}

}  // namespace zelorgas
