#include <share.h>
#include <wchar.h>

#include "platform/UnsharedFile.h"

namespace zelorgas {

UnsharedFile OpenUnshared(const std::filesystem::path& path) {
  return UnsharedFile(::_wfsopen(path.c_str(), L"rb", _SH_DENYRW));
}

}  // namespace zelorgas
