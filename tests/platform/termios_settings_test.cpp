#include <gtest/gtest.h>

#include "platform/TermiosSettings.h"

namespace zelorgas {
namespace {

// A terminal as a login shell leaves it.
termios CookedTerminal() {
  termios t{};
  t.c_iflag = ICRNL | IXON | IXANY | INPCK | ISTRIP | BRKINT;
  t.c_oflag = OPOST | ONLCR;
  t.c_lflag = ICANON | ECHO | ISIG | IEXTEN;
  t.c_cflag = CS8 | CREAD | HUPCL | CSTOPB | CRTSCTS;
  cfsetspeed(&t, B38400);
  return t;
}

TEST(TermiosSettings, CharacterShapeFollowsTheSettings) {
  struct Row {
    LineSettings settings;
    tcflag_t shape;
    speed_t speed;
  };
  const Row rows[] = {
      {{.baud = 19200, .data_bits = 7, .parity = Parity::kEven}, CS7 | PARENB, B19200},
      {{.baud = 9600}, CS8, B9600},
      {{.parity = Parity::kOdd, .stop_bits = StopBits::kTwo},
       CS8 | PARENB | PARODD | CSTOPB,
       B9600},
      {{.data_bits = 6, .parity = Parity::kMark}, CS6 | PARENB | PARODD | CMSPAR, B9600},
      {{.baud = 921600, .parity = Parity::kSpace}, CS8 | PARENB | CMSPAR, B921600},
      {{.baud = 50, .data_bits = 5, .stop_bits = StopBits::kOneAndHalf}, CS5 | CSTOPB, B50},
  };
  for (const Row& row : rows) {
    const std::optional<termios> t = WithLineSettings(CookedTerminal(), row.settings);
    ASSERT_TRUE(t);
    EXPECT_EQ(t->c_cflag & (CSIZE | PARENB | PARODD | CMSPAR | CSTOPB), row.shape);
    EXPECT_EQ(cfgetospeed(&*t), row.speed);
    EXPECT_EQ(cfgetispeed(&*t), row.speed);
  }
}

TEST(TermiosSettings, LineIsRawAndParityUncheckedExceptForFlowControl) {
  const struct {
    std::uint8_t flow;
    tcflag_t hardware, input;
  } cases[] = {{0, 0, 0}, {kFlowCtsRts, CRTSCTS, 0}, {kFlowXonXoff, 0, IXON | IXOFF}};
  for (const auto& c : cases) {
    const std::optional<termios> t =
        WithLineSettings(CookedTerminal(), {.parity = Parity::kEven, .flow_control = c.flow});
    ASSERT_TRUE(t);
    EXPECT_EQ(t->c_iflag, c.input);
    EXPECT_EQ(t->c_oflag & OPOST, tcflag_t{0});
    EXPECT_EQ(t->c_lflag, tcflag_t{0});
    EXPECT_EQ(t->c_cflag & (CRTSCTS | CREAD | CLOCAL | HUPCL), c.hardware | CREAD | CLOCAL | HUPCL);
    EXPECT_EQ(t->c_cc[VSTART], 0x11);
    EXPECT_EQ(t->c_cc[VSTOP], 0x13);
  }
}

}  // namespace
}  // namespace zelorgas
