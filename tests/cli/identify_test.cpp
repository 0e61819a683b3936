#include <gmock/gmock.h>

#include "cli/CliHarness.h"
#include "support/EcuOnLine.h"

namespace zelorgas {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

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
