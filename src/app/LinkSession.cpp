#include "app/LinkSession.h"

#include <algorithm>
#include <vector>

namespace zelorgas {
namespace {

// The longest chain that a worker round can still have ahead of it when it is asked to pause: a
// request that fails in its echo or its answer, with the failure pause, and the same again for what
// follows. Past this the link lock keeps the two apart all the same.
constexpr std::chrono::seconds kIdleLimit{10};

}  // namespace

MoreAttempts::MoreAttempts(ModbusMaster& master) : master_(master), before_(master.AttemptCount()) {
  master.SetAttemptCount(std::max(before_, kAttempts));
}

LinkSession::LinkSession(ClpgecuDoc& document, Wait wait)
    : document_(document), turn_(document, wait), attempts_(document.Link()) {}

LinkSession::Turn::Turn(ClpgecuDoc& document, Wait wait) : document_(document) {
  document_.PauseWorker(true);
  if (wait != Wait::kGrace) WaitUntilIdle();
  if (wait != Wait::kIdle) document_.SleepSliced(kGracePeriod);
  // As a rule the grace is longer than the exchange that the worker was in; after one that fails
  // and pauses it is not.
  if (wait == Wait::kGrace) WaitUntilIdle();
  document_.ImageLock();
}

LinkSession::Turn::~Turn() {
  document_.ImageUnlock();
  document_.PauseWorker(false);
}

ModbusResult LinkSession::CheckEcu(bool& same) {
  // An old ECU has no serial number, and less to say.
  constexpr std::uint16_t kVersionWords = 2;
  const std::uint16_t count = Image().serial ? kStatusWords : kVersionWords;
  std::vector<std::uint16_t> words;
  const ModbusResult result =
      Link().ReadInputRegisters(ECU_SLAVE_ADDRESS, kStatusFirstRegister, count, words);
  if (result == ModbusResult::kOk) same = Image().TakeStatus(words);
  return result;
}

ModbusResult LinkSession::WriteRegister(std::uint16_t reg, std::uint16_t value) {
  if (document_.AnotherEcu()) return ModbusResult::kLockTimeOut;
  const ModbusResult result = Link().WriteSingleRegister(ECU_SLAVE_ADDRESS, reg, value);
  if (result == ModbusResult::kOk) Image().StoreRegister(reg, value);
  return result;
}

ModbusResult LinkSession::WriteRegisters(std::uint16_t first,
                                         std::span<const std::uint16_t> values) {
  if (document_.AnotherEcu()) return ModbusResult::kLockTimeOut;
  const ModbusResult result = Link().WriteMultipleRegisters(ECU_SLAVE_ADDRESS, first, values);
  if (result != ModbusResult::kOk) return result;
  for (std::size_t i = 0; i < values.size(); ++i) {
    Image().StoreRegister(static_cast<std::uint16_t>(first + i), values[i]);
  }
  return result;
}

ModbusResult LinkSession::ReadRegister(std::uint16_t reg, std::uint16_t& value) {
  std::vector<std::uint16_t> words;
  const ModbusResult result = Link().ReadHoldingRegisters(ECU_SLAVE_ADDRESS, reg, 1, words);
  if (result != ModbusResult::kOk) return result;
  value = words.front();
  Image().StoreRegister(reg, value);
  return result;
}

void LinkSession::Turn::WaitUntilIdle() {
  const Clock::TimePoint limit = document_.DocumentClock().Now() + kIdleLimit;
  while (!document_.WorkerIdle() && document_.DocumentClock().Now() < limit) {
    document_.SleepSliced(SerialDevice::kWaitSlice);
  }
}

}  // namespace zelorgas
