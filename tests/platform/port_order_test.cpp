#include <gtest/gtest.h>

#include "platform/PortList.h"
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

TEST(PortList, IsOrderedAndNamesEachPortOnce) {
  const std::vector<SerialPortInfo> ports = ListSerialPorts();
  for (std::size_t i = 0; i + 1 < ports.size(); ++i) {
    EXPECT_TRUE(ComesBefore(ports[i].name, ports[i + 1].name)) << ports[i].name;
  }
}

}  // namespace
}  // namespace zelorgas
