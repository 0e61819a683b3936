// The simulated ECU: the complete register map, the live data of an engine, error counters, the
// restart flag, and the bootloader, behind the Modbus functions. Everything that moves is worked
// out from the clock when it is asked for. Any thread may call anything.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "config/ConfigurationBlock.h"
#include "link/ModbusUnit.h"
#include "platform/Clock.h"
#include "sim/Bootloader.h"
#include "sim/EngineModel.h"
#include "sim/ModbusSlave.h"

namespace zelorgas {

struct SimulatedEcuOptions {
  std::uint8_t software_major = 0;
  std::uint8_t software_minor = 39;
  std::uint8_t hardware_major = 1;
  std::uint8_t hardware_minor = 2;
  std::uint32_t serial = 123456;
  bool in_bootloader = false;  // from the start, and held there
  bool starts_late = false;    // with power waits in the bootloader, as long as its patience goes
  std::uint64_t seed = 1;
  // Another make of ECU, for what refuses it.
  std::string vendor = "Tarnwick Ltd.";
  std::string product = "Petrol<=>GAS ECU Conversion kit";
  std::string revision{};             // empty: made from the versions
  bool has_board_information = true;  // registers 16384 to 16386
};

class SimulatedEcu final : private SlaveMap {
 public:
  static constexpr std::size_t kTemporaryErrors = 10;
  static constexpr std::size_t kPermanentErrors = 5;
  static constexpr std::size_t kFifoRecords = 8;  // the ring that pointers 0 to 7 walk
  static constexpr std::chrono::milliseconds kRecordPeriod{100};
  // A bootloader that nobody speaks to starts the application after so long.
  static constexpr std::chrono::seconds kBootloaderPatience{5};

  explicit SimulatedEcu(Clock& clock, SimulatedEcuOptions options = {});

  // What the ECU answers to a request unit: the response, an exception response, or nothing when
  // the request is not for it. Requests take effect at once.
  [[nodiscard]] std::optional<std::vector<std::uint8_t>> Answer(
      std::span<const std::uint8_t> request) {
    return AnswerAt(request, clock_.Now());
  }
  // The same for a request that the ECU has in full at `when`: live values are those of then.
  [[nodiscard]] std::optional<std::vector<std::uint8_t>> AnswerAt(
      std::span<const std::uint8_t> request, Clock::TimePoint when);

  // A reset: the restart flag (coil 43) is raised, the configuration stays.
  void Restart();
  // The supply goes and comes: as a reset, and a bootloader starts the application if it is whole,
  // at once unless the ECU starts late.
  void LosePower();

  // Into the bootloader, as coil 33 orders it, and held there until it has been programmed or is
  // restarted.
  void EnterBootloader();

  // For tests and the simulator's summary.
  [[nodiscard]] std::uint16_t Register(std::uint16_t number) const;  // of the configuration block
  void SetRegister(std::uint16_t number, std::uint16_t value);
  [[nodiscard]] ConfigurationBlock Block() const;
  // As if another ECU were on the line.
  void SetSerial(std::uint32_t serial);
  void SetErrorCount(bool permanent, std::size_t code, std::uint16_t count);
  [[nodiscard]] std::uint16_t ErrorCount(bool permanent, std::size_t code) const;
  [[nodiscard]] bool Coil(std::uint16_t number) const;
  void SetCoil(std::uint16_t number, bool on);
  // Holds the engine in `state`, and lets it run again when empty.
  void PinEngine(std::optional<EngineState> state);
  [[nodiscard]] bool InBootloader() const;
  [[nodiscard]] std::vector<std::uint8_t> Flash() const;
  // Runs `change` on the bootloader under the ECU's lock.
  template <typename Change>
  void WithBootloader(Change change) {
    const std::lock_guard guard(lock_);
    change(bootloader_);
  }
  [[nodiscard]] std::size_t WriteCount() const;  // accepted writes of coils and registers

 private:
  // All of these run under lock_.
  [[nodiscard]] std::optional<bool> Bit(ModbusFunction function, std::uint16_t number) override;
  [[nodiscard]] std::optional<std::uint16_t> Word(ModbusFunction function,
                                                  std::uint16_t number) override;
  [[nodiscard]] bool WriteCoil(std::uint16_t number, bool on) override;
  [[nodiscard]] std::uint16_t* WritableRegister(std::uint16_t number) override;
  [[nodiscard]] std::optional<std::vector<std::uint16_t>> Fifo(std::uint16_t pointer) override;
  [[nodiscard]] std::vector<std::string> IdentificationObjects() const override;

  [[nodiscard]] std::optional<bool> BootloaderBit(bool coil, std::uint16_t number) const;
  [[nodiscard]] std::optional<std::uint16_t> InputRegister(std::uint16_t number);
  [[nodiscard]] std::uint16_t CylinderTime(std::uint16_t channel);
  [[nodiscard]] std::uint16_t ClearErrorsCoil() const;
  [[nodiscard]] unsigned CoilCount() const;

  // The engine at the time of the request, and at any time.
  [[nodiscard]] const EngineState& Engine();
  [[nodiscard]] EngineState EngineAt(double seconds) const;
  [[nodiscard]] double GasTimeMicroseconds();
  [[nodiscard]] std::array<std::uint16_t, 4> RecordAt(std::uint64_t number) const;
  void Boot(bool into_bootloader);
  [[nodiscard]] bool LeavesBootloader() const;

  Clock& clock_;
  const SimulatedEcuOptions options_;
  const EngineModel engine_;

  mutable std::mutex lock_;
  std::uint32_t serial_;
  Clock::TimePoint started_;
  Clock::TimePoint now_;                   // of the request that is executed, or the last one
  std::optional<EngineState> engine_now_;  // then, once somebody has asked
  std::optional<EngineState> pinned_engine_;
  ConfigurationBlock block_{};
  std::array<std::uint16_t, kTemporaryErrors> temporary_errors_{};
  std::array<std::uint16_t, kPermanentErrors> permanent_errors_{};
  std::array<bool, 128> coils_{};
  Bootloader bootloader_;
  bool in_bootloader_ = false;
  std::size_t writes_ = 0;
};

// The configuration with which a simulated ECU leaves the factory: a running four-cylinder car.
[[nodiscard]] ConfigurationBlock FactoryConfiguration();

}  // namespace zelorgas
