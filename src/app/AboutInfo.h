// What the About box shows. Pure, safe from any thread.
#pragma once

#include <string>
#include <string_view>

#include "platform/ProgramVersion.h"

namespace zelorgas {

// The fields, with what they show when the program's file tells nothing.
struct AboutInfo {
  std::string product = "Petrol=>GAS Conversion Kit";
  std::string version = "0.12";  // major and minor
  std::string revision = "01";   // the third number
  std::string build = "0001";    // the fourth
  std::string date = "12.06.2006";
};

// The fields from `program` and `built`, a date and time as the compiler writes them: "Jul  3 2007
// at 12:34:56". Each that is missing or of another form leaves its fields at their start values.
[[nodiscard]] AboutInfo MakeAboutInfo(const ProgramVersion& program, std::string_view built);

// When this program was compiled, in that form.
[[nodiscard]] std::string_view BuildTime();

}  // namespace zelorgas
