// The name and version of this program as its file carries them. Safe from any thread.
#pragma once

#include <string>

namespace zelorgas {

struct ProgramVersion {
  std::string product_name;  // "ZelorGAS"
  std::string file_version;  // four numbers, "0.12.1.1"
};

// Texts that the program's file does not have are empty.
[[nodiscard]] ProgramVersion ReadProgramVersion();

}  // namespace zelorgas
