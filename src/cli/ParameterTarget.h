// What `get` and `set` work on: a parameter by its name, or a holding register by its number.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "config/Parameters.h"
#include "injectors/Choices.h"
#include "link/ModbusMaster.h"

namespace zelorgas {

class ParameterTarget {
 public:
  // Nothing when `text` is neither a parameter's name nor a register number; `problem` then says
  // so, with the names it may have meant.
  [[nodiscard]] static std::optional<ParameterTarget> Find(std::string_view text,
                                                           std::string& problem);

  // A register of the configuration block, by the name of the parameter that fills it.
  [[nodiscard]] static ParameterTarget OfParameter(const Parameter& parameter) {
    return {parameter.name, parameter.Register(), parameter};
  }

  // As the user wrote it.
  [[nodiscard]] const std::string& Text() const { return text_; }
  [[nodiscard]] std::uint16_t MaxValue() const { return field_.MaxValue(); }
  // The list whose choices the target keeps, when it is such a parameter.
  [[nodiscard]] std::optional<ChoiceList> Choices() const { return ListOf(field_); }
  // True when both lie in the same register and share a bit of it.
  [[nodiscard]] bool Overlaps(const ParameterTarget& other) const;

  // The target's value in the ECU. On any result but kOk `value` is unchanged.
  ModbusResult Read(ModbusMaster& ecu, std::uint16_t& value) const;
  // Writes the target and leaves the other bits of its register as they are.
  ModbusResult Write(ModbusMaster& ecu, std::uint16_t value) const;

 private:
  ParameterTarget(std::string_view text, std::uint16_t register_number, const Parameter& field)
      : text_(text), register_(register_number), field_(field) {}

  [[nodiscard]] bool WholeRegister() const { return field_.MaxValue() == 0xFFFF; }

  std::string text_;
  std::uint16_t register_;
  Parameter field_;  // its bits say where in the register the value lies
};

}  // namespace zelorgas
