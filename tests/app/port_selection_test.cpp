#include <gtest/gtest.h>

#include "app/PortSelection.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

TEST(PortSelection, TakesComPortsByNumberAndOthersByName) {
  VirtualClock clock;
  ScriptedPort port(clock);
  ModbusSerialPort link(port.Opener(), clock);
  for (const int number : {1, 255}) {
    SelectPort(link, "COM" + std::to_string(number));
    EXPECT_EQ(link.PortNumber(), number);
    EXPECT_EQ(link.PortName(), "");
  }
  for (const char* name : {"COM256", "COM0", "COM", "COM3x", "sim", "/dev/ttyUSB0"}) {
    SelectPort(link, name);
    EXPECT_EQ(link.PortName(), name);
  }
}

}  // namespace
}  // namespace zelorgas
