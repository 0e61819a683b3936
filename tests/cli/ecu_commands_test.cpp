#include <cstdio>
#include <fstream>
#include <utility>

#include "cli/EcuCliTest.h"

namespace zelorgas {
namespace {

constexpr std::uint8_t kWriteRegisterFunction = 6;

class EcuCommands : public EcuCliTest {
 protected:
  // What single registers have been written since the last call: "271=10000 272=30 ".
  std::string TakeWrites() {
    std::string written;
    for (const Unit& unit : std::exchange(line_.requests, {})) {
      if (unit[1] != kWriteRegisterFunction) continue;
      written += std::to_string(unit[2] << 8 | unit[3]) + "=" +
                 std::to_string(unit[4] << 8 | unit[5]) + " ";
    }
    return written;
  }
};

TEST_F(EcuCommands, GetTakesNamesAndNumbers) {
  line_.ecu.SetRegister(284, 6);
  line_.ecu.SetRegister(324, 0x8002);
  const std::string asked = "get NCYLINDERS 284 0x144 LAMBDA_INVERSE 0x4000 NCYLINDERS";
  EXPECT_EQ(Print(asked), "NCYLINDERS=6\n284=6\n0x144=32770\nLAMBDA_INVERSE=1\n0x4000=23111\n");
  EXPECT_EQ(Print(asked + " --json"),
            R"({"NCYLINDERS":6,"284":6,"0x144":32770,"LAMBDA_INVERSE":1,"0x4000":23111})"
            "\n");
  ExpectRefused("get NCYLINDERS 1000 --json",
                "zelorgas-cli: 1000: Modbus device return an exception code2\n");
  EXPECT_EQ(line_.port.settings.data_bits, 7);
  EXPECT_EQ(line_.port.settings.parity, Parity::kEven);
  EXPECT_EQ(line_.port.open_devices, 0);
}

TEST_F(EcuCommands, SetWritesAndReadsBack) {
  EXPECT_EQ(Print("set NCYLINDERS=8 0x1FF=0xBEEF"), "NCYLINDERS=8\n0x1FF=48879\n");
  EXPECT_EQ(Print("--json set TEMP_COLD_ENG=65535"), "{\"TEMP_COLD_ENG\":65535}\n");
  EXPECT_EQ(TakeWrites(), "284=8 511=48879 256=65535 ");
  EXPECT_EQ(line_.ecu.Register(284), 8);
  line_.ecu.SetRegister(324, 0x0003);
  const std::pair<std::string, std::uint16_t> packed[] = {
      {"LAMBDA_INVERSE=1", 0x8003},
      {"LAMBDA_OXYGENRANGE=0", 0x8000},
      {"LAMBDA_INVERSE=0 LAMBDA_OXYGENRANGE=0x7FFF", 0x7FFF},
  };
  for (const auto& [assignments, after] : packed) {
    Print("set " + assignments);
    EXPECT_EQ(line_.ecu.Register(324), after) << assignments;
  }
}

TEST_F(EcuCommands, SetWritesWhatChoosingFromACatalogueWrites) {
  line_.ecu.SetRegister(324, 0x8000);
  const std::pair<std::string, const char*> cases[] = {
      {"INJECTOR_TYPE=VALTEK", "271=10000 272=30 331=3500 274=5000 328=400 285=4 "},
      {"INJECTOR_TYPE=3 NCYLINDERS=6", "285=3 284=6 "},
      {"256=7 PRESSURE_SENSOR_TPYE=Zelor-P9400", "256=7 309=35 310=4150 288=2 "},
      {"LAMBDA_OXYGENRANGE=0-12V", "324=32771 "},
      {"PRESSURE_SENSOR_TPYE=0", "288=0 "},
      {"PRESSURE_SENSOR_TPYE=NONE", "289=2 288=0 "},  // of a switch, now
      {"PRESSURE_SENSOR_TPYE=Zelor-P9400", "289=1 288=0 "},
  };
  for (const auto& [assignments, writes] : cases) {
    EXPECT_EQ(Run("set " + assignments).status, 0);
    EXPECT_EQ(TakeWrites(), writes);
  }
  line_.ecu.SetRegister(288, 1);
  EXPECT_EQ(Run("set PRESSURE_SENSOR_TPYE=NONE").status, 2);
  EXPECT_EQ(TakeWrites(), "");
}

TEST_F(EcuCommands, SetSaysWhichWereWritten) {
  line_.instead = [](const Unit& request) -> std::optional<Unit> {
    if (request[1] != kWriteRegisterFunction) return std::nullopt;
    if (request[3] == 52) return Unit{0x0B, 0x86, 0x06};              // TPSMAX
    return request[3] == 28 ? std::optional(request) : std::nullopt;  // NCYLINDERS is not stored
  };
  ConfigurationBlock expected = line_.ecu.Block();
  ExpectRefused("set TPS0=60 PGAS0=7 TPSMAX=900 MAP0=1 MAPMAX=2",
                "zelorgas-cli: TPSMAX: Modbus device return an exception code6\n"
                "zelorgas-cli: written: TPS0, PGAS0; not confirmed: TPSMAX; not tried: MAP0, "
                "MAPMAX\n");
  expected[51] = 60;
  expected[53] = 7;
  EXPECT_EQ(line_.ecu.Block(), expected);
  ExpectRefused("set NCYLINDERS=6 --json",
                "zelorgas-cli: NCYLINDERS: 6 was written, the ECU holds 4\n"
                "zelorgas-cli: written: none; not confirmed: NCYLINDERS; not tried: none\n");
}

// Whatever bytes an object holds, a terminal and a JSON reader get clean text.
TEST_F(EcuCommands, ModbusIdentificationIsEscaped) {
  line_.instead = [](const Unit&) {
    return Unit{0x0B, 0x2B, 0x0E, 0x02, 0x82, 0xFF, 9, 1, 3, 3, 0x1B, '"', 0xFF};
  };
  const CliHarness::Outcome run = Run("modbus identify 2 3");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "\\x1B\\\"\\xFF\n");
  EXPECT_EQ(run.err, "zelorgas-cli: more objects follow, from 9\n");
  EXPECT_EQ(Print("modbus identify 2 3 --json"),
            R"({"values":["\u001b\"\u00ff"],"more_follows":true,"next_object":9})"
            "\n");
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
  EXPECT_EQ(Run(Words{"--trace", path_, "get", "RPM_RATIO"}).status, 0);
  const std::string request = "sent \":0B0301230001CD\\r\\n\"\n";
  EXPECT_EQ(Text(), "0.000 " + request + "40.000 received \":0B03021234AA\\r\\n\" Ok\n");
  // The file is of the last run only, and can be followed meanwhile.
  const std::string first =
      "0.000 " + request +
      "40.000 received \":0B830270\\r\\n\" Modbus device return an exception code2\n";
  line_.requests.clear();
  line_.instead = [&](const Unit&) {
    const bool again = line_.requests.size() == 2;
    EXPECT_EQ(Text(), again ? first + "1040.000 " + request : "0.000 " + request);
    return again ? Unit{} : Unit{0x0B, 0x83, 0x02};
  };
  Run(Words{"get", "RPM_RATIO", "--trace", path_, "--attempts", "2"});
  EXPECT_EQ(Text(), first + "1040.000 " + request + "2040.000 received \"\" Time Out Error\n");
}

}  // namespace
}  // namespace zelorgas
