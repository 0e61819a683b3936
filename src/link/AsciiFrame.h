// Modbus ASCII framing: ":" , two upper-case hexadecimal characters a byte, the LRC, CR LF.
// Pure functions. A unit of n bytes makes a frame of 2n + 5 characters.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "link/ModbusResult.h"

namespace zelorgas {

// The 8-bit sum of all bytes of the unit, negated.
[[nodiscard]] std::uint8_t Lrc(std::span<const std::uint8_t> unit);

// Replaces `frame` by the frame of `unit`; its memory is reused.
void EncodeAsciiFrame(std::span<const std::uint8_t> unit, std::vector<std::uint8_t>& frame);

// Checks a received frame and decodes at most unit.size() bytes of it (address, function, data)
// into `unit`; `unit_length` is how many.
//   kCrcError          fewer than 5 characters, an even number of them, no ":" in front, no CR LF
//                      at the end, or the LRC does not match
//   0x8000 + code      the function byte is 0x81 or more: the ECU's exception
//   kInvalidResponse   an exception frame too short to hold its code
// A character that is not an upper-case hexadecimal digit counts as 0, which the LRC then finds
// out. The eight bits of the LRC alone would let one shifted frame in 256 pass: hence the ends are
// checked.
[[nodiscard]] ModbusResult DecodeAsciiFrame(std::span<const std::uint8_t> frame,
                                            std::span<std::uint8_t> unit, std::size_t& unit_length);

}  // namespace zelorgas
