// Watches a folder of device files. Any thread may start and end it.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>

#include "platform/PortWatcher.h"

namespace zelorgas {

// True for the names that device files of serial ports have: not those of consoles and other
// devices.
[[nodiscard]] bool IsSerialPortName(std::string_view name);

// WatchSerialPorts for `folder`. Every change after this call is reported; changes that come
// together, as one.
[[nodiscard]] std::unique_ptr<PortWatcher> WatchPortFolder(
    const std::filesystem::path& folder, std::function<void(PortWatchEvent)> notify);

}  // namespace zelorgas
