#include <gmock/gmock.h>

#include "cli/CliHarness.h"
#include "cli/EcuOnLine.h"

namespace zelorgas {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;
using Unit = EcuOnLine::Unit;

constexpr const char* kPort = "/dev/ttyECU";
constexpr const char* kAdvice =
    "zelorgas-cli: This command does not replace firmware: use the firmware update of ZelorGAS.\n";

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
  constexpr const char* kAll = R"("serial":"ECU123456","board":[23111,258,11065],)";
  constexpr const char* kNotAsked = R"("serial":null,"board":null,)";
  constexpr const char* kOffer =
      "zelorgas-cli: ZelorGAS has detected an obsolete firmware version!\n";
  const struct {
    SimulatedEcuOptions ecu;
    int status;
    std::string end;
    std::string messages;  // how they begin
  } cases[] = {
      {{.software_minor = 35}, 0, std::string(kNotAsked) + R"("mode":"application"})", kOffer},
      {{.software_minor = 36}, 0, std::string(kAll) + R"("mode":"application"})", kOffer},
      {{.software_minor = 38}, 0, std::string(kAll) + R"("mode":"application"})", kOffer},
      {{.software_minor = 39}, 0, std::string(kAll) + R"("mode":"application"})", ""},
      {{.software_minor = 40},
       1,
       std::string(kNotAsked) + R"("mode":"application"})",
       "zelorgas-cli: You have got a newer firmware version!\n"},
      {{.software_major = 1},
       1,
       std::string(kNotAsked) + R"("mode":"application"})",
       "zelorgas-cli: You have got a newer firmware version!\n"},
      {{.in_bootloader = true},
       0,
       std::string(R"("hardware":null,)") + kNotAsked + R"("mode":"bootloader"})",
       "zelorgas-cli: The ECU is in its bootloader"},
  };
  for (const auto& c : cases) {
    Identifying ecu(c.ecu);
    const CliHarness::Outcome run = ecu.Run({"--json"});
    const std::string software =
        std::to_string(c.ecu.software_major) + "." + std::to_string(c.ecu.software_minor);
    EXPECT_EQ(run.status, c.status) << software;
    EXPECT_THAT(run.out, HasSubstr("\"software\":\"" + software + "\"")) << software;
    EXPECT_THAT(run.out, EndsWith(c.end + "\n")) << software;
    EXPECT_THAT(run.err, StartsWith(c.messages)) << software;
    EXPECT_EQ(run.err.empty(), c.messages.empty()) << software;
    EXPECT_EQ(ecu.StoredPort(), kPort) << software;
  }
}

TEST(Identify, ABootloaderDoesNotKnowEverything) {
  Identifying ecu({.in_bootloader = true});
  EXPECT_THAT(ecu.Run().out, EndsWith("software: 0.39\n"
                                      "hardware: ------\n"
                                      "serial:   ------\n"
                                      "board:    ------\n"
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
  ecu.line.instead = [](const Unit&) {
    return Unit{0x0B, 0x2B, 0x0E, 0x01, 0x82, 0, 0, 3, 0, 1, 'T', 1, 1, 'P', 2, 1, 'R'};
  };
  run = ecu.Run();
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zelorgas-cli: Unrecognized Vendor Name!\n");
  EXPECT_EQ(ecu.StoredPort(), "");
}

TEST(Questions, AreAnsweredOnATerminalOnly) {
  constexpr const char* kQuestion = "Do you want to replace the existing firmware version? \n";
  const struct {
    bool terminal;
    std::string typed;
    std::string after_question;
  } cases[] = {
      {true, "y\n", std::string("[y/n] ") + kAdvice},
      {true, "yes\r\n", std::string("[y/n] ") + kAdvice},
      {true, "n\n", "[y/n] "},
      {true, "\nmaybe\nY\n", std::string("[y/n] [y/n] [y/n] ") + kAdvice},
      {true, "", "[y/n] \n"},
      {true, "perhaps", "[y/n] [y/n] \n"},
      {false, "y\n", "[y/n] n (there is no terminal to answer on)\n"},
  };
  for (const auto& c : cases) {
    Identifying ecu({.software_minor = 38});
    ecu.cli.terminal = c.terminal;
    ecu.cli.typed = c.typed;
    const CliHarness::Outcome run = ecu.Run({"--json"});
    EXPECT_EQ(run.status, 0) << c.typed;
    EXPECT_THAT(run.err, EndsWith(kQuestion + c.after_question)) << c.typed;
    EXPECT_THAT(run.out, HasSubstr("ECU123456")) << "the connection goes on either way";
  }
}

}  // namespace
}  // namespace zelorgas
