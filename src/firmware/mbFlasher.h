// The bootloader's commands, each a coil's pulse: its argument goes into a holding register before,
// its result comes from input registers behind. Used by one thread at a time, the one that updates.
//
// Every command returns the bootloader's 32-bit value: kNoResult when it could not be read, and
// kNoMaster when there is no master. Such a value cannot say that a pulse was lost and that the
// result is the one before it. Who has to know asks LinkFailure and PageSpoilt too.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "link/ModbusMaster.h"

namespace zelorgas {

class mbFlasher {  // NOLINT(readability-identifier-naming): the bootloader documents call it so
 public:
  using Pause = std::function<void(std::chrono::milliseconds)>;

  static constexpr std::uint32_t kNoMaster = 0xFFFFFFFF;  // -1
  static constexpr std::uint32_t kNoResult = 255;
  static constexpr std::uint32_t kNoSupply = 1;              // SupplyCheck
  static constexpr std::uint32_t kKeepAddress = 0xFFFFFFFF;  // Write
  static constexpr std::size_t kPageSize = 256;
  // What the bootloader gets to settle after flash mode was switched on and after an erase.
  static constexpr std::chrono::milliseconds kSettleTime{50};

  // `master` may be null. `pause` waits on the caller's thread.
  mbFlasher(ModbusMaster* master, Pause pause);

  // True for data that erased flash holds anyway.
  [[nodiscard]] static bool IsBlank(std::span<const std::uint8_t> data);

  // Erasing and writing need it. Without a master nothing happens and the result is kPortNotOpen.
  ModbusResult SetFlashMode(bool on);

  std::uint32_t SupplyCheck();                    // kNoSupply: none on the FLMD0 pin
  std::uint32_t PreEraseValue();                  // coil 5
  std::uint32_t SecondPreEraseValue();            // coil 6
  std::uint32_t BlockEnd(std::uint16_t block);    // last address of the block
  std::uint32_t BlankCheck(std::uint16_t block);  // 0: blank
  std::uint32_t Erase(std::uint16_t block);       // 0: erased
  // The answer of the last BlockEnd once more, without the command. A bootloader that has restarted
  // since has forgotten it.
  std::uint32_t KeptBlockEnd();
  std::uint32_t BlockValue(std::uint16_t block);  // coil 11
  std::uint32_t StatusMask();  // bit i: status input i is on; flash mode ends off
  std::uint32_t Command14();

  // Writes `data` from `address` on, or from where the bootloader stands with kKeepAddress; 0 when
  // written. Nothing is sent for blank data. A page that the bootloader
  // refuses, or whose result is lost, is tried again from the second half that was not sent as the
  // first: after that the flash does not hold `data` whatever the result (PageSpoilt). Ends with
  // the third failure in a row, or when nothing is left to send. Nothing is written, and the result
  // is kNoResult, when address or data do not reach the bootloader.
  std::uint32_t Write(std::span<const std::uint8_t> data, std::uint32_t address);

  // The first exchange of all commands so far that failed, those whose results do not show it
  // included; kOk when there is none.
  [[nodiscard]] ModbusResult LinkFailure() const { return link_failure_; }
  // True once a page has been tried a second time.
  [[nodiscard]] bool PageSpoilt() const { return page_spoilt_; }

 private:
  // Keep a failure for LinkFailure; true when there is none.
  bool Check(ModbusResult result);
  void Pulse(std::uint16_t coil);
  std::uint32_t ReadResult(std::uint16_t first_register);
  std::uint32_t Run(std::uint16_t coil, std::uint16_t first_register);
  std::uint32_t Run(std::uint16_t coil, std::uint16_t first_register, std::uint16_t argument);
  bool LoadBuffer(std::uint16_t first_register, std::span<const std::uint8_t> bytes);

  ModbusMaster* const master_;
  const Pause pause_;
  ModbusResult link_failure_ = ModbusResult::kOk;
  bool page_spoilt_ = false;
};

}  // namespace zelorgas
