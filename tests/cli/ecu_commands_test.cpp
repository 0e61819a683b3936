#include <gmock/gmock.h>

#include <cstdio>
#include <fstream>

#include "cli/CliHarness.h"
#include "cli/EcuOnLine.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;
using Unit = EcuOnLine::Unit;
using Words = std::vector<std::string>;

constexpr std::uint8_t kWriteRegisterFunction = 6;

class EcuCommands : public testing::Test {
 protected:
  CliHarness::Outcome Run(const Words& words) {
    cli_.serial_ports = line_.port.Opener();
    Words arguments{"--port", "/dev/ttyECU"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return cli_.Run(arguments);
  }

  // Expects success with nothing on standard error, and gives standard output.
  std::string Print(const Words& words) {
    const CliHarness::Outcome run = Run(words);
    EXPECT_EQ(run.status, 0) << testing::PrintToString(words);
    EXPECT_EQ(run.err, "") << testing::PrintToString(words);
    return run.out;
  }

  // Expects failure with these messages and nothing on standard output.
  void ExpectRefused(const Words& words, std::string_view messages) {
    const CliHarness::Outcome run = Run(words);
    EXPECT_EQ(run.status, 1) << testing::PrintToString(words);
    EXPECT_EQ(run.out, "") << testing::PrintToString(words);
    EXPECT_EQ(run.err, messages) << testing::PrintToString(words);
  }

  std::size_t Writes() const {
    return static_cast<std::size_t>(std::ranges::count_if(
        line_.requests, [](const Unit& request) { return request[1] == kWriteRegisterFunction; }));
  }

  CliHarness cli_;
  EcuOnLine line_{cli_.clock};
};

TEST_F(EcuCommands, UseTheLineOfTheEcu) {
  Print({"modbus", "holding", "256", "1"});
  EXPECT_EQ(line_.port.settings.baud, 19200U);
  EXPECT_EQ(line_.port.settings.data_bits, 7);
  EXPECT_EQ(line_.port.settings.parity, Parity::kEven);
  EXPECT_EQ(line_.port.settings.stop_bits, StopBits::kOne);
  EXPECT_EQ(line_.port.settings.flow_control, 0);
  EXPECT_EQ(line_.port.open_devices, 0);
}

TEST_F(EcuCommands, GetTakesNamesAndNumbers) {
  line_.ecu.SetRegister(284, 6);
  line_.ecu.SetRegister(324, 0x8002);
  const Words asked{"get",    "NCYLINDERS", "284", "0x144", "LAMBDA_INVERSE", "LAMBDA_OXYGENRANGE",
                    "0x4000", "NCYLINDERS"};
  EXPECT_EQ(Print(asked),
            "NCYLINDERS=6\n284=6\n0x144=32770\nLAMBDA_INVERSE=1\nLAMBDA_OXYGENRANGE=2\n"
            "0x4000=23111\n");
  Words as_json = asked;
  as_json.emplace_back("--json");
  EXPECT_EQ(Print(as_json),
            R"({"NCYLINDERS":6,"284":6,"0x144":32770,"LAMBDA_INVERSE":1,"LAMBDA_OXYGENRANGE":2,)"
            R"("0x4000":23111})"
            "\n");
  ExpectRefused({"get", "NCYLINDERS", "1000", "--json"},
                "zelorgas-cli: 1000: Modbus device return an exception code2\n");
}

TEST_F(EcuCommands, SetWritesAndReadsBack) {
  ConfigurationBlock expected = line_.ecu.Block();
  expected[28] = 8;
  expected[255] = 0xBEEF;
  EXPECT_EQ(Print({"set", "NCYLINDERS=8", "0x1FF=0xBEEF"}), "NCYLINDERS=8\n0x1FF=48879\n");
  EXPECT_EQ(line_.ecu.Block(), expected);
  expected[0] = 65535;
  EXPECT_EQ(Print({"--json", "set", "TEMP_COLD_ENG=65535"}), "{\"TEMP_COLD_ENG\":65535}\n");
  EXPECT_EQ(line_.ecu.Block(), expected);
  EXPECT_EQ(Writes(), 3U);
}

TEST_F(EcuCommands, SetChangesOnlyTheBitsOfAPackedParameter) {
  const struct {
    std::uint16_t before;
    Words assignments;
    std::uint16_t after;
  } cases[] = {
      {0x0003, {"LAMBDA_INVERSE=1"}, 0x8003},
      {0x8003, {"LAMBDA_INVERSE=0"}, 0x0003},
      {0x8003, {"LAMBDA_OXYGENRANGE=0"}, 0x8000},
      {0x0000, {"LAMBDA_OXYGENRANGE=0x7FFF"}, 0x7FFF},
      {0x1234, {"LAMBDA_INVERSE=1", "LAMBDA_OXYGENRANGE=2"}, 0x8002},
  };
  for (const auto& c : cases) {
    line_.ecu.SetRegister(324, c.before);
    Words words{"set"};
    words.insert(words.end(), c.assignments.begin(), c.assignments.end());
    Print(words);
    EXPECT_EQ(line_.ecu.Register(324), c.after) << testing::PrintToString(c.assignments);
  }
}

TEST_F(EcuCommands, SetSaysWhichWereWritten) {
  line_.instead = [](const Unit& request) -> std::optional<Unit> {
    const bool to_tpsmax =
        request[1] == kWriteRegisterFunction && request[2] == 1 && request[3] == 52;
    return to_tpsmax ? std::optional(Unit{0x0B, 0x86, 0x06}) : std::nullopt;
  };
  const ConfigurationBlock before = line_.ecu.Block();
  ExpectRefused({"set", "TPS0=60", "PGAS0=7", "TPSMAX=900", "MAP0=1", "MAPMAX=2"},
                "zelorgas-cli: TPSMAX: Modbus device return an exception code6\n"
                "zelorgas-cli: written: TPS0, PGAS0; not confirmed: TPSMAX; not tried: MAP0, "
                "MAPMAX\n");
  ConfigurationBlock expected = before;
  expected[51] = 60;
  expected[53] = 7;
  EXPECT_EQ(line_.ecu.Block(), expected);
}

TEST_F(EcuCommands, SetNoticesAnEcuThatKeepsItsValue) {
  line_.ecu.SetRegister(284, 4);
  line_.instead = [](const Unit& request) {
    return request[1] == kWriteRegisterFunction ? std::optional(request) : std::nullopt;
  };
  ExpectRefused({"set", "NCYLINDERS=6", "--json"},
                "zelorgas-cli: NCYLINDERS: 6 was written, the ECU holds 4\n"
                "zelorgas-cli: written: none; not confirmed: NCYLINDERS; not tried: none\n");
}

TEST_F(EcuCommands, ModbusReads) {
  line_.ecu.SetCoil(40, true);
  line_.ecu.SetCoil(42, true);
  line_.ecu.SetRegister(838, 7);
  const struct {
    Words words;
    std::string_view text, json;
  } cases[] = {
      {{"coils", "40", "3"}, "40: 1\n41: 0\n42: 1\n", R"({"values":[1,0,1]})"},
      {{"inputs", "0x20", "1"}, "32: 1\n", R"({"values":[1]})"},
      {{"holding", "838", "1"}, "838: 7\n", R"({"values":[7]})"},
      {{"holding", "0x4000", "3"},
       "16384: 23111\n16385: 258\n16386: 11065\n",
       R"({"values":[23111,258,11065]})"},
      {{"input", "32", "2"}, "32: 258\n33: 39\n", R"({"values":[258,39]})"},
      {{"identify", "1", "0"},
       "Tarnwick Ltd.\nPetrol<=>GAS ECU Conversion kit\nSV 0.39@HV 1.2\n",
       R"({"values":["Tarnwick Ltd.","Petrol<=>GAS ECU Conversion kit","SV 0.39@HV 1.2"],)"
       R"("more_follows":false,"next_object":0})"},
  };
  for (const auto& c : cases) {
    Words words{"modbus"};
    words.insert(words.end(), c.words.begin(), c.words.end());
    EXPECT_EQ(Print(words), c.text);
    words.emplace_back("--json");
    EXPECT_EQ(Print(words), std::string(c.json) + "\n");
  }
}

TEST_F(EcuCommands, ModbusFifoNumbersTheQueue) {
  line_.instead = [](const Unit& request) {
    return request == Unit{0x0B, 24, 0, 5} ? Unit{0x0B, 24, 0, 6, 0, 2, 0x12, 0x34, 0, 9} : Unit{};
  };
  EXPECT_EQ(Print({"modbus", "fifo", "5"}), "0: 4660\n1: 9\n");
  EXPECT_EQ(Print({"modbus", "fifo", "5", "--json"}), "{\"values\":[4660,9]}\n");
}

TEST_F(EcuCommands, ModbusWrites) {
  EXPECT_EQ(Print({"modbus", "write-coil", "45", "on"}), "45: 1\n");
  EXPECT_TRUE(line_.ecu.Coil(45));
  EXPECT_EQ(Print({"modbus", "write-coil", "45", "off", "--json"}), "{\"values\":[0]}\n");
  EXPECT_FALSE(line_.ecu.Coil(45));
  EXPECT_EQ(Print({"modbus", "write-register", "0x100", "0xFFFF"}), "256: 65535\n");
  EXPECT_EQ(line_.ecu.Register(256), 65535);
  EXPECT_EQ(Print({"modbus", "write-registers", "300", "1", "0x20", "3"}),
            "300: 1\n301: 32\n302: 3\n");
  EXPECT_EQ(line_.ecu.Register(301), 32);
  EXPECT_EQ(line_.ecu.Register(302), 3);
}

// Whatever bytes an object holds, a terminal and a JSON reader get clean text.
TEST_F(EcuCommands, ModbusIdentificationIsEscaped) {
  line_.instead = [](const Unit&) {
    return Unit{0x0B, 0x2B, 0x0E, 0x02, 0x82, 0xFF, 9, 1, 3, 3, 0x1B, '"', 0xFF};
  };
  const CliHarness::Outcome run = Run({"modbus", "identify", "2", "3"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "\\x1B\\\"\\xFF\n");
  EXPECT_EQ(run.err, "zelorgas-cli: more objects follow, from 9\n");
  EXPECT_EQ(Print({"modbus", "identify", "2", "3", "--json"}),
            R"({"values":["\u001b\"\u00ff"],"more_follows":true,"next_object":9})"
            "\n");
}

TEST_F(EcuCommands, AttemptsBoundTheTriesOfADeadLine) {
  line_.instead = [](const Unit&) { return Unit{}; };
  ExpectRefused({"modbus", "holding", "256", "1"}, "zelorgas-cli: modbus: Time Out Error\n");
  EXPECT_EQ(line_.requests.size(), 3U);
  line_.requests.clear();
  ExpectRefused({"--attempts", "1", "get", "256"}, "zelorgas-cli: 256: Time Out Error\n");
  EXPECT_EQ(line_.requests.size(), 1U);
  line_.requests.clear();
  // The fifth try is the first that is answered.
  line_.instead = [this](const Unit&) {
    return line_.requests.size() < 5 ? std::optional(Unit{}) : std::nullopt;
  };
  line_.ecu.SetRegister(256, 21);
  EXPECT_EQ(Print({"get", "256", "--attempts", "5"}), "256=21\n");
}

class Trace : public EcuCommands {
 protected:
  ~Trace() override { std::remove(path_.c_str()); }

  std::string Text() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  const std::string path_ = TestFile(".txt");
};

TEST_F(Trace, HoldsEveryFrameWithTimeAndResult) {
  line_.ecu.SetRegister(291, 0x1234);
  Print({"--trace", path_, "get", "RPM_RATIO"});
  EXPECT_EQ(Text(),
            "0.000 sent \":0B0301230001CD\\r\\n\"\n"
            "40.000 received \":0B03021234AA\\r\\n\" Ok\n");
  // The file is of the last run only.
  line_.instead = [](const Unit&) { return Unit{0x0B, 0x83, 0x02}; };
  Run({"get", "RPM_RATIO", "--trace", path_, "--attempts", "2"});
  EXPECT_EQ(Text(),
            "0.000 sent \":0B0301230001CD\\r\\n\"\n"
            "40.000 received \":0B830270\\r\\n\" Modbus device return an exception code2\n"
            "1040.000 sent \":0B0301230001CD\\r\\n\"\n"
            "1080.000 received \":0B830270\\r\\n\" Modbus device return an exception code2\n");
  line_.instead = [](const Unit&) { return Unit{}; };
  Run({"get", "RPM_RATIO", "--trace", path_, "--attempts", "1"});
  EXPECT_EQ(Text(),
            "0.000 sent \":0B0301230001CD\\r\\n\"\n"
            "1000.000 received \"\" Time Out Error\n");
}

TEST_F(Trace, FileThatCannotBeWrittenStopsTheCommand) {
  const std::string path = path_ + "/no/such/folder";
  const CliHarness::Outcome run = Run({"set", "NCYLINDERS=6", "--trace", path});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, "zelorgas-cli: cannot write " + path + "\n");
  EXPECT_TRUE(line_.requests.empty());
}

TEST(Output, ThatCannotBeWrittenIsAFileFailure) {
  CliHarness cli;
  std::ostringstream out;
  out.setstate(std::ios::badbit);
  const CliHarness::Outcome run = cli.Run({"ports", "--json"}, out);
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err, "zelorgas-cli: could not write the output\n");
}

}  // namespace
}  // namespace zelorgas
