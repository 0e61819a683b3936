#include "config/BlockTransfer.h"

#include <algorithm>
#include <vector>

namespace zelorgas {
namespace {

// Runs `transfer(offset, count)` over the block's chunks until one fails.
template <typename Transfer>
ModbusResult ForEachChunk(Transfer transfer) {
  for (std::size_t offset = 0; offset < kBlockWords; offset += kBlockChunkWords) {
    const std::size_t count = std::min(kBlockChunkWords, kBlockWords - offset);
    if (const ModbusResult result = transfer(offset, count); result != ModbusResult::kOk) {
      return result;
    }
  }
  return ModbusResult::kOk;
}

}  // namespace

ModbusResult ReadBlock(ModbusMaster& master, const ChunkDone& store,
                       const std::function<bool()>& keep_going) {
  std::vector<std::uint16_t> words;
  return ForEachChunk([&](std::size_t offset, std::size_t count) {
    if (keep_going && !keep_going()) return ModbusResult::kLockTimeOut;
    const ModbusResult result = master.ReadHoldingRegisters(
        ECU_SLAVE_ADDRESS, RegisterOfWord(offset), static_cast<std::uint16_t>(count), words);
    if (result == ModbusResult::kOk && store) store(offset, words);
    return result;
  });
}

ModbusResult WriteBlock(ModbusMaster& master, const ConfigurationBlock& block,
                        const ChunkDone& done) {
  return ForEachChunk([&](std::size_t offset, std::size_t count) {
    const std::span<const std::uint16_t> words = std::span(block).subspan(offset, count);
    const ModbusResult result =
        master.WriteMultipleRegisters(ECU_SLAVE_ADDRESS, RegisterOfWord(offset), words);
    if (result == ModbusResult::kOk && done) done(offset, words);
    return result;
  });
}

ChunkDone StoreInto(ConfigurationBlock& block) {
  return [&block](std::size_t offset, std::span<const std::uint16_t> words) {
    std::ranges::copy(words, block.begin() + static_cast<std::ptrdiff_t>(offset));
  };
}

}  // namespace zelorgas
