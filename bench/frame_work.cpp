// frame_work encode|decode TIMES: codes one 139-character ASCII frame TIMES times, nothing else.
// bench/run counts its instructions; two counts with different TIMES give the cost of one
// character.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "link/AsciiFrame.h"

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const std::string_view work = argv[1];
  const long times = std::strtol(argv[2], nullptr, 10);
  // The answer to a read of 32 registers.
  std::vector<std::uint8_t> unit(67);
  for (std::size_t i = 0; i < unit.size(); ++i) unit[i] = static_cast<std::uint8_t>(i * 37 + 11);
  unit[1] = 3;
  std::vector<std::uint8_t> frame;
  zelorgas::EncodeAsciiFrame(unit, frame);
  std::size_t length = 0;
  unsigned checksum = 0;
  for (long i = 0; i < times; ++i) {
    if (work == "encode") {
      zelorgas::EncodeAsciiFrame(unit, frame);
    } else if (zelorgas::DecodeAsciiFrame(frame, unit, length) != zelorgas::ModbusResult::kOk) {
      return 1;
    }
    checksum += frame[20] + unit[20];
  }
  std::printf("%zu %u\n", frame.size(), checksum);
  return 0;
}
