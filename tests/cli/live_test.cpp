#include <gmock/gmock.h>

#include <cstdio>
#include <fstream>
#include <utility>

#include "cli/CliHarness.h"
#include "sim/SimulatedPort.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;
using testing::StartsWith;
using Words = std::vector<std::string>;

constexpr std::uint16_t kManifoldSensor = 304;
constexpr std::uint16_t kSecondLambda = 303;

// What connecting asks, and then the first full read: nothing of it belongs to the polling.
constexpr unsigned kIntoThePolling = 60;

const std::string kHeader =
    "    time engine petrol    gas     P1   MAP throttle coolant T gas lambda1 lambda2 battery "
    "level       mode   fuel\n"
    "       s  1/min     ms     ms    bar   bar        %       C     C       V       V       V     "
    "%\n";
constexpr const char* kRow =
    "   3450  4.321  0.000   1.25  0.70       42     -12    19    0.55    0.82    13.8    75 "
    "     Turbo Petrol";
constexpr const char* kCsvHeader =
    "time_s,engine_speed_rpm,petrol_time_ms,gas_time_ms,gas_pressure_bar,manifold_pressure_bar,"
    "throttle_percent,coolant_celsius,gas_temperature_celsius,lambda1_volts,lambda2_volts,"
    "battery_volts,gas_level_percent,mode,fuel";
constexpr const char* kCsvRow =
    ",3450,4.321,0.000,1.25,0.70,42,-12,19,0.55,0.82,13.8,75,Turbo,Petrol";

Words LinesOf(const std::string& text) {
  Words lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// `live` with its worker's thread, against an ECU whose engine stands still.
class Live : public testing::Test {
 protected:
  Live() {
    const EngineState engine{.speed_rpm = 3450,
                             .petrol_time_us = 4321,
                             .throttle_percent = 42,
                             .manifold_bar = 0.7,
                             .coolant_celsius = -12,
                             .gas_celsius = 19,
                             .battery_volts = 13.8,
                             .lambda1_volts = 0.55,
                             .lambda2_volts = 0.82,
                             .gas_pressure_bar = 1.25,
                             .gas_level_percent = 75,
                             .mode = 2};
    Use(ecu_);
    ecu_.PinEngine(engine);
    ecu_.SetRegister(kManifoldSensor, 1);
    ecu_.SetRegister(kSecondLambda, 1);
  }
  ~Live() override { std::remove(csv_file_.c_str()); }

  void Use(SimulatedEcu& ecu) {
    line_ = std::make_unique<SimulatedLine>(ecu, cli_.clock, SimulatedLineOptions{.paced = false});
    cli_.simulated_ecu = SimulatedPort(*line_, cli_.clock);
  }
  // Runs `live` and expects that it leaves the port free.
  CliHarness::Outcome Run(const Words& words, std::ostringstream& out) {
    Words arguments{"--port", "sim", "live"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    const CliHarness::Outcome run = cli_.Run(arguments, out);
    line_->SetPlugged(true);
    EXPECT_TRUE(cli_.simulated_ecu("sim"));
    return run;
  }
  CliHarness::Outcome Run(const Words& words) {
    std::ostringstream out;
    return Run(words, out);
  }
  Words CsvLines() const {
    std::ifstream file(csv_file_, std::ios::binary);
    return LinesOf({std::istreambuf_iterator<char>(file), {}});
  }

  CliHarness cli_;
  SimulatedEcu ecu_{cli_.clock};
  std::unique_ptr<SimulatedLine> line_;
  const std::string csv_file_ = TestFile(".csv");
};

TEST_F(Live, PrintsALineAnUpdateForTheSecondsAskedFor) {
  const double before_ms = cli_.clock.ElapsedMs();
  const CliHarness::Outcome run = Run({"--seconds", "3", "--csv", csv_file_});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_GE(cli_.clock.ElapsedMs() - before_ms, 3000);
  EXPECT_EQ(cli_.settings.ReadString("Settings", "COMMPORT", ""), "") << "the car's port is kept";
  EXPECT_EQ(cli_.interrupts_caught, 1);
  // The restart flag, and that nobody listens any more.
  EXPECT_EQ(ecu_.WriteCount(), 3U);

  EXPECT_THAT(run.out, StartsWith(kHeader + "   0.000"));
  const Words lines = LinesOf(run.out);
  ASSERT_GE(lines.size(), 3U);
  const Words csv = CsvLines();
  ASSERT_EQ(csv.size(), lines.size() - 1);
  EXPECT_EQ(csv[0], kCsvHeader);
  double time = 0;
  for (std::size_t i = 2; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i].substr(8), kRow) << i;
    const std::size_t comma = csv[i - 1].find(',');
    EXPECT_EQ(csv[i - 1].substr(comma), kCsvRow) << i;
    EXPECT_EQ(std::stod(lines[i]), std::stod(csv[i - 1]));
    EXPECT_GE(std::stod(lines[i]), time);
    time = std::stod(lines[i]);
  }
}

TEST_F(Live, JsonIsOneObjectALine) {
  ecu_.SetRegister(kManifoldSensor, 0);
  ecu_.SetRegister(kSecondLambda, 0);
  const CliHarness::Outcome run = Run({"--seconds", "0.5", "--json", "--csv", csv_file_});
  EXPECT_EQ(run.status, 0);
  const Words lines = LinesOf(run.out);
  ASSERT_FALSE(lines.empty());
  EXPECT_THAT(lines[0], StartsWith(R"({"time_s":0.000,)"));
  for (const std::string& line : lines) {
    EXPECT_EQ(line.substr(line.find(',')),
              R"(,"engine_speed_rpm":3450,"petrol_time_ms":4.321,"gas_time_ms":0.000,)"
              R"("gas_pressure_bar":1.25,"manifold_pressure_bar":null,"throttle_percent":42,)"
              R"("coolant_celsius":-12,"gas_temperature_celsius":19,"lambda1_volts":0.55,)"
              R"("lambda2_volts":null,"battery_volts":13.8,"gas_level_percent":75,)"
              R"("mode":"Turbo","fuel":"Petrol"})");
  }
  ASSERT_GE(CsvLines().size(), 2U);
  EXPECT_EQ(CsvLines()[1], "0.000,3450,4.321,0.000,1.25,,42,-12,19,0.55,,13.8,75,Turbo,Petrol");
  EXPECT_THAT(LinesOf(Run({"--seconds", "0.1"}).out).back(), HasSubstr("  1.25     -       42"));
}

// Who reads along: raises the flag when so many lines have come, each by itself.
class InterruptAfter final : public std::stringbuf {
 public:
  InterruptAfter(int lines, std::atomic<unsigned>& flag) : lines_(lines), flag_(flag) {}

 protected:
  int sync() override {
    if (--lines_ == 0) flag_ = 1;
    return std::stringbuf::sync();
  }

 private:
  int lines_;
  std::atomic<unsigned>& flag_;
};

TEST_F(Live, GoesOnUntilItIsInterrupted) {
  std::ostringstream out;
  InterruptAfter buffer(7, cli_.interrupted);
  out.std::ios::rdbuf(&buffer);
  const CliHarness::Outcome run = Run({"--json"}, out);
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(LinesOf(buffer.str()).size(), 7U);
  EXPECT_EQ(ecu_.WriteCount(), 3U);
}

TEST_F(Live, SaysWhatBecomesOfTheLinkAndTheEcu) {
  line_->ArmFault({FaultKind::kSilent, 30'000}, kIntoThePolling);
  CliHarness::Outcome run = Run({"--seconds", "100"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "zelorgas-cli: link lost\nzelorgas-cli: link up again\n");

  line_->ArmFault({FaultKind::kRestart}, kIntoThePolling);
  const std::size_t before = ecu_.WriteCount();
  run = Run({"--seconds", "30"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "zelorgas-cli: The GASECU has been restarted! Please wait while data are being "
            "synchronized...\nzelorgas-cli: the data have been synchronized\n");
  EXPECT_EQ(ecu_.WriteCount() - before, 2 + 1 + 19U) << "the restart flag, and the block";

  // Who waits for the processor while the worker's time-outs pass must not see the end of it.
  constexpr unsigned kForGoodMs = 0x7FFFFFFF;
  line_->ArmFault({FaultKind::kSilent, kForGoodMs}, 8);
  run = Run({"--seconds", "1"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_THAT(run.err, HasSubstr("zelorgas-cli: no live values have come\n"));
}

TEST_F(Live, OutputsThatCannotBeWrittenEndIt) {
  const std::string nowhere = csv_file_ + "/no/such/folder";
  EXPECT_EQ(Run({"--csv", nowhere}).err, "zelorgas-cli: cannot write " + nowhere + "\n");
  EXPECT_EQ(ecu_.WriteCount(), 0U) << "no polling began";

  std::ostringstream out;
  out.setstate(std::ios::badbit);
  const CliHarness::Outcome run = Run({}, out);
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.err, "zelorgas-cli: could not write the output\n");
}

}  // namespace
}  // namespace zelorgas
