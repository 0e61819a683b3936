// What differs between two configurations, cell by cell: for the compare view, the command line and
// the check after a load. Pure functions.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/BlockCells.h"
#include "config/ConfigurationFile.h"

namespace zelorgas {

// What stands for the number of a cell that a file does not give.
inline constexpr FixedText kMissingText = FixedText::Of("(missing)");

struct BlockDifference {
  const BlockCell* cell;  // never null; lives as long as the program
  // None, with kMissingText beside it: a file does not give the cell.
  std::optional<std::uint16_t> first_raw;
  std::optional<std::uint16_t> second_raw;
  std::string first_text;
  std::string second_text;
};

// Every cell in which the two differ, what has no name included.
[[nodiscard]] std::vector<BlockDifference> CompareBlocks(const ConfigurationBlock& first,
                                                         const ConfigurationBlock& second);

// The cells that the file gives and that differ from `block`. A file keeps two decimals, and
// loading cuts them off: a cell agrees when storing the block would write the file's number, or
// loading the file would give the block's word.
[[nodiscard]] std::vector<BlockDifference> CompareFileWithBlock(const LoadedConfiguration& file,
                                                                const ConfigurationBlock& block);

// The cells that both files give with different numbers, and those that only one of them gives.
[[nodiscard]] std::vector<BlockDifference> CompareFiles(const LoadedConfiguration& first,
                                                        const LoadedConfiguration& second);

// "GridRow[2][5]: 1.00, 1.05"
[[nodiscard]] std::string TextOf(const BlockDifference& difference);

}  // namespace zelorgas
