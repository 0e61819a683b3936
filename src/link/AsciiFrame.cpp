#include "link/AsciiFrame.h"

#include <algorithm>
#include <array>

#include "link/ModbusUnit.h"

namespace zelorgas {
namespace {

constexpr std::size_t kFramingCharacters = 5;  // ":", two of the LRC, CR, LF

constexpr char EncodeNibble(unsigned nibble) {
  if (nibble < 10) return static_cast<char>('0' + nibble);
  if (nibble < 16) return static_cast<char>('A' + (nibble - 10));
  return '0';
}

constexpr std::uint8_t DecodeCharacter(unsigned character) {
  if (character >= '0' && character <= '9') return static_cast<std::uint8_t>(character - '0');
  if (character >= 'A' && character <= 'F') return static_cast<std::uint8_t>(character - 'A' + 10);
  return 0;
}

using HexPair = std::array<std::uint8_t, 2>;

constexpr auto kHexPairs = [] {
  std::array<HexPair, 256> pairs{};
  for (unsigned byte = 0; byte < pairs.size(); ++byte) {
    pairs[byte] = {static_cast<std::uint8_t>(EncodeNibble(byte >> 4U)),
                   static_cast<std::uint8_t>(EncodeNibble(byte & 0x0FU))};
  }
  return pairs;
}();

constexpr auto kLowNibbles = [] {
  std::array<std::uint8_t, 256> nibbles{};
  for (unsigned c = 0; c < nibbles.size(); ++c) nibbles[c] = DecodeCharacter(c);
  return nibbles;
}();

constexpr auto kHighNibbles = [] {
  std::array<std::uint8_t, 256> nibbles{};
  for (unsigned c = 0; c < nibbles.size(); ++c) {
    nibbles[c] = static_cast<std::uint8_t>(DecodeCharacter(c) << 4U);
  }
  return nibbles;
}();

constexpr std::uint8_t DecodePair(const std::uint8_t* characters) {
  return static_cast<std::uint8_t>(kHighNibbles[characters[0]] | kLowNibbles[characters[1]]);
}

constexpr std::uint8_t Negate(unsigned sum) { return static_cast<std::uint8_t>(0U - sum); }

}  // namespace

std::uint8_t Lrc(std::span<const std::uint8_t> unit) {
  unsigned sum = 0;
  for (const std::uint8_t byte : unit) sum += byte;
  return Negate(sum);
}

void EncodeAsciiFrame(std::span<const std::uint8_t> unit, std::vector<std::uint8_t>& frame) {
  frame.resize(2 * unit.size() + kFramingCharacters);
  std::uint8_t* out = frame.data();
  const auto put = [&out](std::uint8_t byte) {
    const HexPair& pair = kHexPairs[byte];
    *out++ = pair[0];
    *out++ = pair[1];
  };
  *out++ = ':';
  unsigned sum = 0;
  for (const std::uint8_t byte : unit) {
    put(byte);
    sum += byte;
  }
  put(Negate(sum));
  *out++ = '\r';
  *out++ = '\n';
}

ModbusResult DecodeAsciiFrame(std::span<const std::uint8_t> frame, std::span<std::uint8_t> unit,
                              std::size_t& unit_length) {
  unit_length = 0;
  if (frame.size() < kFramingCharacters || frame.size() % 2 == 0 || frame.front() != ':' ||
      frame[frame.size() - 2] != '\r' || frame.back() != '\n') {
    return ModbusResult::kCrcError;
  }
  const std::size_t bytes = (frame.size() - kFramingCharacters) / 2;
  const std::size_t kept = std::min(bytes, unit.size());
  const std::uint8_t* in = frame.data() + 1;
  unsigned sum = 0;
  for (std::size_t i = 0; i < kept; ++i, in += 2) {
    const std::uint8_t byte = DecodePair(in);
    unit[i] = byte;
    sum += byte;
  }
  for (std::size_t i = kept; i < bytes; ++i, in += 2) sum += DecodePair(in);
  if (DecodePair(frame.data() + frame.size() - 4) != Negate(sum)) return ModbusResult::kCrcError;

  if (bytes >= 2 && DecodePair(frame.data() + 3) >= kFirstExceptionFunction) {
    if (bytes < 3) return ModbusResult::kInvalidResponse;
    return ExceptionResult(DecodePair(frame.data() + 5));
  }
  unit_length = kept;
  return ModbusResult::kOk;
}

}  // namespace zelorgas
