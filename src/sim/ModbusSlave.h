// The slave's half of Modbus: executes a request unit on whatever lies behind the addresses, and
// makes the response or the exception response. Knows the functions, not the ECU. One thread at a
// time.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "link/ModbusUnit.h"

namespace zelorgas {

// What lies behind the addresses. An empty result, false or null: nothing is at this address.
class SlaveMap {
 public:
  SlaveMap() = default;
  SlaveMap(const SlaveMap&) = delete;
  SlaveMap& operator=(const SlaveMap&) = delete;
  virtual ~SlaveMap() = default;

  // `function` says of which kind: coils or discrete inputs, holding or input registers.
  [[nodiscard]] virtual std::optional<bool> Bit(ModbusFunction function, std::uint16_t number) = 0;
  [[nodiscard]] virtual std::optional<std::uint16_t> Word(ModbusFunction function,
                                                          std::uint16_t number) = 0;
  [[nodiscard]] virtual bool WriteCoil(std::uint16_t number, bool on) = 0;
  [[nodiscard]] virtual std::uint16_t* WritableRegister(std::uint16_t number) = 0;
  // The registers waiting behind a FIFO pointer, at most 31.
  [[nodiscard]] virtual std::optional<std::vector<std::uint16_t>> Fifo(std::uint16_t pointer) = 0;
  // The texts of the device identification from object 0 on; the first three are the basic ones.
  [[nodiscard]] virtual std::vector<std::string> IdentificationObjects() const = 0;
};

// `request` has a slave address and a function at least. A request that is refused changes nothing.
[[nodiscard]] std::vector<std::uint8_t> ExecuteRequest(SlaveMap& map,
                                                       std::span<const std::uint8_t> request);

}  // namespace zelorgas
