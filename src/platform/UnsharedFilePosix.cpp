#include "platform/UnsharedFile.h"

namespace zelorgas {

// Others can only be asked to keep out here, and who writes files does not ask back.
UnsharedFile OpenUnshared(const std::filesystem::path& path) {
  return UnsharedFile(std::fopen(path.c_str(), "rb"));
}

}  // namespace zelorgas
