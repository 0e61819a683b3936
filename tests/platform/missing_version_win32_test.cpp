#include <gtest/gtest.h>

#include "platform/ProgramVersion.h"

namespace zelorgas {
namespace {

TEST(ProgramVersion, OfAFileWithoutVersionResourceIsEmpty) {
  const ProgramVersion version = ReadProgramVersion();
  EXPECT_EQ(version.product_name, "");
  EXPECT_EQ(version.file_version, "");
}

}  // namespace
}  // namespace zelorgas
