#include "platform/ProgramVersion.h"
#include "platform/ProgramVersionText.h"

namespace zelorgas {

ProgramVersion ReadProgramVersion() {
  return {std::string(kProductName), std::string(kFileVersion)};
}

}  // namespace zelorgas
