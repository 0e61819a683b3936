// How much of the paced line's time a whole configuration block costs: 19200 baud, ten bit times a
// character, the request and the answer one after the other. Read and written over the simulated
// line in this process and over a pty from a second process. Prints the ratio to the bare wire
// time; fails above the goal.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "EcuSimProcess.h"
#include "Table.h"
#include "config/BlockTransfer.h"
#include "link/ModbusSerialPort.h"
#include "sim/SimulatedPort.h"

namespace {

using namespace zelorgas;

constexpr double kGoal = 1.03;
constexpr int kRounds = 5;
constexpr double kCharacterMs = 10.0 * 1000.0 / 19200.0;
constexpr int kReadCharacters = 2864;   // 19 requests of 17 and their answers
constexpr int kWriteCharacters = 3016;  // 19 requests with the words and answers of 17

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

template <typename Work>
double TimeMs(Clock& clock, Work work) {
  const Clock::TimePoint start = clock.Now();
  if (work() != ModbusResult::kOk) throw std::runtime_error("a transfer failed");
  return std::chrono::duration<double, std::milli>(clock.Now() - start).count();
}

bool Report(const char* line, const char* what, double took_ms, int characters) {
  const double wire_ms = characters * kCharacterMs;
  return PrintRow(std::string(what) + " of the block, " + line, Quantity(took_ms, "ms"),
                  Quantity(wire_ms, "ms on the wire"), took_ms / wire_ms, kGoal);
}

bool Measure(const char* line, ModbusSerialPort& port, Clock& clock) {
  std::vector<double> reads;
  std::vector<double> writes;
  ConfigurationBlock block{};
  for (int round = 0; round < kRounds; ++round) {
    reads.push_back(TimeMs(clock, [&] { return ReadBlock(port, StoreInto(block)); }));
    writes.push_back(TimeMs(clock, [&] { return WriteBlock(port, block); }));
  }
  const bool read_reached = Report(line, "read", Median(reads), kReadCharacters);
  return Report(line, "write", Median(writes), kWriteCharacters) && read_reached;
}

bool MeasureOver(const char* line, SerialOpener opener, const std::string& name, Clock& clock) {
  ModbusSerialPort port(std::move(opener), clock);
  port.SetFraming(FramingMode::kAscii);
  port.SetDataBits(7);
  port.SetPortName(name);
  if (!port.Open(0, 19200, 2)) throw std::runtime_error("cannot open " + name);
  return Measure(line, port, clock);
}

int Run() {
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  SimulatedEcu ecu(*clock);
  SimulatedLine line(ecu, *clock);
  const bool inside = MeasureOver("in process", SimulatedPort(line, *clock), "sim", *clock);
  const EcuSimProcess process({});
  const bool outside = MeasureOver("over a pty", SystemSerialPorts(*clock), process.Port(), *clock);
  return inside && outside ? 0 : 1;
}

}  // namespace

int main() {
  try {
    return Run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "line_efficiency: %s\n", error.what());
    return 2;
  }
}
