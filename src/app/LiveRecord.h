// One record of the ECU's live FIFO: eight bytes, a new one about every 100 ms.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <span>
#include <vector>

namespace zelorgas {

inline constexpr std::size_t kLiveRecordRegisters = 4;
inline constexpr std::uint16_t kLiveFifoPointers = 8;  // FIFO pointer addresses 0 to 7

struct LiveRecord {
  // As they lie in memory: each register low byte first.
  std::array<std::uint8_t, 8> bytes{};

  [[nodiscard]] double Lambda1Volts() const { return bytes[0] / 100.0; }
  [[nodiscard]] double Lambda2Volts() const { return bytes[1] / 50.0; }
  [[nodiscard]] int CoolantCelsius() const { return static_cast<std::int8_t>(bytes[2]); }
  [[nodiscard]] double BatteryVolts() const { return bytes[3] / 10.0; }
  // Kept times 10, shown divided by 10.
  [[nodiscard]] int GasTemperatureTenths() const { return static_cast<std::int8_t>(bytes[4]) * 10; }
  // Kept times 10, shown divided by 100: a tenth of a bar a count.
  [[nodiscard]] int ManifoldPressureHundredths() const { return bytes[5] * 10; }
  [[nodiscard]] std::uint16_t EngineSpeed() const {  // 1/min
    return static_cast<std::uint16_t>(bytes[6] | (bytes[7] << 8U));
  }

  friend bool operator==(const LiveRecord&, const LiveRecord&) = default;
};

// The records that a FIFO read of these registers holds; a rest of fewer than four is left out.
[[nodiscard]] std::vector<LiveRecord> LiveRecordsFrom(std::span<const std::uint16_t> registers);

// The pointer address for the next FIFO read after `records` records came from `pointer`.
[[nodiscard]] std::uint16_t NextFifoPointer(std::uint16_t pointer, std::size_t records);

// Every record of the running connection, for the recorder. Any thread.
class LiveRecordQueue {
 public:
  // The oldest records fall off when nobody takes them for a minute.
  static constexpr std::size_t kCapacity = 600;

  void Push(const LiveRecord& record);
  // All that have come since the last call, oldest first.
  [[nodiscard]] std::vector<LiveRecord> TakeAll();

 private:
  std::mutex lock_;
  std::deque<LiveRecord> records_;  // guarded by lock_
};

}  // namespace zelorgas
