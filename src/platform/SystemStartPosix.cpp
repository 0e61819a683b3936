#include "platform/SystemStart.h"

namespace zelorgas {

SystemStart::SystemStart() = default;
SystemStart::~SystemStart() = default;

}  // namespace zelorgas
