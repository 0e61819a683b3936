#include <gtest/gtest.h>

#include "app/PortSelection.h"
#include "support/ScriptedPort.h"

namespace zelorgas {
namespace {

TEST(PortSelection, TakesComPortsByNumberAndOthersByName) {
  struct Row {
    const char* name;
    unsigned number;  // 0: opened by name
  };
  VirtualClock clock;
  ScriptedPort port(clock);
  for (const Row& row : {Row{"COM1", 1}, Row{"COM255", 255}, Row{"COM256", 0}, Row{"COM0", 0},
                         Row{"COM", 0}, Row{"COM3x", 0}, Row{"sim", 0}, Row{"/dev/ttyUSB0", 0}}) {
    ModbusSerialPort link(port.Opener(), clock);
    SelectPort(link, row.name);
    EXPECT_EQ(link.PortName(), row.number == 0 ? row.name : "") << row.name;
    if (row.number != 0) {
      EXPECT_EQ(link.PortNumber(), row.number) << row.name;
    }
  }
}

}  // namespace
}  // namespace zelorgas
