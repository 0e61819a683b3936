#include "config/Parameters.h"

#include <gtest/gtest.h>

namespace zelorgas {
namespace {

TEST(Parameters, FieldsShareAWordWithoutTouchingEachOther) {
  const Parameter& inverse = *FindParameter("LAMBDA_INVERSE");
  const Parameter& range = *FindParameter("LAMBDA_OXYGENRANGE");
  ConfigurationBlock block;
  block.fill(0x5555);
  block[68] = 0x8003;
  EXPECT_EQ(GetParameter(block, inverse), 1);
  EXPECT_EQ(GetParameter(block, range), 3);
  // A value that is too large loses its upper bits, not its neighbour's.
  SetParameter(block, inverse, 2);
  EXPECT_EQ(block[68], 0x0003);
  SetParameter(block, range, 0x8001);
  EXPECT_EQ(block[68], 0x0001);
  SetParameter(block, *FindParameter("TPSMAX"), 0xFFFF);
  EXPECT_EQ(block[52], 0xFFFF);
  EXPECT_EQ(block[51] & block[53], 0x5555);
}

}  // namespace
}  // namespace zelorgas
