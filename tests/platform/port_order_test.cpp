#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/LineTiming.h"
#include "platform/PortList.h"
#include "platform/PortOrder.h"

namespace zelorgas {
namespace {

TEST(PortOrder, NumbersCompareAsNumbers) {
  const std::vector<std::string> ordered = {"",
                                            "/dev/ttyACM0",
                                            "/dev/ttyS2",
                                            "/dev/ttyS10",
                                            "/dev/ttyUSB0",
                                            "/dev/ttyUSB00",
                                            "/dev/ttyUSB0b",
                                            "COM",
                                            "COM2",
                                            "COM10",
                                            "COM10-2",
                                            "COM10-11",
                                            "COM99999999999999999999",
                                            "COM100000000000000000000"};
  for (std::size_t a = 0; a < ordered.size(); ++a) {
    for (std::size_t b = 0; b < ordered.size(); ++b) {
      EXPECT_EQ(ComesBefore(ordered[a], ordered[b]), a < b) << ordered[a] << " < " << ordered[b];
    }
  }
}

TEST(PortList, IsOrderedAndNamesEachPortOnce) {
  const std::vector<SerialPortInfo> ports = ListSerialPorts();
  for (std::size_t i = 0; i + 1 < ports.size(); ++i) {
    EXPECT_TRUE(ComesBefore(ports[i].name, ports[i + 1].name)) << ports[i].name;
  }
}

TEST(LineTiming, CharacterHasStartDataParityAndStopBits) {
  struct Row {
    LineSettings settings;
    double half_bits;
  };
  const Row rows[] = {
      {{.baud = 19200, .data_bits = 7, .parity = Parity::kEven}, 20},
      {{.baud = 9600, .data_bits = 8}, 20},
      {{.baud = 9600, .data_bits = 8, .parity = Parity::kOdd, .stop_bits = StopBits::kTwo}, 24},
      {{.baud = 300, .data_bits = 5, .stop_bits = StopBits::kOneAndHalf}, 15},
  };
  for (const Row& row : rows) {
    const std::chrono::duration<double> time = CharacterTime(row.settings);
    EXPECT_NEAR(time.count(), row.half_bits / 2 / row.settings.baud, 1e-9);
  }
}

}  // namespace
}  // namespace zelorgas
