// How the configuration page arranges the scalar parameters: their groups, what each is edited
// with, and the search. Constant data; any thread may read it.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "config/Parameters.h"
#include "platform/Message.h"

namespace zelorgas {

// What a parameter is edited with.
enum class ParameterKind : std::uint8_t {
  kFlag,    // a check box; every value but 0 is on
  kChoice,  // the list that ListOf gives
  kNumber,  // 0 to 65535
};
[[nodiscard]] ParameterKind KindOf(const Parameter& parameter);

struct ParameterGroup {
  FixedText title;
  std::span<const std::string_view> names;  // of its parameters, in the order of the page
};
// Every parameter is in one of them.
[[nodiscard]] std::span<const ParameterGroup> ParameterGroups();

// The words of a parameter's meaning that a search looks through.
using MeaningOf = std::function<std::string(const Parameter&)>;
[[nodiscard]] std::string EnglishMeaning(const Parameter& parameter);

// The parameters in whose name or meaning every word of `text` occurs, without regard to case, in
// the order of the groups. Without a word that is all of them. The case of letters beyond ASCII is
// the caller's business.
[[nodiscard]] std::vector<const Parameter*> SearchParameters(
    std::string_view text, const MeaningOf& meaning_of = EnglishMeaning);

}  // namespace zelorgas
