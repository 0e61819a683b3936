#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "cli/Commands.h"
#include "cli/Text.h"

namespace zelorgas {
namespace {

// What one response, or one request, can carry.
constexpr std::uint32_t kMaxReadBits = 2000;
constexpr std::uint32_t kMaxReadRegisters = 125;
constexpr std::size_t kMaxWrittenRegisters = 123;
constexpr std::size_t kAddressCount = 0x10000;

constexpr NumberArgument kAddress{"A"};
constexpr NumberArgument kValue{"V"};

using Words = std::vector<std::uint16_t>;

struct ModbusForm {
  std::string_view name;
  // `arguments` are those behind the form's name.
  ExitStatus (*run)(CliSession& session, std::span<const std::string> arguments);
};

// The numbers of `arguments`, one for each of `shape`; empty when they are not that, which has then
// been explained to the user.
Words ReadNumbers(CliSession& session, std::span<const std::string> arguments,
                  std::span<const NumberArgument> shape) {
  if (arguments.size() != shape.size()) {
    std::string names;
    for (const NumberArgument& argument : shape) names += " " + std::string(argument.name);
    static_cast<void>(session.UsageError("this form takes" + names));
    return {};
  }
  Words numbers;
  std::string problem;
  for (std::size_t i = 0; i < shape.size(); ++i) {
    const auto number = ReadNumber(shape[i], arguments[i], problem);
    if (!number) {
      static_cast<void>(session.UsageError(problem));
      return {};
    }
    numbers.push_back(*number);
  }
  return numbers;
}

// False, with an explanation to the user, when `count` addresses from `start` run past the last.
bool FitsAddressSpace(CliSession& session, std::size_t start, std::size_t count) {
  if (start + count <= kAddressCount) return true;
  static_cast<void>(session.UsageError("the addresses run past 65535"));
  return false;
}

template <typename Value>
void PrintValues(CliSession& session, std::size_t first_address, const std::vector<Value>& values) {
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("values").BeginArray();
    for (const Value value : values) document.Number(value);
    session.Print(document.EndArray().EndObject());
    return;
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    session.Print(std::to_string(first_address + i) + ": " + std::to_string(values[i]));
  }
}

template <typename Value>
ExitStatus Report(CliSession& session, ModbusResult result, std::size_t first_address,
                  const std::vector<Value>& values) {
  if (result != ModbusResult::kOk) return session.LinkError("modbus", result);
  PrintValues(session, first_address, values);
  return ExitStatus::kDone;
}

// The four reading forms differ in the operation, the kind of value and how many fit a response.
template <typename Value>
using ReadOperation = ModbusResult (ModbusMaster::*)(std::uint8_t, std::uint16_t, std::uint16_t,
                                                     std::vector<Value>&);

template <typename Value>
ExitStatus Read(CliSession& session, std::span<const std::string> arguments,
                ReadOperation<Value> operation, std::uint32_t most) {
  const std::array<NumberArgument, 2> shape{{{"START"}, {"COUNT", 1, most}}};
  const Words numbers = ReadNumbers(session, arguments, shape);
  if (numbers.empty() || !FitsAddressSpace(session, numbers[0], numbers[1])) {
    return ExitStatus::kWrongUsage;
  }
  if (const ExitStatus status = session.OpenLink(); status != ExitStatus::kDone) return status;
  std::vector<Value> values;
  const ModbusResult result =
      (session.Ecu().*operation)(ECU_SLAVE_ADDRESS, numbers[0], numbers[1], values);
  return Report(session, result, numbers[0], values);
}

ExitStatus ReadCoils(CliSession& session, std::span<const std::string> arguments) {
  return Read(session, arguments, &ModbusMaster::ReadCoils, kMaxReadBits);
}

ExitStatus ReadInputs(CliSession& session, std::span<const std::string> arguments) {
  return Read(session, arguments, &ModbusMaster::ReadDiscreteInputs, kMaxReadBits);
}

ExitStatus ReadHolding(CliSession& session, std::span<const std::string> arguments) {
  return Read(session, arguments, &ModbusMaster::ReadHoldingRegisters, kMaxReadRegisters);
}

ExitStatus ReadInput(CliSession& session, std::span<const std::string> arguments) {
  return Read(session, arguments, &ModbusMaster::ReadInputRegisters, kMaxReadRegisters);
}

ExitStatus WriteCoil(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.size() != 2 || (arguments[1] != "on" && arguments[1] != "off")) {
    return session.UsageError("this form takes A and on or off");
  }
  const Words address = ReadNumbers(session, arguments.first(1), std::array{kAddress});
  if (address.empty()) return ExitStatus::kWrongUsage;
  if (const ExitStatus status = session.OpenLink(); status != ExitStatus::kDone) return status;
  const std::vector<std::uint8_t> on{arguments[1] == "on" ? std::uint8_t{1} : std::uint8_t{0}};
  const ModbusResult result =
      session.Ecu().WriteSingleCoil(ECU_SLAVE_ADDRESS, address[0], on.front());
  return Report(session, result, address[0], on);
}

ExitStatus WriteRegister(CliSession& session, std::span<const std::string> arguments) {
  const Words numbers = ReadNumbers(session, arguments, std::array{kAddress, kValue});
  if (numbers.empty()) return ExitStatus::kWrongUsage;
  if (const ExitStatus status = session.OpenLink(); status != ExitStatus::kDone) return status;
  const ModbusResult result =
      session.Ecu().WriteSingleRegister(ECU_SLAVE_ADDRESS, numbers[0], numbers[1]);
  return Report(session, result, numbers[0], Words{numbers[1]});
}

ExitStatus WriteRegisters(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.size() < 2 || arguments.size() > kMaxWrittenRegisters + 1) {
    return session.UsageError("this form takes A and 1 to " + std::to_string(kMaxWrittenRegisters) +
                              " values");
  }
  std::vector<NumberArgument> shape(arguments.size(), kValue);
  shape.front() = kAddress;
  const Words numbers = ReadNumbers(session, arguments, shape);
  if (numbers.empty() || !FitsAddressSpace(session, numbers[0], numbers.size() - 1)) {
    return ExitStatus::kWrongUsage;
  }
  if (const ExitStatus status = session.OpenLink(); status != ExitStatus::kDone) return status;
  const Words values(numbers.begin() + 1, numbers.end());
  const ModbusResult result =
      session.Ecu().WriteMultipleRegisters(ECU_SLAVE_ADDRESS, numbers[0], values);
  return Report(session, result, numbers[0], values);
}

// The values are numbered by their place in the queue.
ExitStatus ReadFifo(CliSession& session, std::span<const std::string> arguments) {
  const Words pointer = ReadNumbers(session, arguments, std::array{NumberArgument{"P"}});
  if (pointer.empty()) return ExitStatus::kWrongUsage;
  if (const ExitStatus status = session.OpenLink(); status != ExitStatus::kDone) return status;
  Words values;
  const ModbusResult result = session.Ecu().ReadFifoQueue(ECU_SLAVE_ADDRESS, pointer[0], values);
  return Report(session, result, 0, values);
}

ExitStatus ReadIdentification(CliSession& session, std::span<const std::string> arguments) {
  constexpr std::array<NumberArgument, 2> kShape{{{"CODE", 1, 4}, {"OBJECT", 0, 255}}};
  const Words numbers = ReadNumbers(session, arguments, kShape);
  if (numbers.empty()) return ExitStatus::kWrongUsage;
  if (const ExitStatus status = session.OpenLink(); status != ExitStatus::kDone) return status;
  DeviceIdentification answer;
  const ModbusResult result = session.Ecu().ReadDeviceIdentification(
      ECU_SLAVE_ADDRESS, static_cast<std::uint8_t>(numbers[0]),
      static_cast<std::uint8_t>(numbers[1]), answer);
  if (result != ModbusResult::kOk) return session.LinkError("modbus", result);
  if (session.Json()) {
    JsonWriter document;
    document.BeginObject().Key("values").BeginArray();
    for (const std::string& object : answer.objects) document.String(object);
    document.EndArray().Key("more_follows").Bool(answer.more_follows);
    session.Print(document.Key("next_object").Number(answer.next_object).EndObject());
    return ExitStatus::kDone;
  }
  // The answer's order counts: the link does not keep the objects' numbers.
  for (const std::string& object : answer.objects) session.Print(PrintableText(object));
  if (answer.more_follows) {
    session.Message("more objects follow, from " + std::to_string(answer.next_object));
  }
  return ExitStatus::kDone;
}

constexpr auto kForms = std::to_array<ModbusForm>({
    {"coils", ReadCoils},
    {"inputs", ReadInputs},
    {"holding", ReadHolding},
    {"input", ReadInput},
    {"write-coil", WriteCoil},
    {"write-register", WriteRegister},
    {"write-registers", WriteRegisters},
    {"fifo", ReadFifo},
    {"identify", ReadIdentification},
});

}  // namespace

ExitStatus RunModbus(CliSession& session, std::span<const std::string> arguments) {
  if (arguments.empty()) return session.UsageError("modbus needs to know what to do");
  const auto form = std::ranges::find(kForms, arguments.front(), &ModbusForm::name);
  if (form == kForms.end()) {
    return session.UsageError("modbus knows no \"" + arguments.front() + "\"");
  }
  return form->run(session, arguments.subspan(1));
}

}  // namespace zelorgas
