#include "config/BlockComparison.h"

#include <utility>

namespace zelorgas {
namespace {

BlockDifference DifferenceOf(const BlockCell& cell, const ConfigurationBlock& first,
                             const ConfigurationBlock& second) {
  return {&cell, cell.Raw(first), cell.Raw(second), cell.Text(first), cell.Text(second)};
}

void TakeAway(std::optional<std::uint16_t>& raw, std::string& text) {
  raw.reset();
  text = kMissingText;
}

bool Gives(const LoadedConfiguration& file, const BlockCell& cell) {
  return (file.given[cell.word] & cell.Mask()) == cell.Mask();
}

}  // namespace

std::vector<BlockDifference> CompareBlocks(const ConfigurationBlock& first,
                                           const ConfigurationBlock& second) {
  std::vector<BlockDifference> differences;
  if (first == second) return differences;
  for (const BlockCell& cell : BlockCells()) {
    if (cell.Raw(first) != cell.Raw(second)) {
      differences.push_back(DifferenceOf(cell, first, second));
    }
  }
  return differences;
}

std::vector<BlockDifference> CompareFileWithBlock(const LoadedConfiguration& file,
                                                  const ConfigurationBlock& block) {
  std::vector<BlockDifference> differences;
  const ConfigurationBlock as_stored =
      ReadConfigurationText(ConfigurationText(block, 0, {}), block, 0).shown;
  for (const BlockCell& cell : BlockCells()) {
    if (!Gives(file, cell) || cell.Raw(file.block) == cell.Raw(block) ||
        cell.Raw(file.shown) == cell.Raw(as_stored)) {
      continue;
    }
    differences.push_back(DifferenceOf(cell, file.shown, block));
  }
  return differences;
}

std::vector<BlockDifference> CompareFiles(const LoadedConfiguration& first,
                                          const LoadedConfiguration& second) {
  std::vector<BlockDifference> differences;
  for (const BlockCell& cell : BlockCells()) {
    const bool in_first = Gives(first, cell);
    const bool in_second = Gives(second, cell);
    if (in_first == in_second && (!in_first || cell.Raw(first.shown) == cell.Raw(second.shown))) {
      continue;
    }
    BlockDifference difference = DifferenceOf(cell, first.shown, second.shown);
    if (!in_first) TakeAway(difference.first_raw, difference.first_text);
    if (!in_second) TakeAway(difference.second_raw, difference.second_text);
    differences.push_back(std::move(difference));
  }
  return differences;
}

std::string TextOf(const BlockDifference& difference) {
  return difference.cell->Label() + ": " + difference.first_text + ", " + difference.second_text;
}

}  // namespace zelorgas
