#include <windows.h>

#include <algorithm>
#include <array>

#include "platform/PortList.h"
#include "platform/PortOrder.h"
#include "platform/SerialMapWin32.h"
#include "platform/WideText.h"

namespace zelorgas {
namespace {

constexpr std::size_t kLongestName = 16384;  // of a registry value
constexpr std::size_t kLongestPort = 256;

// The text of value number `index`: a port's name. False when there is no such value.
bool ReadPortName(HKEY key, DWORD index, std::string& name) {
  std::vector<wchar_t> value_name(kLongestName);
  std::array<wchar_t, kLongestPort> text{};
  auto name_length = static_cast<DWORD>(value_name.size());
  auto text_bytes = static_cast<DWORD>(sizeof(text) - sizeof(wchar_t));  // stays terminated
  DWORD type = 0;
  const LSTATUS status = ::RegEnumValueW(key, index, value_name.data(), &name_length, nullptr,
                                         &type, reinterpret_cast<BYTE*>(text.data()), &text_bytes);
  if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA) return false;
  name = status == ERROR_SUCCESS && type == REG_SZ ? ToUtf8(text.data()) : std::string();
  return true;
}

}  // namespace

std::vector<SerialPortInfo> ListSerialPorts() {
  std::vector<SerialPortInfo> ports;
  HKEY key = nullptr;
  if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, kSerialMap, 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return ports;
  }
  std::string name;
  for (DWORD index = 0; ReadPortName(key, index, name); ++index) {
    if (!name.empty()) ports.push_back({name, {}});
  }
  ::RegCloseKey(key);
  std::sort(ports.begin(), ports.end(),
            [](const auto& a, const auto& b) { return ComesBefore(a.name, b.name); });
  const auto repeated = std::unique(ports.begin(), ports.end(),
                                    [](const auto& a, const auto& b) { return a.name == b.name; });
  ports.erase(repeated, ports.end());
  return ports;
}

}  // namespace zelorgas
