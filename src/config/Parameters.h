// The scalar parameters of the configuration block by name. Names are spelled as existing files
// spell them, "TPYE" included.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "config/ConfigurationBlock.h"
#include "platform/Message.h"

namespace zelorgas {

// A parameter is one whole word (bits 16) or a run of bits of one.
struct Parameter {
  std::string_view name;
  std::uint16_t word;  // index into the block; register 256 + word
  std::uint8_t first_bit;
  std::uint8_t bits;
  FixedText meaning;

  [[nodiscard]] constexpr std::uint16_t Register() const { return RegisterOfWord(word); }
  [[nodiscard]] constexpr std::uint16_t MaxValue() const {
    return static_cast<std::uint16_t>((1U << bits) - 1U);
  }
  // The parameter's value in a register word, and the word with the parameter set to `value`, which
  // is cut to the parameter's bits.
  [[nodiscard]] std::uint16_t ValueIn(std::uint16_t register_word) const;
  [[nodiscard]] std::uint16_t PutInto(std::uint16_t register_word, std::uint16_t value) const;
};

// All 75, in the order of their words; LAMBDA_INVERSE and LAMBDA_OXYGENRANGE share word 68.
[[nodiscard]] std::span<const Parameter> Parameters();

// By its exact name; null when there is none.
[[nodiscard]] const Parameter* FindParameter(std::string_view name);

// The `count` names that differ least from `name` (in inserted, dropped and replaced characters,
// without regard to case), nearest first: for the person who mistyped one.
[[nodiscard]] std::vector<std::string_view> NearestParameterNames(std::string_view name,
                                                                  std::size_t count);

[[nodiscard]] std::uint16_t GetParameter(const ConfigurationBlock& block,
                                         const Parameter& parameter);
void SetParameter(ConfigurationBlock& block, const Parameter& parameter, std::uint16_t value);

}  // namespace zelorgas
