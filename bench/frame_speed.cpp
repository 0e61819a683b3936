// How fast frames are coded, both framings; for comparing two builds.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "link/AsciiFrame.h"
#include "link/RtuFrame.h"

namespace {

// The answer to a read of 32 registers.
std::vector<std::uint8_t> AnswerUnit() {
  std::vector<std::uint8_t> unit(67);
  for (std::size_t i = 0; i < unit.size(); ++i) unit[i] = static_cast<std::uint8_t>(i * 37 + 11);
  unit[1] = 3;
  return unit;
}

void EncodeAscii(benchmark::State& state) {
  const std::vector<std::uint8_t> unit = AnswerUnit();
  std::vector<std::uint8_t> frame;
  for ([[maybe_unused]] auto turn : state) {
    zelorgas::EncodeAsciiFrame(unit, frame);
    benchmark::DoNotOptimize(frame.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(frame.size()));
}

void DecodeAscii(benchmark::State& state) {
  std::vector<std::uint8_t> unit = AnswerUnit();
  std::vector<std::uint8_t> frame;
  zelorgas::EncodeAsciiFrame(unit, frame);
  std::size_t length = 0;
  for ([[maybe_unused]] auto turn : state) {
    benchmark::DoNotOptimize(zelorgas::DecodeAsciiFrame(frame, unit, length));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(frame.size()));
}

void EncodeRtu(benchmark::State& state) {
  const std::vector<std::uint8_t> unit = AnswerUnit();
  std::vector<std::uint8_t> frame;
  for ([[maybe_unused]] auto turn : state) {
    zelorgas::EncodeRtuFrame(unit, frame);
    benchmark::DoNotOptimize(frame.data());
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(frame.size()));
}

BENCHMARK(EncodeAscii);
BENCHMARK(DecodeAscii);
BENCHMARK(EncodeRtu);

}  // namespace

BENCHMARK_MAIN();
