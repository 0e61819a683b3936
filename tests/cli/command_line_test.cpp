#include <gmock/gmock.h>

#include <utility>

#include "cli/CliHarness.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Words = std::vector<std::string>;

TEST(CommandLine, WrongOnesGetUsageHelpAndOpenNoPort) {
  std::string many;
  for (int i = 0; i < 125; ++i) many += " 1";
  const std::pair<std::string, std::string> cases[] = {
      {"", "no command given"},
      {"indentify", "there is no command \"indentify\""},
      {"--bogus identify", "there is no option --bogus"},
      {"--port --json identify", "--port needs a value"},
      {"identify --attempts 0", "--attempts takes a number from 1 to 100, not \"0\""},
      {"identify --port com256", "COM takes a number from 1 to 255, not \"256\""},
      {"live --seconds soon", "--seconds takes a number of seconds from 0.001 to 10000000"},
      {"get", "get needs the name of a parameter"},
      {"get RPM_RATIO RPM_RATOI",
       "there is no parameter \"RPM_RATOI\"; the nearest names are RPM_RATIO"},
      {"get \x1B[31m\n", "there is no parameter \"\\x1B[31m\\n\""},
      {"set", "set needs NAME=VALUE"},
      {"set RPM_RATIO", "\"RPM_RATIO\" is not NAME=VALUE"},
      {"set LAMBDA_INVERSE=2", "LAMBDA_INVERSE takes a number from 0 to 1, not \"2\""},
      {"set ncylinders=4", "there is no parameter \"ncylinders\"; the nearest names are NCYL"},
      {"set NCYLINDERS=4 284=6", "\"284=6\" sets what NCYLINDERS has set"},
      {"set INJECTOR_TYPE=RAIL 273=1", "\"273=1\" sets what TSPEEDUP_DELAY has set"},
      {"set INJECTOR_TYPE=EMPTY", "\"EMPTY\" cannot be chosen"},
      {"set TGAS_SENSOR_TYPE=valtek",
       "TGAS_SENSOR_TYPE takes a number from 0 to 65535, Zelor-T740429; not \"valtek\""},
      {"clear-error temporary --yes", "clear-error needs a bank and a code"},
      {"modbus coil 1 1", "modbus knows no \"coil\""},
      {"modbus coils 0 0", "COUNT takes a number from 1 to 2000, not \"0\""},
      {"modbus holding 0 126", "COUNT takes a number from 1 to 125"},
      {"modbus holding 65535 2", "the addresses run past 65535"},
      {"modbus write-coil 4 1", "this form takes A and on or off"},
      {"modbus write-registers" + many, "this form takes A and 1 to 123 values"},
      {"modbus identify 0 0", "CODE takes a number from 1 to 4"},
  };
  for (const auto& [line, message] : cases) {
    CliHarness cli;
    int opened = 0;
    cli.serial_ports = [&](const std::string&) { return ++opened, nullptr; };
    // All but the cases about --port itself name a port, so that nothing else can be wrong.
    Words words = SplitWords(line);
    if (line.find("--port") == std::string::npos) {
      words.insert(words.begin(), {"--port", "/dev/ttyNONE"});
    }
    const CliHarness::Outcome run = cli.Run(words);
    EXPECT_EQ(run.status, 2) << line;
    EXPECT_EQ(run.out, "") << line;
    EXPECT_THAT(run.err, StartsWith("zelorgas-cli: " + message)) << line;
    EXPECT_THAT(run.err, HasSubstr("\nusage: zelorgas-cli ")) << line;
    EXPECT_EQ(opened, 0) << line;
  }
}

TEST(CommandLine, NeedsAPortForTheEcu) {
  for (const char* command : {"identify", "live", "get 256"}) {
    const CliHarness::Outcome run = CliHarness().Run(SplitWords(command));
    EXPECT_EQ(run.status, 2) << command;
    EXPECT_EQ(run.out, "") << command;
    EXPECT_THAT(run.err, StartsWith("zelorgas-cli: no port given, and none used before"));
  }
}

TEST(CommandLine, PortNamesReachTheRightOpener) {
  const struct {
    std::string port;  // empty: COM7, the one used last
    Words tried;
  } cases[] = {
      {"", {"COM7", "\\\\.\\COM7"}},
      {"/dev/ttyUSB0", {"/dev/ttyUSB0"}},
      {"com255", {"COM255", "\\\\.\\COM255"}},
      {"\\\\.\\COM12", {"\\\\.\\COM12"}},
      {"COM", {"COM"}},
      {"COMPORT", {"COMPORT"}},
      {"sim", {"simulated sim"}},
  };
  for (const auto& c : cases) {
    CliHarness cli;
    Words tried;
    cli.serial_ports = [&](const std::string& name) { return tried.push_back(name), nullptr; };
    cli.simulated_ecu = [&](const std::string& name) {
      return tried.push_back("simulated " + name), nullptr;
    };
    cli.settings.WriteString("Settings", "COMMPORT", "COM7");
    Words words{"identify"};
    if (!c.port.empty()) words.insert(words.end(), {"--port", c.port});
    const CliHarness::Outcome run = cli.Run(words);
    EXPECT_EQ(run.status, 1) << c.port;
    EXPECT_EQ(run.out, "") << c.port;
    EXPECT_EQ(run.err, "zelorgas-cli: Sorry! The specified COM port is busy!\n") << c.port;
    EXPECT_EQ(tried, c.tried) << c.port;
    EXPECT_EQ(cli.settings.ReadString("Settings", "COMMPORT", ""), "COM7") << "not connected";
  }
}

TEST(Ports, AreListedOneALine) {
  CliHarness cli;
  EXPECT_EQ(cli.Run({"ports"}).out, "");
  EXPECT_EQ(cli.Run({"ports", "--json"}).out, "{\"ports\":[]}\n");
  cli.ports = {{"/dev/ttyS0", ""}, {"/dev/ttyUSB0", "USB \"Serial\" \xFF"}};
  CliHarness::Outcome run = cli.Run({"ports"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "/dev/ttyS0\n/dev/ttyUSB0\tUSB \"Serial\" \xFF\n");
  EXPECT_EQ(cli.Run({"--json", "ports"}).out,
            R"({"ports":[{"name":"/dev/ttyS0","product":""},)"
            R"({"name":"/dev/ttyUSB0","product":"USB \"Serial\" \u00ff"}]})"
            "\n");
}

}  // namespace
}  // namespace zelorgas
