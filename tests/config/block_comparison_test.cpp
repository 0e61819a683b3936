#include <gmock/gmock.h>

#include "config/BlockComparison.h"
#include "support/SampleConfiguration.h"

namespace zelorgas {
namespace {

std::vector<std::string> Texts(const std::vector<BlockDifference>& differences) {
  std::vector<std::string> texts;
  for (const BlockDifference& difference : differences) texts.push_back(TextOf(difference));
  return texts;
}

TEST(BlockCells, EveryBitOfTheBlockIsInOneCell) {
  ConfigurationBlock seen{};
  for (const BlockCell& cell : BlockCells()) {
    EXPECT_EQ(seen[cell.word] & cell.Mask(), 0) << cell.Label();
    seen[cell.word] = static_cast<std::uint16_t>(seen[cell.word] | cell.Mask());
  }
  for (const std::uint16_t bits : seen) EXPECT_EQ(bits, 0xFFFF);
}

TEST(BlockComparison, NamesEachCellThatDiffers) {
  struct Change {
    std::uint16_t word;
    std::uint16_t value;
    std::string_view text;
  };
  const Change changes[] = {
      {28, 4, "NCYLINDERS: 0, 4"},
      {68, 0x8000, "LAMBDA_INVERSE: 0, 1"},
      {70, 9, "register 326: 0, 9"},
      {83, 1234, "Ton[1]: 0.000, 1.234"},
      {151, 105, "GridRow[2][5]: 0.00, 1.05"},
      {537, 7, "CorrTPSDec.Outlet: 0, 7"},
      {573, 0x8000, "mapPinjs.Pinj6.Ginj6[1]: 0;0;0;0;0;0;0;0, 0;0;0;0;0;0;0;1"},
      {575, 0x0300, "mapSwappedInjs[3]: 0, 3"},
      {577, 0x2000, "mapPinjSet.Pinj2: 0;0;0;0;0;0, 0;0;0;0;0;1"},
      {577, 0x4000, "register 833: 0, 1"},
  };
  for (const Change& change : changes) {
    ConfigurationBlock changed{};
    changed[change.word] = change.value;
    EXPECT_THAT(Texts(CompareBlocks({}, changed)), testing::ElementsAre(change.text));
  }
}

TEST(BlockComparison, AFileAgreesWithWhatItWasStoredFromAndWithWhatItIsLoadedInto) {
  ConfigurationBlock block = SampleConfiguration();
  block[82] = 1234;  // stored as 1.23
  block[114] = 201;  // stored as 2.01, and loaded as 200
  const LoadedConfiguration file = ReadConfigurationText(ConfigurationText(block, 0, ""), {}, 0);
  EXPECT_THAT(Texts(CompareFileWithBlock(file, block)), testing::IsEmpty());
  const ConfigurationBlock loaded = file.Over(block);
  EXPECT_EQ(loaded[82], 1230);
  EXPECT_EQ(loaded[114], 200);
  EXPECT_EQ(loaded[582], block[582]);
  EXPECT_THAT(Texts(CompareFileWithBlock(file, loaded)), testing::IsEmpty());
  block[82] = 1240;
  block[114] = 202;
  block[582] = 0;  // no file says anything about it
  EXPECT_THAT(Texts(CompareFileWithBlock(file, block)),
              testing::ElementsAre("Ton[0]: 1.230, 1.240", "GridRow[0][0]: 2.01, 2.02"));
}

}  // namespace
}  // namespace zelorgas
