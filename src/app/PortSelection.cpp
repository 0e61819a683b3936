#include "app/PortSelection.h"

#include <charconv>
#include <cstdint>
#include <string>
#include <system_error>

namespace zelorgas {
namespace {

constexpr std::string_view kComPrefix = "COM";

// 0 when `name` is not a COM port's.
std::uint8_t ComPortNumber(std::string_view name) {
  if (!name.starts_with(kComPrefix)) return 0;
  name.remove_prefix(kComPrefix.size());
  std::uint8_t number = 0;
  const char* const end = name.data() + name.size();
  const auto [stop, error] = std::from_chars(name.data(), end, number);
  return error == std::errc() && stop == end ? number : std::uint8_t{0};
}

}  // namespace

void SelectPort(ModbusSerialPort& link, std::string_view name) {
  if (const std::uint8_t number = ComPortNumber(name); number != 0) {
    link.SetPortNumber(number);
  } else {
    link.SetPortName(std::string(name));
  }
}

}  // namespace zelorgas
