#include "link/ModbusMaster.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace zelorgas {
namespace {

// Hands a taken value to the caller; a response too short to give one is not a valid answer.
template <typename Value>
bool Deliver(std::optional<Value> taken, Value& output) {
  if (!taken) return false;
  output = *std::move(taken);
  return true;
}

bool TakeNothing(std::span<const std::uint8_t>) { return true; }

}  // namespace

template <typename Take>
ModbusResult ModbusMaster::Transact(const ModbusRequest& request, Take take) {
  std::vector<std::uint8_t> response(request.response_length);
  ModbusResult result = ModbusResult::kOk;
  const std::uint16_t attempts = std::max<std::uint16_t>(attempt_count_, 1);
  for (std::uint16_t attempt = 0; attempt < attempts; ++attempt) {
    std::size_t received = 0;
    result = Exchange(request.unit, response, request.response_length, received);
    if (result != ModbusResult::kOk) continue;
    const std::span<const std::uint8_t> unit =
        std::span(response).first(std::min(received, response.size()));
    if (EchoMatches(request, unit) && take(unit)) return ModbusResult::kOk;
    result = ModbusResult::kInvalidResponse;
  }
  return result;
}

ModbusResult ModbusMaster::ReadCoils(std::uint8_t slave, std::uint16_t start,
                                     std::uint16_t quantity, std::vector<std::uint8_t>& bits) {
  return Transact(MakeReadBitsRequest(slave, ModbusFunction::kReadCoils, start, quantity),
                  [&](auto unit) { return Deliver(TakeBits(unit, quantity), bits); });
}

ModbusResult ModbusMaster::ReadDiscreteInputs(std::uint8_t slave, std::uint16_t start,
                                              std::uint16_t quantity,
                                              std::vector<std::uint8_t>& bits) {
  return Transact(MakeReadBitsRequest(slave, ModbusFunction::kReadDiscreteInputs, start, quantity),
                  [&](auto unit) { return Deliver(TakeBits(unit, quantity), bits); });
}

ModbusResult ModbusMaster::ReadHoldingRegisters(std::uint8_t slave, std::uint16_t start,
                                                std::uint16_t quantity,
                                                std::vector<std::uint16_t>& registers) {
  return Transact(
      MakeReadRegistersRequest(slave, ModbusFunction::kReadHoldingRegisters, start, quantity),
      [&](auto unit) { return Deliver(TakeRegisters(unit, quantity), registers); });
}

ModbusResult ModbusMaster::ReadInputRegisters(std::uint8_t slave, std::uint16_t start,
                                              std::uint16_t quantity,
                                              std::vector<std::uint16_t>& registers) {
  return Transact(
      MakeReadRegistersRequest(slave, ModbusFunction::kReadInputRegisters, start, quantity),
      [&](auto unit) { return Deliver(TakeRegisters(unit, quantity), registers); });
}

ModbusResult ModbusMaster::WriteSingleCoil(std::uint8_t slave, std::uint16_t address,
                                           std::uint8_t on) {
  return Transact(MakeWriteCoilRequest(slave, address, on), TakeNothing);
}

ModbusResult ModbusMaster::WriteSingleRegister(std::uint8_t slave, std::uint16_t address,
                                               std::uint16_t value) {
  return Transact(MakeWriteRegisterRequest(slave, address, value), TakeNothing);
}

ModbusResult ModbusMaster::WriteMultipleRegisters(std::uint8_t slave, std::uint16_t start,
                                                  std::span<const std::uint16_t> values) {
  constexpr std::uint8_t kIllegalDataValue = 3;
  if (values.size() > kMaxWriteRegisters) return ExceptionResult(kIllegalDataValue);
  return Transact(MakeWriteRegistersRequest(slave, start, values), TakeNothing);
}

ModbusResult ModbusMaster::ReadFifoQueue(std::uint8_t slave, std::uint16_t pointer,
                                         std::vector<std::uint16_t>& registers) {
  return Transact(MakeReadFifoRequest(slave, pointer),
                  [&](auto unit) { return Deliver(TakeFifo(unit), registers); });
}

ModbusResult ModbusMaster::ReadDeviceIdentification(std::uint8_t slave, std::uint8_t code,
                                                    std::uint8_t object,
                                                    DeviceIdentification& identification) {
  return Transact(MakeReadDeviceIdRequest(slave, code, object), [&](auto unit) {
    return Deliver(TakeDeviceIdentification(unit), identification);
  });
}

Message ModbusMaster::ErrorText(ModbusResult result) const {
  switch (result) {
    case ModbusResult::kOk:
      return FixedText::Of("Ok");
    case ModbusResult::kTimeOut:
      return FixedText::Of("Time Out Error");
    case ModbusResult::kInvalidResponse:
      return FixedText::Of("invalid returned device response");
    case ModbusResult::kCrcError:
      return FixedText::Of("crc error");
    case ModbusResult::kWriteError:
      return FixedText::Of("Write communication error");
    case ModbusResult::kReadError:
      return FixedText::Of("Read communication error");
    case ModbusResult::kPortNotOpen:
      return FixedText::Of("Comm port not opened");
    case ModbusResult::kLockTimeOut:
      return FixedText::Of("Critical section lock time-out error");
    default:
      // Values that no operation produces take this text too, with a negative number.
      return {FixedText::Of("Modbus device return an exception code%1"),
              static_cast<int>(result) - static_cast<int>(ModbusResult::kException)};
  }
}

}  // namespace zelorgas
