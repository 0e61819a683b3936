// The error codes that the ECU counts, in its two banks, and their texts. A number only names a
// text here; a translation goes by its English words. Constant data; any thread may read it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/Message.h"

namespace zelorgas {

enum class ErrorBank : std::uint8_t { kTemporary = 0, kPermanent = 1 };

inline constexpr std::uint16_t kTemporaryErrorRegister = 16400;  // holding, one a code
inline constexpr std::uint16_t kPermanentErrorRegister = 16432;
inline constexpr std::uint16_t kErrorRequestFailedText = 1326;

// One error code.
struct ERRREC {
  std::uint16_t code;         // its index within the bank
  std::uint16_t name;         // text number of what the list shows
  std::uint16_t description;  // text number of what is shown when the entry is selected
};

// The codes that a bank has: 10 temporary ones, 5 permanent ones, code 0 first.
[[nodiscard]] std::span<const ERRREC> ErrorDefinitions(ErrorBank bank);
// Null when the bank has no such code.
[[nodiscard]] const ERRREC* FindErrorDefinition(ErrorBank bank, std::uint16_t code);
// The holding register that counts code 0 of the bank.
[[nodiscard]] std::uint16_t FirstErrorRegister(ErrorBank bank);
// The title of the bank's page.
[[nodiscard]] FixedText BankTitle(ErrorBank bank);

// The text of a number; empty for a number that has none.
[[nodiscard]] FixedText ErrorText(std::uint16_t number);

}  // namespace zelorgas
