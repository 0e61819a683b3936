#include <gtest/gtest.h>

#include "platform/PortOrder.h"

namespace zelorgas {
namespace {

TEST(PortOrder, NumbersCompareAsNumbers) {
  const char* const ordered[] = {"",
                                 "/dev/ttyACM0",
                                 "/dev/ttyS2",
                                 "/dev/ttyS10",
                                 "/dev/ttyUSB0",
                                 "/dev/ttyUSB00",
                                 "COM",
                                 "COM2",
                                 "COM10",
                                 "COM10-2",
                                 "COM10-11",
                                 "COM99999999999999999999",
                                 "COM100000000000000000000"};
  for (const auto& a : ordered) {
    for (const auto& b : ordered) EXPECT_EQ(ComesBefore(a, b), &a < &b) << a << " < " << b;
  }
}

}  // namespace
}  // namespace zelorgas
