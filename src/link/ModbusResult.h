// The outcome of one operation on the ECU link.
#pragma once

#include <cstdint>

namespace zelorgas {

// 0 is success. 4 to 7 are never produced; 11 is reserved (the link lock waits without limit).
// 0x8000 + n is the ECU's exception code n.
enum class [[nodiscard]] ModbusResult : std::uint16_t{
    kOk = 0,        kTimeOut = 1,      kInvalidResponse = 2, kCrcError = 3,       kWriteError = 8,
    kReadError = 9, kPortNotOpen = 10, kLockTimeOut = 11,    kException = 0x8000,
};

[[nodiscard]] constexpr ModbusResult ExceptionResult(std::uint8_t code) {
  return static_cast<ModbusResult>(static_cast<std::uint16_t>(ModbusResult::kException) + code);
}

[[nodiscard]] constexpr bool IsException(ModbusResult result) {
  return static_cast<std::uint16_t>(result) >= static_cast<std::uint16_t>(ModbusResult::kException);
}

}  // namespace zelorgas
