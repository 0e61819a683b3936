#include <gtest/gtest.h>
#include <windows.h>

#include "platform/ControlBlockWin32.h"
#include "platform/SerialDevice.h"

namespace zelorgas {
namespace {

TEST(ControlBlock, OfTheEcuLine) {
  const DCB block = MakeControlBlock({.baud = 19200, .data_bits = 7, .parity = Parity::kEven});
  EXPECT_EQ(block.DCBlength, sizeof(DCB));
  EXPECT_EQ(block.BaudRate, 19200U);
  EXPECT_EQ(block.ByteSize, 7);
  EXPECT_EQ(block.Parity, EVENPARITY);
  EXPECT_EQ(block.StopBits, ONESTOPBIT);
  EXPECT_EQ(block.XonLim, 100);
  EXPECT_EQ(block.XoffLim, 100);
  EXPECT_EQ(block.XonChar, 0x11);
  EXPECT_EQ(block.XoffChar, 0x13);
  EXPECT_EQ(block.EvtChar, 0x0A);
  EXPECT_TRUE(block.fBinary);
  EXPECT_FALSE(block.fParity || block.fNull || block.fErrorChar || block.fAbortOnError ||
               block.fDsrSensitivity);
}

TEST(Opener, RefusesWhatIsNoSerialPort) {
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  const SerialOpener open = SystemSerialPorts(*clock);
  for (const char* name : {"", "COM255", "\\\\.\\COM255", "NUL", "C:\\", "no such file"}) {
    EXPECT_FALSE(open(name)) << name;
  }
}

}  // namespace
}  // namespace zelorgas
