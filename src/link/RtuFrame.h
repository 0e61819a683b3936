// Modbus RTU framing: the unit followed by its CRC-16, low-order byte first. Pure functions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "link/ModbusResult.h"

namespace zelorgas {

// CRC-16 (reflected polynomial 0xA001, initial value 0xFFFF) over the first `length` bytes of
// `buffer`, as the frame sends it: the high byte of the result goes first. 0 for length 0 and for a
// length beyond the buffer.
[[nodiscard]] std::uint16_t Crc16(std::span<const std::uint8_t> buffer, std::size_t length);

// Replaces `frame` by `unit` and its CRC; its memory is reused.
void EncodeRtuFrame(std::span<const std::uint8_t> unit, std::vector<std::uint8_t>& frame);

// Checks the `received` bytes at the front of `buffer` (the rest of it zero) and copies at most
// unit.size() bytes of the response into `unit`; `unit_length` is how many bytes the response has.
// `expected_length` is the response's length without CRC, or 0 when it is not known: then the CRC
// of everything received, its CRC included, must be 0.
//   kCrcError       the CRC does not match. A shorter answer whose own CRC is good is kOk: that of
//                   a FIFO or an identification is only bounded
//   0x8000 + code   byte 1 is 0x81 or more: the ECU's exception
[[nodiscard]] ModbusResult DecodeRtuFrame(std::span<const std::uint8_t> buffer,
                                          std::size_t received, std::size_t expected_length,
                                          std::span<std::uint8_t> unit, std::size_t& unit_length);

}  // namespace zelorgas
