// Moves the configuration block between the ECU and the program: 19 requests of at most 32
// registers.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "config/ConfigurationBlock.h"
#include "link/ModbusMaster.h"

namespace zelorgas {

// Called after each chunk that went through, outside the link lock: `offset` is the chunk's first
// word, `words` what the ECU now holds there. Progress is (offset + words.size()) of kBlockWords.
using ChunkDone = std::function<void(std::size_t offset, std::span<const std::uint16_t> words)>;

// The rest that an ECU gets between two chunks of WriteBlock; who calls it takes the rest in
// `done`.
inline constexpr std::chrono::milliseconds kRestAfterChunk{25};

// Reads the block chunk by chunk. The first failed request abandons the read with its result;
// chunks that came before it have been handed over and stay.
// So does `keep_going`, asked before each request, when it says no: with kLockTimeOut.
ModbusResult ReadBlock(ModbusMaster& master, const ChunkDone& store,
                       const std::function<bool()>& keep_going = {});

// Writes the block chunk by chunk. The first failed request stops the write with its result; `done`
// has seen the chunks that the ECU took.
ModbusResult WriteBlock(ModbusMaster& master, const ConfigurationBlock& block,
                        const ChunkDone& done = {});

// The ReadBlock sink that keeps the chunks in `block`.
[[nodiscard]] ChunkDone StoreInto(ConfigurationBlock& block);

}  // namespace zelorgas
