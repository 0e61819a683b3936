#include "sim/ModbusSlave.h"

namespace zelorgas {
namespace {

using Request = std::span<const std::uint8_t>;
using Response = std::vector<std::uint8_t>;

constexpr std::uint8_t kIllegalFunction = 1;
constexpr std::uint8_t kIllegalAddress = 2;
constexpr std::uint8_t kIllegalValue = 3;
constexpr std::uint16_t kMaxBits = 2000;
constexpr std::uint16_t kMaxRegisters = 125;
constexpr std::uint16_t kMaxWritten = 123;
constexpr std::size_t kBasicObjects = 3;
constexpr std::uint8_t kIndividualObject = 4;         // read-device-id code
constexpr std::uint8_t kRegularAndIndividual = 0x82;  // conformity level

Response Exception(Request request, std::uint8_t code) {
  return {request[0], static_cast<std::uint8_t>(request[1] | 0x80U), code};
}

std::uint16_t WordAt(Request bytes, std::size_t position) {
  return static_cast<std::uint16_t>((bytes[position] << 8U) | bytes[position + 1]);
}

void Append(Response& response, std::uint16_t word) {
  response.push_back(static_cast<std::uint8_t>(word >> 8U));
  response.push_back(static_cast<std::uint8_t>(word & 0xFFU));
}

// The answer to a write repeats address and value, or address and count.
Response Repeat(Request request) { return {request.begin(), request.begin() + 6}; }

Response ReadBits(SlaveMap& map, Request request) {
  const auto function = static_cast<ModbusFunction>(request[1]);
  const std::uint16_t start = WordAt(request, 2);
  const std::uint16_t count = WordAt(request, 4);
  if (count == 0 || count > kMaxBits) return Exception(request, kIllegalValue);
  const std::size_t bytes = (count + 7U) / 8U;
  Response response{request[0], request[1], static_cast<std::uint8_t>(bytes)};
  response.resize(3 + bytes);
  for (unsigned i = 0; i < count; ++i) {
    const std::optional<bool> bit = map.Bit(function, static_cast<std::uint16_t>(start + i));
    if (!bit) return Exception(request, kIllegalAddress);
    if (*bit) response[3 + i / 8] |= static_cast<std::uint8_t>(1U << (i % 8));
  }
  return response;
}

Response ReadRegisters(SlaveMap& map, Request request) {
  const auto function = static_cast<ModbusFunction>(request[1]);
  const std::uint16_t start = WordAt(request, 2);
  const std::uint16_t count = WordAt(request, 4);
  if (count == 0 || count > kMaxRegisters) return Exception(request, kIllegalValue);
  Response response{request[0], request[1], static_cast<std::uint8_t>(2 * count)};
  response.reserve(3 + 2U * count);
  for (unsigned i = 0; i < count; ++i) {
    const std::optional<std::uint16_t> word =
        map.Word(function, static_cast<std::uint16_t>(start + i));
    if (!word) return Exception(request, kIllegalAddress);
    Append(response, *word);
  }
  return response;
}

Response WriteSingleCoil(SlaveMap& map, Request request) {
  const std::uint16_t value = WordAt(request, 4);
  if (value != 0xFF00 && value != 0x0000) return Exception(request, kIllegalValue);
  if (!map.WriteCoil(WordAt(request, 2), value != 0)) return Exception(request, kIllegalAddress);
  return Repeat(request);
}

Response WriteSingleRegister(SlaveMap& map, Request request) {
  std::uint16_t* const target = map.WritableRegister(WordAt(request, 2));
  if (target == nullptr) return Exception(request, kIllegalAddress);
  *target = WordAt(request, 4);
  return Repeat(request);
}

Response WriteMultipleRegisters(SlaveMap& map, Request request) {
  const std::uint16_t start = WordAt(request, 2);
  const std::uint16_t count = WordAt(request, 4);
  if (count == 0 || count > kMaxWritten || request[6] != 2 * count ||
      request.size() < 7 + 2U * count) {
    return Exception(request, kIllegalValue);
  }
  std::vector<std::uint16_t*> targets;
  targets.reserve(count);
  for (unsigned i = 0; i < count; ++i) {
    targets.push_back(map.WritableRegister(static_cast<std::uint16_t>(start + i)));
    if (targets.back() == nullptr) return Exception(request, kIllegalAddress);
  }
  for (std::size_t i = 0; i < count; ++i) *targets[i] = WordAt(request, 7 + 2 * i);
  return Repeat(request);
}

Response ReadFifo(SlaveMap& map, Request request) {
  const std::optional<std::vector<std::uint16_t>> words = map.Fifo(WordAt(request, 2));
  if (!words) return Exception(request, kIllegalAddress);
  const auto count = static_cast<std::uint16_t>(words->size());
  Response response{request[0], request[1]};
  Append(response, static_cast<std::uint16_t>(2 + 2 * count));
  Append(response, count);
  for (const std::uint16_t word : *words) Append(response, word);
  return response;
}

Response Identify(const SlaveMap& map, Request request) {
  const std::uint8_t code = request[3];
  if (request[2] != kMeiReadDeviceIdentification) return Exception(request, kIllegalFunction);
  if (code < 1 || code > kIndividualObject) return Exception(request, kIllegalValue);
  const std::vector<std::string> objects = map.IdentificationObjects();
  const bool individual = code == kIndividualObject;
  const std::size_t end = code == 1 ? kBasicObjects : objects.size();
  std::size_t first = request[4];
  // An unknown object starts a stream from its beginning, and is an error when it alone is asked
  // for.
  if (first >= end) {
    if (individual) return Exception(request, kIllegalAddress);
    first = 0;
  }
  const std::size_t last = individual ? first + 1 : end;
  const auto count = static_cast<std::uint8_t>(last - first);
  // Everything fits one answer: no more follows, and there is no next object.
  Response response{request[0], request[1], request[2], code, kRegularAndIndividual, 0, 0, count};
  for (std::size_t object = first; object < last; ++object) {
    response.push_back(static_cast<std::uint8_t>(object));
    response.push_back(static_cast<std::uint8_t>(objects[object].size()));
    response.insert(response.end(), objects[object].begin(), objects[object].end());
  }
  return response;
}

// The shortest request of a function; a shorter one holds no valid values.
std::size_t ShortestRequest(ModbusFunction function) {
  switch (function) {
    case ModbusFunction::kReadCoils:
    case ModbusFunction::kReadDiscreteInputs:
    case ModbusFunction::kReadHoldingRegisters:
    case ModbusFunction::kReadInputRegisters:
    case ModbusFunction::kWriteSingleCoil:
    case ModbusFunction::kWriteSingleRegister:
      return 6;
    case ModbusFunction::kWriteMultipleRegisters:
      return 7;
    case ModbusFunction::kReadFifoQueue:
      return 4;
    case ModbusFunction::kEncapsulatedInterface:
      return 5;
  }
  return 0;  // refused whatever follows
}

}  // namespace

std::vector<std::uint8_t> ExecuteRequest(SlaveMap& map, std::span<const std::uint8_t> request) {
  const auto function = static_cast<ModbusFunction>(request[1]);
  if (request.size() < ShortestRequest(function)) return Exception(request, kIllegalValue);
  switch (function) {
    case ModbusFunction::kReadCoils:
    case ModbusFunction::kReadDiscreteInputs:
      return ReadBits(map, request);
    case ModbusFunction::kReadHoldingRegisters:
    case ModbusFunction::kReadInputRegisters:
      return ReadRegisters(map, request);
    case ModbusFunction::kWriteSingleCoil:
      return WriteSingleCoil(map, request);
    case ModbusFunction::kWriteSingleRegister:
      return WriteSingleRegister(map, request);
    case ModbusFunction::kWriteMultipleRegisters:
      return WriteMultipleRegisters(map, request);
    case ModbusFunction::kReadFifoQueue:
      return ReadFifo(map, request);
    case ModbusFunction::kEncapsulatedInterface:
      return Identify(map, request);
  }
  return Exception(request, kIllegalFunction);
}

}  // namespace zelorgas
