#include <gtest/gtest.h>

#include "platform/ProgramVersion.h"
#include "platform/SystemStart.h"

namespace zelorgas {
namespace {

TEST(ProgramVersion, IsThatOfTheProject) {
  const ProgramVersion version = ReadProgramVersion();
  EXPECT_EQ(version.product_name, "ZelorGAS");
  EXPECT_EQ(version.file_version, ZELORGAS_PROJECT_VERSION);
}

TEST(SystemStart, SucceedsAlsoASecondTime) {
  for (int i = 0; i < 2; ++i) {
    const SystemStart first;
    const SystemStart nested;
    EXPECT_EQ(first.Failure(), StartFailure::kNone);
    EXPECT_EQ(nested.Failure(), StartFailure::kNone);
  }
}

}  // namespace
}  // namespace zelorgas
