#include "link/ModbusUnit.h"

#include <algorithm>
#include <initializer_list>

namespace zelorgas {
namespace {

constexpr std::size_t kReadHeader = 3;      // address, function, byte count
constexpr std::size_t kWriteResponse = 6;   // address, function, and the four bytes that are echoed
constexpr std::size_t kFifoHeader = 6;      // address, function, byte count (2), FIFO count (2)
constexpr std::size_t kDeviceIdHeader = 8;  // up to and with the number of objects
constexpr std::size_t kObjectHeader = 2;    // object id, length

constexpr std::uint8_t High(std::uint16_t word) { return static_cast<std::uint8_t>(word >> 8U); }
constexpr std::uint8_t Low(std::uint16_t word) { return static_cast<std::uint8_t>(word & 0xFFU); }

std::uint16_t WordAt(std::span<const std::uint8_t> bytes, std::size_t position) {
  return static_cast<std::uint16_t>((bytes[position] << 8U) | bytes[position + 1]);
}

// Address, function and two 16-bit fields: the shape of most requests.
std::vector<std::uint8_t> TwoWordUnit(std::uint8_t slave, ModbusFunction function,
                                      std::uint16_t first, std::uint16_t second) {
  return {slave,      static_cast<std::uint8_t>(function), High(first), Low(first), High(second),
          Low(second)};
}

std::optional<std::vector<std::uint16_t>> TakeWords(std::span<const std::uint8_t> response,
                                                    std::size_t first, std::size_t count) {
  if (response.size() < first + 2 * count) return std::nullopt;
  std::vector<std::uint16_t> words(count);
  for (std::size_t i = 0; i < count; ++i) words[i] = WordAt(response, first + 2 * i);
  return words;
}

}  // namespace

ModbusRequest MakeReadBitsRequest(std::uint8_t slave, ModbusFunction function, std::uint16_t start,
                                  std::uint16_t quantity) {
  return {TwoWordUnit(slave, function, start, quantity), kReadHeader + (quantity + 7U) / 8U, 2};
}

ModbusRequest MakeReadRegistersRequest(std::uint8_t slave, ModbusFunction function,
                                       std::uint16_t start, std::uint16_t quantity) {
  return {TwoWordUnit(slave, function, start, quantity), kReadHeader + std::size_t{2} * quantity,
          2};
}

ModbusRequest MakeWriteCoilRequest(std::uint8_t slave, std::uint16_t address, std::uint8_t on) {
  const std::uint16_t value = on == 1 ? 0xFF00 : 0x0000;
  return {TwoWordUnit(slave, ModbusFunction::kWriteSingleCoil, address, value), kWriteResponse, 6};
}

ModbusRequest MakeWriteRegisterRequest(std::uint8_t slave, std::uint16_t address,
                                       std::uint16_t value) {
  return {TwoWordUnit(slave, ModbusFunction::kWriteSingleRegister, address, value), kWriteResponse,
          6};
}

ModbusRequest MakeWriteRegistersRequest(std::uint8_t slave, std::uint16_t start,
                                        std::span<const std::uint16_t> values) {
  ModbusRequest request{TwoWordUnit(slave, ModbusFunction::kWriteMultipleRegisters, start,
                                    static_cast<std::uint16_t>(values.size())),
                        kWriteResponse, 6};
  request.unit.reserve(request.unit.size() + 1 + 2 * values.size());
  request.unit.push_back(static_cast<std::uint8_t>(2 * values.size()));
  for (const std::uint16_t value : values) {
    request.unit.push_back(High(value));
    request.unit.push_back(Low(value));
  }
  return request;
}

ModbusRequest MakeReadFifoRequest(std::uint8_t slave, std::uint16_t pointer) {
  return {{slave, static_cast<std::uint8_t>(ModbusFunction::kReadFifoQueue), High(pointer),
           Low(pointer)},
          kFifoResponseLength,
          2};
}

ModbusRequest MakeReadDeviceIdRequest(std::uint8_t slave, std::uint8_t code, std::uint8_t object) {
  return {{slave, static_cast<std::uint8_t>(ModbusFunction::kEncapsulatedInterface),
           kMeiReadDeviceIdentification, code, object},
          kDeviceIdResponseLength,
          4};
}

bool EchoMatches(const ModbusRequest& request, std::span<const std::uint8_t> response) {
  const std::size_t count = request.echoed_bytes;
  return response.size() >= count &&
         std::ranges::equal(std::span(request.unit).first(count), response.first(count));
}

std::optional<std::vector<std::uint8_t>> TakeBits(std::span<const std::uint8_t> response,
                                                  std::uint16_t quantity) {
  if (response.size() < kReadHeader + (quantity + 7U) / 8U) return std::nullopt;
  std::vector<std::uint8_t> bits(quantity);
  for (std::size_t i = 0; i < bits.size(); ++i) {
    bits[i] = static_cast<std::uint8_t>((response[kReadHeader + i / 8] >> (i % 8)) & 1U);
  }
  return bits;
}

std::optional<std::vector<std::uint16_t>> TakeRegisters(std::span<const std::uint8_t> response,
                                                        std::uint16_t quantity) {
  return TakeWords(response, kReadHeader, quantity);
}

std::optional<std::vector<std::uint16_t>> TakeFifo(std::span<const std::uint8_t> response) {
  if (response.size() < kFifoHeader) return std::nullopt;
  return TakeWords(response, kFifoHeader, WordAt(response, 4));
}

std::optional<DeviceIdentification> TakeDeviceIdentification(
    std::span<const std::uint8_t> response) {
  if (response.size() < kDeviceIdHeader) return std::nullopt;
  DeviceIdentification identification;
  identification.more_follows = response[5] != 0;
  identification.next_object = response[6];
  const std::size_t count = response[7];
  std::span<const std::uint8_t> rest = response.subspan(kDeviceIdHeader);
  for (std::size_t i = 0; i < count; ++i) {
    if (rest.size() < kObjectHeader) return std::nullopt;
    const std::size_t length = rest[1];
    rest = rest.subspan(kObjectHeader);
    if (rest.size() < length) return std::nullopt;
    identification.objects.emplace_back(rest.begin(),
                                        rest.begin() + static_cast<std::ptrdiff_t>(length));
    rest = rest.subspan(length);
  }
  return identification;
}

}  // namespace zelorgas
