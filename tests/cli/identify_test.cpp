#include <gmock/gmock.h>

#include "cli/CliHarness.h"
#include "support/EcuOnLine.h"

namespace zelorgas {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using Unit = EcuOnLine::Unit;

constexpr const char* kPort = "/dev/ttyECU";
constexpr const char* kAdvice =
    "zelorgas-cli: This command does not replace firmware: zelorgas-cli flash does, and the "
    "firmware "
    "update of ZelorGAS.\n";

struct Identifying {
  explicit Identifying(SimulatedEcuOptions options = {}) : line(cli.clock, options) {
    cli.serial_ports = line.port.Opener();
  }
  CliHarness::Outcome Run(std::vector<std::string> words = {}) {
    words.insert(words.begin(), {"--port", kPort, "identify"});
    const CliHarness::Outcome run = cli.Run(words);
    EXPECT_EQ(line.port.open_devices, 0);
    return run;
  }
  std::string StoredPort() { return cli.settings.ReadString("Settings", "COMMPORT", ""); }

  CliHarness cli;
  EcuOnLine line;
};

TEST(Identify, AnApplication) {
  Identifying ecu;
  CliHarness::Outcome run = ecu.Run();
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            "vendor:   Tarnwick Ltd.\n"
            "product:  Petrol<=>GAS ECU Conversion kit\n"
            "revision: SV 0.39@HV 1.2\n"
            "software: 0.39\n"
            "hardware: 1.2\n"
            "serial:   ECU123456\n"
            "board:    0x5A47 0x0102 0x2B39\n"
            "mode:     application\n");
  EXPECT_EQ(ecu.StoredPort(), kPort);
  EXPECT_EQ(ecu.cli.interrupts_caught, 0) << "Ctrl+C ends it";
  run = ecu.Run({"--json"});
  EXPECT_EQ(run.out, R"({"vendor":"Tarnwick Ltd.","product":"Petrol<=>GAS ECU Conversion kit",)"
                     R"("revision":"SV 0.39@HV 1.2","software":"0.39","hardware":"1.2",)"
                     R"("serial":"ECU123456","board":[23111,258,11065],"mode":"application"})"
                     "\n");
}

// Whether this program can work with the ECU is for standard error and the exit status; who it is
// is printed all the same, as far as the procedure has asked.
TEST(Identify, EveryVersionAndTheBootloader) {
  const std::string all = R"("serial":"ECU123456","board":[23111,258,11065],"mode":"applic)";
  const std::string not_asked = R"("serial":null,"board":null,"mode":"application"})";
  const struct {
    SimulatedEcuOptions ecu;
    int status;
    std::string out, err;  // parts of them
  } cases[] = {
      {{.software_minor = 35}, 0, not_asked, ": ZelorGAS has detected an obsolete firmware"},
      {{.software_minor = 38}, 0, all, ": ZelorGAS has detected an obsolete firmware"},
      {{.software_minor = 40}, 1, not_asked, ": You have got a newer firmware version!\n"},
      {{.in_bootloader = true},
       0,
       R"("hardware":null,"serial":null,"board":null,"mode":"boot)",
       ": The ECU is in its bootloader"},
  };
  for (const auto& c : cases) {
    Identifying ecu(c.ecu);
    const CliHarness::Outcome run = ecu.Run({"--json"});
    EXPECT_EQ(run.status, c.status) << c.err;
    EXPECT_THAT(run.out, HasSubstr(c.out));
    EXPECT_THAT(run.out,
                HasSubstr("\"software\":\"0." + std::to_string(c.ecu.software_minor) + "\""));
    EXPECT_THAT(run.err, StartsWith("zelorgas-cli" + c.err));
    EXPECT_EQ(ecu.StoredPort(), kPort);
  }
  EXPECT_THAT(Identifying({.in_bootloader = true}).Run().out,
              EndsWith("hardware: ------\nserial:   ------\nboard:    ------\n"
                       "mode:     bootloader\n"));
}

TEST(Identify, TellsAStrangerFromABadLine) {
  Identifying ecu;
  ecu.line.instead = [](const Unit&) { return Unit{0x0B, 0xAB, 0x04}; };
  CliHarness::Outcome run = ecu.Run({"--json"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err,
            "zelorgas-cli: Couldn't establish connection with GASECU!\n"
            "Please check out cables and power supply!\n"
            "zelorgas-cli: Modbus device return an exception code4\n");
  EXPECT_EQ(ecu.line.requests.size(), 3U) << "each exchange is tried three times";
  EXPECT_EQ(Identifying({.vendor = "T"}).Run().err, "zelorgas-cli: Unrecognized Vendor Name!\n");
  EXPECT_EQ(ecu.StoredPort(), "");
}

TEST(Questions, AreAnsweredOnATerminalOnly) {
  const std::string advice = kAdvice;
  const struct {
    bool terminal;
    std::string typed;
    std::string after_question;
  } cases[] = {
      {true, "yes\r\n", "[y/n] " + advice},
      {true, "n\n", "[y/n] "},
      {true, "\nmaybe\nY\n", "[y/n] [y/n] [y/n] " + advice},
      {true, "perhaps", "[y/n] [y/n] \n"},
      {false, "y\n", "[y/n] n (there is no terminal to answer on)\n"},
  };
  for (const auto& c : cases) {
    Identifying ecu({.software_minor = 38});
    ecu.cli.terminal = c.terminal;
    ecu.cli.typed = c.typed;
    const CliHarness::Outcome run = ecu.Run({"--json"});
    EXPECT_EQ(run.status, 0) << c.typed;
    EXPECT_THAT(run.err, EndsWith("replace the existing firmware version? \n" + c.after_question));
    EXPECT_THAT(run.out, HasSubstr("ECU123456")) << "the connection goes on either way";
  }
}

}  // namespace
}  // namespace zelorgas
