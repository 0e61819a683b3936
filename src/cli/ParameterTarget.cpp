#include "cli/ParameterTarget.h"

#include <vector>

#include "cli/Text.h"

namespace zelorgas {
namespace {

constexpr Parameter kWholeRegister{"", 0, 0, 16, {}};
constexpr std::size_t kSuggestions = 3;

ModbusResult ReadWord(ModbusMaster& ecu, std::uint16_t register_number, std::uint16_t& word) {
  std::vector<std::uint16_t> words;
  const ModbusResult result =
      ecu.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, register_number, 1, words);
  if (result == ModbusResult::kOk) word = words.front();
  return result;
}

}  // namespace

std::optional<ParameterTarget> ParameterTarget::Find(std::string_view text, std::string& problem) {
  if (!text.empty() && text.front() >= '0' && text.front() <= '9') {
    const auto number = ReadNumber({"a register"}, text, problem);
    if (!number) return std::nullopt;
    return ParameterTarget(text, *number, kWholeRegister);
  }
  if (const Parameter* parameter = FindParameter(text)) {
    return ParameterTarget(text, parameter->Register(), *parameter);
  }
  problem = "there is no parameter \"" + std::string(text) + "\"; the nearest names are";
  std::string_view separator = " ";
  for (const std::string_view name : NearestParameterNames(text, kSuggestions)) {
    problem += std::string(separator) + std::string(name);
    separator = ", ";
  }
  return std::nullopt;
}

bool ParameterTarget::Overlaps(const ParameterTarget& other) const {
  constexpr std::uint16_t kAllBits = 0xFFFF;
  return register_ == other.register_ &&
         (field_.PutInto(0, kAllBits) & other.field_.PutInto(0, kAllBits)) != 0;
}

ModbusResult ParameterTarget::Read(ModbusMaster& ecu, std::uint16_t& value) const {
  std::uint16_t word = 0;
  const ModbusResult result = ReadWord(ecu, register_, word);
  if (result == ModbusResult::kOk) value = field_.ValueIn(word);
  return result;
}

ModbusResult ParameterTarget::Write(ModbusMaster& ecu, std::uint16_t value) const {
  std::uint16_t word = 0;
  if (!WholeRegister()) {
    if (const ModbusResult result = ReadWord(ecu, register_, word); result != ModbusResult::kOk) {
      return result;
    }
  }
  return ecu.WriteSingleRegister(ECU_SLAVE_ADDRESS, register_, field_.PutInto(word, value));
}

}  // namespace zelorgas
