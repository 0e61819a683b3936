#include "link/RtuFrame.h"

#include <algorithm>
#include <array>

#include "link/ModbusUnit.h"

namespace zelorgas {
namespace {

constexpr std::size_t kCrcBytes = 2;
constexpr std::size_t kExceptionLength = 3;  // address, function, code
constexpr std::size_t kShortestFrame = 4;    // address, function, CRC

// What one byte does to the CRC register. The register's low-order byte is the one that the
// published two-table form calls "high" (0x00, 0xC1, 0x81, 0x40, ...): it takes the next data byte
// and is sent first.
constexpr auto kCrcTable = [] {
  std::array<std::uint16_t, 256> table{};
  for (unsigned byte = 0; byte < table.size(); ++byte) {
    unsigned crc = byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 1U) != 0 ? (crc >> 1U) ^ 0xA001U : crc >> 1U;
    table[byte] = static_cast<std::uint16_t>(crc);
  }
  return table;
}();

bool CrcMatches(std::span<const std::uint8_t> buffer, std::size_t length) {
  if (length + kCrcBytes > buffer.size()) return false;
  const std::uint16_t crc = Crc16(buffer, length);
  return buffer[length] == crc >> 8U && buffer[length + 1] == (crc & 0xFFU);
}

}  // namespace

std::uint16_t Crc16(std::span<const std::uint8_t> buffer, std::size_t length) {
  if (length == 0 || length > buffer.size()) return 0;
  unsigned crc = 0xFFFF;
  for (const std::uint8_t byte : buffer.first(length)) {
    crc = (crc >> 8U) ^ kCrcTable[(crc ^ byte) & 0xFFU];
  }
  return static_cast<std::uint16_t>((crc << 8U) | (crc >> 8U));
}

void EncodeRtuFrame(std::span<const std::uint8_t> unit, std::vector<std::uint8_t>& frame) {
  frame.assign(unit.begin(), unit.end());
  const std::uint16_t crc = Crc16(unit, unit.size());
  frame.push_back(static_cast<std::uint8_t>(crc >> 8U));
  frame.push_back(static_cast<std::uint8_t>(crc & 0xFFU));
}

ModbusResult DecodeRtuFrame(std::span<const std::uint8_t> buffer, std::size_t received,
                            std::size_t expected_length, std::span<std::uint8_t> unit,
                            std::size_t& unit_length) {
  unit_length = 0;
  if (received < kShortestFrame || received > buffer.size()) return ModbusResult::kCrcError;
  if (buffer[1] >= kFirstExceptionFunction) {
    if (received < kExceptionLength + kCrcBytes || !CrcMatches(buffer, kExceptionLength)) {
      return ModbusResult::kCrcError;
    }
    return ExceptionResult(buffer[2]);
  }
  // An answer shorter than expected (a FIFO or identification answer, whose length is a bound) is
  // recognised by the CRC over itself and its CRC, which is 0.
  const bool whole = expected_length != 0 && received >= expected_length + kCrcBytes;
  const std::size_t length = whole ? expected_length : received - kCrcBytes;
  if (!CrcMatches(buffer.first(received), length)) return ModbusResult::kCrcError;
  unit_length = std::min(length, unit.size());
  std::ranges::copy(buffer.first(unit_length), unit.begin());
  return ModbusResult::kOk;
}

}  // namespace zelorgas
