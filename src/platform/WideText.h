// Text between this program, which uses UTF-8, and Windows, which uses UTF-16. Pure, safe from any
// thread.
#pragma once

#include <string>
#include <string_view>

namespace zelorgas {

// Characters that the other form cannot hold become the replacement character.
[[nodiscard]] std::wstring ToWide(std::string_view utf8);
[[nodiscard]] std::string ToUtf8(std::wstring_view wide);

}  // namespace zelorgas
