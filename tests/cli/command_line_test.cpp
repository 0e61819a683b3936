#include <gmock/gmock.h>

#include "cli/CliHarness.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using Words = std::vector<std::string>;

Words Numbers(std::size_t count) { return Words(count, "1"); }

Words operator+(Words left, const Words& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

TEST(CommandLine, WrongOnesGetUsageHelpAndOpenNoPort) {
  const struct {
    Words words;
    std::string_view message;
  } cases[] = {
      {{}, "no command given"},
      {{"--json"}, "no command given"},
      {{"indentify"}, "there is no command \"indentify\""},
      {{""}, "there is no command \"\""},
      {{"--bogus", "identify"}, "there is no option --bogus"},
      {{"identify", "--port=sim"}, "there is no option --port=sim"},
      {{"identify", "--port"}, "--port needs a value"},
      {{"identify", "--port", ""}, "--port needs a value"},
      {{"identify", "--trace"}, "--trace needs a value"},
      {{"identify", "--attempts"}, "--attempts needs a value"},
      {{"identify", "--attempts", "0"}, "--attempts takes a number from 1 to 100, not \"0\""},
      {{"identify", "--attempts", "101"}, "--attempts takes a number from 1 to 100, not \"101\""},
      {{"identify", "--attempts", "3x"}, "--attempts takes a number from 1 to 100, not \"3x\""},
      {{"identify", "--port", "COM0"}, "COM takes a number from 1 to 255, not \"0\""},
      {{"identify", "--port", "com256"}, "COM takes a number from 1 to 255, not \"256\""},
      {{"identify", "--seconds", "1"}, "there is no option --seconds"},
      {{"--seconds", "1", "live"}, "there is no option --seconds"},
      {{"live", "now"}, "live takes no arguments"},
      {{"live", "--seconds"}, "--seconds needs a value"},
      {{"live", "--seconds", "1", "--csv"}, "--csv needs a value"},
      {{"live", "--seconds", "0"}, "--seconds takes a number of seconds from 0.001 to 10000000"},
      {{"live", "--seconds", "soon"}, "--seconds takes a number of seconds from 0.001 to 10000000"},
      {{"identify", "now"}, "identify takes no arguments"},
      {{"ports", "all"}, "ports takes no arguments"},
      {{"get"}, "get needs the name of a parameter"},
      {{"get", "RPM_RATIO", "RPM_RATOI"},
       "there is no parameter \"RPM_RATOI\"; the nearest names are RPM_RATIO"},
      {{"get", "65536"}, "a register takes a number from 0 to 65535, not \"65536\""},
      {{"get", "0x"}, "a register takes a number from 0 to 65535, not \"0x\""},
      {{"get", "12a"}, "a register takes a number from 0 to 65535, not \"12a\""},
      {{"set"}, "set needs NAME=VALUE"},
      {{"set", "RPM_RATIO"}, "\"RPM_RATIO\" is not NAME=VALUE"},
      {{"set", "RPM_RATIO", "=", "5"}, "\"RPM_RATIO\" is not NAME=VALUE"},
      {{"set", "=5"}, "there is no parameter \"\""},
      {{"set", "RPM_RATIO="}, "RPM_RATIO takes a number from 0 to 65535, not \"\""},
      {{"set", "RPM_RATIO=1=2"}, "RPM_RATIO takes a number from 0 to 65535, not \"1=2\""},
      {{"set", "RPM_RATIO=-1"}, "RPM_RATIO takes a number from 0 to 65535, not \"-1\""},
      {{"set", "RPM_RATIO=65536"}, "RPM_RATIO takes a number from 0 to 65535, not \"65536\""},
      {{"set", "LAMBDA_INVERSE=2"}, "LAMBDA_INVERSE takes a number from 0 to 1, not \"2\""},
      {{"set", "RPM_RATIO=5", "NCYLINDERS=four"}, "NCYLINDERS takes a number from 0 to 65535"},
      {{"set", "LAMBDA_OXYGENRANGE=0x8000"},
       "LAMBDA_OXYGENRANGE takes a number from 0 to 32767, not \"0x8000\""},
      {{"set", "ncylinders=4"}, "there is no parameter \"ncylinders\"; the nearest names are NCYL"},
      {{"set", "NCYLINDERS=4", "NCYLINDERS=6"}, "\"NCYLINDERS=6\" sets what NCYLINDERS has set"},
      {{"set", "NCYLINDERS=4", "284=6"}, "\"284=6\" sets what NCYLINDERS has set"},
      {{"set", "0x144=1", "LAMBDA_INVERSE=1"}, "\"LAMBDA_INVERSE=1\" sets what 0x144 has set"},
      {{"modbus"}, "modbus needs to know what to do"},
      {{"modbus", "coil", "1", "1"}, "modbus knows no \"coil\""},
      {{"modbus", "coils", "1"}, "this form takes START COUNT"},
      {{"modbus", "coils", "1", "1", "1"}, "this form takes START COUNT"},
      {{"modbus", "coils", "0", "0"}, "COUNT takes a number from 1 to 2000, not \"0\""},
      {{"modbus", "inputs", "0", "2001"}, "COUNT takes a number from 1 to 2000"},
      {{"modbus", "holding", "0", "126"}, "COUNT takes a number from 1 to 125"},
      {{"modbus", "input", "0x10000", "1"}, "START takes a number from 0 to 65535"},
      {{"modbus", "holding", "65535", "2"}, "the addresses run past 65535"},
      {{"modbus", "holding", "0", "1e2"}, "COUNT takes a number from 1 to 125, not \"1e2\""},
      {{"modbus", "write-coil", "4"}, "this form takes A and on or off"},
      {{"modbus", "write-coil", "4", "1"}, "this form takes A and on or off"},
      {{"modbus", "write-coil", "x", "on"}, "A takes a number from 0 to 65535, not \"x\""},
      {{"modbus", "write-register", "4"}, "this form takes A V"},
      {{"modbus", "write-register", "4", "-1"}, "V takes a number from 0 to 65535, not \"-1\""},
      {{"modbus", "write-registers", "4"}, "this form takes A and 1 to 123 values"},
      {Words{"modbus", "write-registers"} + Numbers(125), "this form takes A and 1 to 123 values"},
      {{"modbus", "write-registers", "65535", "1", "2"}, "the addresses run past 65535"},
      {{"modbus", "fifo"}, "this form takes P"},
      {{"modbus", "identify", "1"}, "this form takes CODE OBJECT"},
      {{"modbus", "identify", "0", "0"}, "CODE takes a number from 1 to 4"},
      {{"modbus", "identify", "1", "256"}, "OBJECT takes a number from 0 to 255"},
  };
  for (const auto& c : cases) {
    CliHarness cli;
    int opened = 0;
    cli.serial_ports = [&](const std::string&) { return ++opened, nullptr; };
    // All but the cases about --port itself name a port, so that nothing else can be wrong.
    const bool names_port = std::ranges::find(c.words, "--port") != c.words.end();
    const Words port = names_port ? Words{} : Words{"--port", "/dev/ttyNONE"};
    const CliHarness::Outcome run = cli.Run(port + c.words);
    const std::string name = testing::PrintToString(c.words);
    EXPECT_EQ(run.status, 2) << name;
    EXPECT_EQ(run.out, "") << name;
    EXPECT_THAT(run.err, StartsWith("zelorgas-cli: " + std::string(c.message))) << name;
    EXPECT_THAT(run.err, HasSubstr("\nusage: zelorgas-cli ")) << name;
    EXPECT_EQ(opened, 0) << name;
  }
}

TEST(CommandLine, UsageHelpIsThatOfTheCommand) {
  CliHarness cli;
  EXPECT_THAT(cli.Run({"set", "X"}).err, HasSubstr("usage: zelorgas-cli [OPTIONS] set NAME=VALUE"));
  EXPECT_THAT(cli.Run({"modbus"}).err,
              HasSubstr("usage: zelorgas-cli [OPTIONS] modbus write-coil A on|off\n"));
}

TEST(CommandLine, HelpListsEveryCommand) {
  CliHarness cli;
  for (const Words& words :
       {Words{"--help"}, Words{"set", "--help"}, Words{"nonsense", "--help"}}) {
    const CliHarness::Outcome run = cli.Run(words);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_THAT(run.out, StartsWith("usage: zelorgas-cli [--port PORT] [--json] [--trace FILE] "
                                    "[--attempts N] COMMAND\n"));
    for (const std::string_view form : {"ports", "identify", "get NAME...", "set NAME=VALUE...",
                                        "live [--seconds S] [--csv FILE]", "modbus fifo P"}) {
      EXPECT_THAT(run.out, HasSubstr("\n  " + std::string(form) + "\n"));
    }
  }
}

TEST(CommandLine, NeedsAPortForTheEcu) {
  for (const std::string_view command : {"identify", "live"}) {
    CliHarness cli;
    const CliHarness::Outcome run = cli.Run({std::string(command)});
    EXPECT_EQ(run.status, 2) << command;
    EXPECT_EQ(run.out, "") << command;
    EXPECT_THAT(run.err, StartsWith("zelorgas-cli: no port given, and none used before"))
        << command;
  }
}

TEST(CommandLine, ThePortUsedLastStandsInForTheOption) {
  CliHarness cli;
  Words tried;
  cli.serial_ports = [&](const std::string& name) { return tried.push_back(name), nullptr; };
  cli.settings.WriteString("Settings", "COMMPORT", "COM7");
  EXPECT_EQ(cli.Run({"get", "RPM_RATIO"}).status, 1);
  EXPECT_THAT(tried, ElementsAre("COM7", "\\\\.\\COM7"));
  EXPECT_EQ(cli.Run({"identify", "--port", "/dev/ttyUSB0"}).status, 1);
  EXPECT_EQ(tried.back(), "/dev/ttyUSB0");
  EXPECT_EQ(cli.settings.ReadString("Settings", "COMMPORT", ""), "COM7") << "not connected";
}

TEST(CommandLine, PortNamesReachTheRightOpener) {
  const struct {
    std::string_view port;
    Words serial, simulated;  // the names tried, when none opens
  } cases[] = {
      {"/dev/ttyUSB0", {"/dev/ttyUSB0"}, {}},
      {"COM3", {"COM3", "\\\\.\\COM3"}, {}},
      {"com255", {"COM255", "\\\\.\\COM255"}, {}},
      {"\\\\.\\COM12", {"\\\\.\\COM12"}, {}},
      {"COM", {"COM"}, {}},
      {"COMPORT", {"COMPORT"}, {}},
      {"sim", {}, {"sim"}},
  };
  for (const auto& c : cases) {
    CliHarness cli;
    Words serial;
    Words simulated;
    cli.serial_ports = [&](const std::string& name) { return serial.push_back(name), nullptr; };
    cli.simulated_ecu = [&](const std::string& name) { return simulated.push_back(name), nullptr; };
    const CliHarness::Outcome run = cli.Run({"identify", "--port", std::string(c.port)});
    EXPECT_EQ(run.status, 1) << c.port;
    EXPECT_EQ(run.out, "") << c.port;
    EXPECT_EQ(run.err, "zelorgas-cli: Sorry! The specified COM port is busy!\n") << c.port;
    EXPECT_EQ(serial, c.serial) << c.port;
    EXPECT_EQ(simulated, c.simulated) << c.port;
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
