// Watches a key of the registry. Any thread may start and end it.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/PortWatcher.h"

namespace zelorgas {

// WatchSerialPorts for the key `path` below `root`. Every change after this call is reported.
[[nodiscard]] std::unique_ptr<PortWatcher> WatchRegistryKey(
    HKEY root, std::wstring path, std::function<void(PortWatchEvent)> notify);

}  // namespace zelorgas
