// Application data units: the bytes of a request (slave address, function code, data), and what is
// taken from the bytes of its response. Pure functions; no framing, no port.
//
// All 16-bit fields are big-endian. Start addresses are Modbus register or coil numbers as sent on
// the wire (0-based).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zelorgas {

// The ECU is the only slave on the line.
inline constexpr std::uint8_t ECU_SLAVE_ADDRESS = 11;

enum class ModbusFunction : std::uint8_t {
  kReadCoils = 1,
  kReadDiscreteInputs = 2,
  kReadHoldingRegisters = 3,
  kReadInputRegisters = 4,
  kWriteSingleCoil = 5,
  kWriteSingleRegister = 6,
  kWriteMultipleRegisters = 16,
  kReadFifoQueue = 24,
  kEncapsulatedInterface = 43,
};

// Read Device Identification is MEI type 14 of function 43.
inline constexpr std::uint8_t kMeiReadDeviceIdentification = 0x0E;
// A function byte from here on marks an exception response; byte 2 is then the exception code.
inline constexpr std::uint8_t kFirstExceptionFunction = 0x81;
// The byte count of function 16 is one byte.
inline constexpr std::size_t kMaxWriteRegisters = 127;
// Unit lengths of responses whose size the request does not fix.
inline constexpr std::size_t kFifoResponseLength = 68;  // room for 31 registers
inline constexpr std::size_t kDeviceIdResponseLength = 256;

// A request, the length its response should have, and how many leading response bytes must repeat
// the request's.
struct ModbusRequest {
  std::vector<std::uint8_t> unit;
  std::size_t response_length = 0;
  std::size_t echoed_bytes = 0;
};

[[nodiscard]] ModbusRequest MakeReadBitsRequest(std::uint8_t slave, ModbusFunction function,
                                                std::uint16_t start, std::uint16_t quantity);
[[nodiscard]] ModbusRequest MakeReadRegistersRequest(std::uint8_t slave, ModbusFunction function,
                                                     std::uint16_t start, std::uint16_t quantity);
// Sends 0xFF00 for `on` == 1 and 0x0000 for anything else.
[[nodiscard]] ModbusRequest MakeWriteCoilRequest(std::uint8_t slave, std::uint16_t address,
                                                 std::uint8_t on);
[[nodiscard]] ModbusRequest MakeWriteRegisterRequest(std::uint8_t slave, std::uint16_t address,
                                                     std::uint16_t value);
// `values`: at most kMaxWriteRegisters.
[[nodiscard]] ModbusRequest MakeWriteRegistersRequest(std::uint8_t slave, std::uint16_t start,
                                                      std::span<const std::uint16_t> values);
[[nodiscard]] ModbusRequest MakeReadFifoRequest(std::uint8_t slave, std::uint16_t pointer);
[[nodiscard]] ModbusRequest MakeReadDeviceIdRequest(std::uint8_t slave, std::uint8_t code,
                                                    std::uint8_t object);

// True when the leading bytes of `response` that this function echoes are those of the request.
[[nodiscard]] bool EchoMatches(const ModbusRequest& request,
                               std::span<const std::uint8_t> response);

// The takers give nothing when the response is too short for what was asked; the byte-count byte of
// a read response is not looked at.

// `quantity` bits from byte 3 on, the first in bit 0; each becomes one byte 0 or 1.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> TakeBits(
    std::span<const std::uint8_t> response, std::uint16_t quantity);
// `quantity` registers from byte 3 on.
[[nodiscard]] std::optional<std::vector<std::uint16_t>> TakeRegisters(
    std::span<const std::uint8_t> response, std::uint16_t quantity);
// The FIFO count of bytes 4 and 5, and that many registers from byte 6 on.
[[nodiscard]] std::optional<std::vector<std::uint16_t>> TakeFifo(
    std::span<const std::uint8_t> response);

struct DeviceIdentification {
  bool more_follows = false;
  std::uint8_t next_object = 0;
  std::vector<std::string> objects;  // values in the order received
};
[[nodiscard]] std::optional<DeviceIdentification> TakeDeviceIdentification(
    std::span<const std::uint8_t> response);

}  // namespace zelorgas
