#include "platform/TermiosSettings.h"

#include <algorithm>
#include <array>

namespace zelorgas {
namespace {

// Mark and space parity, where the system has them.
#ifdef CMSPAR
constexpr tcflag_t kStickParity = CMSPAR;
#else
constexpr tcflag_t kStickParity = 0;
#endif

constexpr cc_t kXon = 0x11;
constexpr cc_t kXoff = 0x13;

constexpr tcflag_t kInputProcessing = IGNBRK | BRKINT | IGNPAR | PARMRK | INPCK | ISTRIP | INLCR |
                                      IGNCR | ICRNL | IXON | IXOFF | IXANY;
constexpr tcflag_t kLineEditing = ECHO | ECHONL | ICANON | ISIG | IEXTEN;
constexpr tcflag_t kCharacterShape = CSIZE | PARENB | PARODD | kStickParity | CSTOPB;

struct Speed {
  std::uint32_t baud;
  speed_t code;
};

constexpr std::array kSpeeds = {
    Speed{50, B50},           Speed{75, B75},           Speed{110, B110},
    Speed{134, B134},         Speed{150, B150},         Speed{200, B200},
    Speed{300, B300},         Speed{600, B600},         Speed{1200, B1200},
    Speed{1800, B1800},       Speed{2400, B2400},       Speed{4800, B4800},
    Speed{9600, B9600},       Speed{19200, B19200},     Speed{38400, B38400},
    Speed{57600, B57600},     Speed{115200, B115200},   Speed{230400, B230400},
    Speed{460800, B460800},   Speed{500000, B500000},   Speed{576000, B576000},
    Speed{921600, B921600},   Speed{1000000, B1000000}, Speed{1152000, B1152000},
    Speed{1500000, B1500000}, Speed{2000000, B2000000}, Speed{2500000, B2500000},
    Speed{3000000, B3000000}, Speed{3500000, B3500000}, Speed{4000000, B4000000},
};

std::optional<tcflag_t> DataBitsFlag(std::uint8_t data_bits) {
  switch (data_bits) {
    case 5:
      return CS5;
    case 6:
      return CS6;
    case 7:
      return CS7;
    case 8:
      return CS8;
    default:
      return std::nullopt;
  }
}

std::optional<tcflag_t> ParityFlags(Parity parity) {
  switch (parity) {
    case Parity::kNone:
      return tcflag_t{0};
    case Parity::kOdd:
      return PARENB | PARODD;
    case Parity::kEven:
      return PARENB;
    case Parity::kMark:
      if (kStickParity != 0) return PARENB | PARODD | kStickParity;
      break;
    case Parity::kSpace:
      if (kStickParity != 0) return PARENB | kStickParity;
      break;
  }
  return std::nullopt;
}

std::optional<tcflag_t> StopBitsFlag(StopBits stop_bits, std::uint8_t data_bits) {
  if (stop_bits == StopBits::kOne) return tcflag_t{0};
  // The same flag means two stop bits, or one and a half for characters of 5 bits.
  const StopBits longer = data_bits == 5 ? StopBits::kOneAndHalf : StopBits::kTwo;
  if (stop_bits == longer) return CSTOPB;
  return std::nullopt;
}

}  // namespace

std::optional<termios> WithLineSettings(const termios& present, const LineSettings& settings) {
  const auto speed = std::find_if(kSpeeds.begin(), kSpeeds.end(),
                                  [&](const Speed& s) { return s.baud == settings.baud; });
  const std::optional<tcflag_t> data_bits = DataBitsFlag(settings.data_bits);
  const std::optional<tcflag_t> parity = ParityFlags(settings.parity);
  const std::optional<tcflag_t> stop_bits = StopBitsFlag(settings.stop_bits, settings.data_bits);
  if (speed == kSpeeds.end() || !data_bits || !parity || !stop_bits) return std::nullopt;
  if ((settings.flow_control & kFlowDsrDtr) != 0) return std::nullopt;

  termios wanted = present;
  wanted.c_iflag &= ~kInputProcessing;
  wanted.c_oflag &= ~static_cast<tcflag_t>(OPOST);
  wanted.c_lflag &= ~kLineEditing;
  wanted.c_cflag &= ~(kCharacterShape | CRTSCTS);
  wanted.c_cflag |= CREAD | CLOCAL | *data_bits | *parity | *stop_bits;
  if ((settings.flow_control & kFlowCtsRts) != 0) wanted.c_cflag |= CRTSCTS;
  if ((settings.flow_control & kFlowXonXoff) != 0) wanted.c_iflag |= IXON | IXOFF;
  wanted.c_cc[VSTART] = kXon;
  wanted.c_cc[VSTOP] = kXoff;
  // With a minimum of one byte a read that finds nothing says so, and a read of zero bytes is left
  // to mean that the line has been hung up.
  wanted.c_cc[VMIN] = 1;
  wanted.c_cc[VTIME] = 0;
  cfsetispeed(&wanted, speed->code);
  cfsetospeed(&wanted, speed->code);
  return wanted;
}

bool IsSameLine(const termios& wanted, const termios& actual, bool pseudo_terminal) {
  const auto same = [](tcflag_t a, tcflag_t b, tcflag_t mask) { return ((a ^ b) & mask) == 0; };
  return cfgetospeed(&wanted) == cfgetospeed(&actual) &&
         cfgetispeed(&wanted) == cfgetispeed(&actual) &&
         same(wanted.c_iflag, actual.c_iflag, kInputProcessing) &&
         same(wanted.c_oflag, actual.c_oflag, OPOST) &&
         same(wanted.c_lflag, actual.c_lflag, kLineEditing) &&
         wanted.c_cc[VMIN] == actual.c_cc[VMIN] && wanted.c_cc[VTIME] == actual.c_cc[VTIME] &&
         (pseudo_terminal || same(wanted.c_cflag, actual.c_cflag, kCharacterShape));
}

}  // namespace zelorgas
