// Where the registry lists the serial ports that there are.
#pragma once

namespace zelorgas {

// Below HKEY_LOCAL_MACHINE. Each value's text is a port's name.
inline constexpr const wchar_t* kSerialMap = L"HARDWARE\\DEVICEMAP\\SERIALCOMM";

}  // namespace zelorgas
