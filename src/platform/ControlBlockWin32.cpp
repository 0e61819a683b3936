#include "platform/ControlBlockWin32.h"

namespace zelorgas {
namespace {

constexpr WORD kXonLimit = 100;
constexpr WORD kXoffLimit = 100;
constexpr char kXon = 0x11;
constexpr char kXoff = 0x13;

}  // namespace

DCB MakeControlBlock(const LineSettings& settings) {
  const bool dsr_dtr = (settings.flow_control & kFlowDsrDtr) != 0;
  const bool cts_rts = (settings.flow_control & kFlowCtsRts) != 0;
  const bool xon_xoff = (settings.flow_control & kFlowXonXoff) != 0;
  DCB block{};
  block.DCBlength = sizeof(block);
  block.BaudRate = settings.baud;
  block.fBinary = TRUE;
  // A damaged character is the frame check's business, and comes through as it is.
  block.fParity = FALSE;
  block.ByteSize = settings.data_bits;
  block.Parity = static_cast<BYTE>(settings.parity);
  block.StopBits = static_cast<BYTE>(settings.stop_bits);
  block.fOutxDsrFlow = dsr_dtr ? TRUE : FALSE;
  block.fDtrControl = dsr_dtr ? DTR_CONTROL_HANDSHAKE : DTR_CONTROL_ENABLE;
  block.fOutxCtsFlow = cts_rts ? TRUE : FALSE;
  block.fRtsControl = cts_rts ? RTS_CONTROL_HANDSHAKE : RTS_CONTROL_ENABLE;
  block.fOutX = xon_xoff ? TRUE : FALSE;
  block.fInX = xon_xoff ? TRUE : FALSE;
  block.XonLim = kXonLimit;
  block.XoffLim = kXoffLimit;
  block.XonChar = kXon;
  block.XoffChar = kXoff;
  block.EvtChar = settings.event_character;
  return block;
}

COMMTIMEOUTS ToCommTimeouts(const PortTimeouts& timeouts) {
  COMMTIMEOUTS record{};
  record.ReadIntervalTimeout = timeouts.read_interval;
  record.ReadTotalTimeoutMultiplier = timeouts.read_total_multiplier;
  record.ReadTotalTimeoutConstant = timeouts.read_total_constant;
  record.WriteTotalTimeoutMultiplier = timeouts.write_total_multiplier;
  record.WriteTotalTimeoutConstant = timeouts.write_total_constant;
  return record;
}

PortTimeouts FromCommTimeouts(const COMMTIMEOUTS& timeouts) {
  PortTimeouts fields;
  fields.read_interval = timeouts.ReadIntervalTimeout;
  fields.read_total_multiplier = timeouts.ReadTotalTimeoutMultiplier;
  fields.read_total_constant = timeouts.ReadTotalTimeoutConstant;
  fields.write_total_multiplier = timeouts.WriteTotalTimeoutMultiplier;
  fields.write_total_constant = timeouts.WriteTotalTimeoutConstant;
  return fields;
}

}  // namespace zelorgas
