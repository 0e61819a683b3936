// Any bytes as a received frame, and as a unit to be framed, in both framings: decoding stays
// inside its buffers, and what was encoded decodes to itself.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "link/AsciiFrame.h"
#include "link/RtuFrame.h"

namespace {

using namespace zelorgas;

constexpr std::uint8_t kFirstExceptionFunction = 0x81;

void Require(bool condition) {
  if (!condition) std::abort();
}

// `room` for fewer bytes than the frame has must do.
void Decode(std::span<const std::uint8_t> frame, std::size_t room) {
  std::vector<std::uint8_t> unit(room);
  std::size_t length = 0;
  if (DecodeAsciiFrame(frame, unit, length) == ModbusResult::kOk) Require(length <= room);
  for (const std::size_t expected : {std::size_t{0}, room, frame.size()}) {
    if (DecodeRtuFrame(frame, frame.size(), expected, unit, length) == ModbusResult::kOk) {
      Require(length <= room);
    }
  }
}

void EncodeAndDecode(std::span<const std::uint8_t> unit) {
  std::vector<std::uint8_t> frame;
  std::vector<std::uint8_t> back(unit.size());
  std::size_t length = 0;
  EncodeAsciiFrame(unit, frame);
  Require(frame.size() == 2 * unit.size() + 5);
  Require(DecodeAsciiFrame(frame, back, length) == ModbusResult::kOk);
  Require(length == unit.size() && std::ranges::equal(unit, back));
  EncodeRtuFrame(unit, frame);
  Require(DecodeRtuFrame(frame, frame.size(), unit.size(), back, length) == ModbusResult::kOk);
  Require(length == unit.size() && std::ranges::equal(unit, back));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::vector<std::uint8_t> frame(data + 1, data + size);
  Decode(frame, data[0]);
  if (frame.size() >= 2 && frame[1] < kFirstExceptionFunction) EncodeAndDecode(frame);
  return 0;
}
