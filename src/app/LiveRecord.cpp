#include "app/LiveRecord.h"

namespace zelorgas {

std::vector<LiveRecord> LiveRecordsFrom(std::span<const std::uint16_t> registers) {
  std::vector<LiveRecord> records(registers.size() / kLiveRecordRegisters);
  for (std::size_t r = 0; r < records.size(); ++r) {
    for (std::size_t i = 0; i < kLiveRecordRegisters; ++i) {
      const std::uint16_t word = registers[r * kLiveRecordRegisters + i];
      records[r].bytes[2 * i] = static_cast<std::uint8_t>(word & 0xFFU);
      records[r].bytes[2 * i + 1] = static_cast<std::uint8_t>(word >> 8U);
    }
  }
  return records;
}

std::uint16_t NextFifoPointer(std::uint16_t pointer, std::size_t records) {
  return static_cast<std::uint16_t>((pointer + records) % kLiveFifoPointers);
}

void LiveRecordQueue::Push(const LiveRecord& record) {
  const std::lock_guard guard(lock_);
  if (records_.size() == kCapacity) records_.pop_front();
  records_.push_back(record);
}

std::vector<LiveRecord> LiveRecordQueue::TakeAll() {
  const std::lock_guard guard(lock_);
  std::vector<LiveRecord> taken(records_.begin(), records_.end());
  records_.clear();
  return taken;
}

}  // namespace zelorgas
