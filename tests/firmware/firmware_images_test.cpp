#include <gmock/gmock.h>

#include "firmware/FirmwareImages.h"
#include "firmware/UpdateBench.h"

namespace zelorgas {
namespace {

namespace fs = std::filesystem;

TEST(FirmwareImages, AreListedByVersionTheNewestFirst) {
  const fs::path folder =
      testing::TempDir() + "zelorgas-images-" + std::to_string(std::random_device{}());
  EXPECT_TRUE(FindFirmwareImages(folder).empty()) << "no such folder";
  fs::create_directories(folder / "P042V0T99M1B1.ebi");  // a folder is no image
  for (const char* name : {"P042V0T38M1B7.ebi", "p042v0t39m1b2.EBI", "P042V0T38M1B9.ebi",
                           "P042x.ebi", "P043V0T50M1B7.ebi", "P042V0T50M1B7.ebi.part", ".ebi"}) {
    std::ofstream(folder / name) << "x";
  }
  std::string texts;
  for (const FirmwareImage& image : FindFirmwareImages(folder)) texts += image.text + ", ";
  EXPECT_EQ(texts, "00.39, 00.38 (P042V0T38M1B7), 00.38 (P042V0T38M1B9), P042x, ");
  fs::remove_all(folder);
}

}  // namespace
}  // namespace zelorgas
