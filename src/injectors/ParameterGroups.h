// How the configuration page arranges the scalar parameters: their groups, what each is edited
// with, and the search. Constant data; any thread may read it.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "config/Parameters.h"

namespace zelorgas {

// What a parameter is edited with.
enum class ParameterKind : std::uint8_t {
  kFlag,    // a check box; every value but 0 is on
  kChoice,  // the list that ListOf gives
  kNumber,  // 0 to 65535
};
[[nodiscard]] ParameterKind KindOf(const Parameter& parameter);

struct ParameterGroup {
  std::string_view title;
  std::span<const std::string_view> names;  // of its parameters, in the order of the page
};
// Every parameter is in one of them.
[[nodiscard]] std::span<const ParameterGroup> ParameterGroups();

// The parameters in whose name or meaning every word of `text` occurs, without regard to case, in
// the order of the groups. Without a word that is all of them.
[[nodiscard]] std::vector<const Parameter*> SearchParameters(std::string_view text);

}  // namespace zelorgas
