#include <gtest/gtest.h>
#include <windows.h>

#include "platform/ControlBlockWin32.h"
#include "platform/OverlappedWin32.h"
#include "platform/SerialDevice.h"
#include "platform/WideText.h"

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

TEST(ControlBlock, EachFlowControlBitHasItsOwnFields) {
  for (unsigned flags = 0; flags < 8; ++flags) {
    const DCB block = MakeControlBlock({.flow_control = static_cast<std::uint8_t>(flags)});
    const bool dsr = (flags & 1U) != 0;
    const bool cts = (flags & 2U) != 0;
    const bool xon = (flags & 4U) != 0;
    EXPECT_EQ(block.fOutxDsrFlow, dsr) << flags;
    EXPECT_EQ(block.fDtrControl == DTR_CONTROL_HANDSHAKE, dsr) << flags;
    EXPECT_EQ(block.fDtrControl == DTR_CONTROL_ENABLE, !dsr) << flags;
    EXPECT_EQ(block.fOutxCtsFlow, cts) << flags;
    EXPECT_EQ(block.fRtsControl == RTS_CONTROL_HANDSHAKE, cts) << flags;
    EXPECT_EQ(block.fRtsControl == RTS_CONTROL_ENABLE, !cts) << flags;
    EXPECT_EQ(block.fOutX, xon) << flags;
    EXPECT_EQ(block.fInX, xon) << flags;
  }
}

TEST(ControlBlock, TimeoutsKeepTheirFieldsBothWays) {
  const PortTimeouts timeouts{1, 2, 3, 4, 5};
  const COMMTIMEOUTS record = ToCommTimeouts(timeouts);
  EXPECT_EQ(record.ReadIntervalTimeout, 1U);
  EXPECT_EQ(record.ReadTotalTimeoutMultiplier, 2U);
  EXPECT_EQ(record.WriteTotalTimeoutConstant, 5U);
  EXPECT_EQ(FromCommTimeouts(record), timeouts);
}

TEST(Opener, RefusesWhatIsNoSerialPort) {
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  const SerialOpener open = SystemSerialPorts(*clock);
  for (const char* name : {"", "COM255", "\\\\.\\COM255", "NUL", "C:\\", "no such file"}) {
    EXPECT_FALSE(open(name)) << name;
  }
}

TEST(SystemErrors, OnlySomeMeanThatThePortIsGone) {
  for (const DWORD error : {ERROR_GEN_FAILURE, ERROR_BAD_COMMAND, ERROR_ACCESS_DENIED,
                            ERROR_DEVICE_NOT_CONNECTED, ERROR_DEVICE_REMOVED}) {
    EXPECT_TRUE(MeansUnplugged(error)) << error;
  }
  for (const DWORD error :
       {ERROR_OPERATION_ABORTED, ERROR_SEM_TIMEOUT, ERROR_INVALID_PARAMETER, ERROR_NOT_SUPPORTED}) {
    EXPECT_FALSE(MeansUnplugged(error)) << error;
  }
}

TEST(WideText, KeepsTextThatIsNotAscii) {
  const std::string text = "Сериен порт €";
  EXPECT_EQ(ToUtf8(ToWide(text)), text);
  EXPECT_EQ(ToWide("COM10"), L"COM10");
  EXPECT_TRUE(ToWide("").empty());
}

}  // namespace
}  // namespace zelorgas
