// The order in which a person expects numbered names. Pure, safe from any thread.
#pragma once

#include <string_view>

namespace zelorgas {

// True when `a` comes before `b`: digits compare as the number they write (COM2 before COM10), all
// else by its character codes.
[[nodiscard]] bool ComesBefore(std::string_view a, std::string_view b);

}  // namespace zelorgas
