// How much longer a polling round takes than it must: the time of its characters on the wire
// (19200 baud, ten bit times a character) and the pauses that the worker keeps before its
// exchanges. Over the simulated line in this process and over a pty from a second process. Prints
// the ratio; fails above the goal.
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>

#include "EcuSimProcess.h"
#include "Table.h"
#include "app/ClpgecuDoc.h"
#include "app/CommWorker.h"
#include "sim/SimulatedPort.h"

namespace {

using namespace zelorgas;

constexpr double kGoal = 1.05;
constexpr int kRounds = 60;
constexpr double kCharacterMs = 10.0 * 1000.0 / 19200.0;
constexpr double kPausesMs = 3 * 10;  // before the FIFO, live block A and the bits

class NoSink final : public StatusSink {
  void Post(CommStatus) override {}
};

bool Measure(const char* line, SerialOpener opener, const std::string& name, Clock& clock) {
  NoSink status;
  ClpgecuDoc document(std::move(opener), clock, status);
  document.Link().SetPortName(name);
  document.Image().software = {0, 39};
  if (!document.PrepareWorker()) throw std::runtime_error("cannot open " + name);
  CommWorker worker(document);
  worker.RunRound();  // the full read, and the first poll
  std::size_t characters = 0;
  document.Link().SetTraceSink([&](const FrameTrace& trace) {
    characters += trace.frame.size();
    if (trace.result != ModbusResult::kOk) throw std::runtime_error("lost answer");
  });
  const Clock::TimePoint start = clock.Now();
  for (int round = 0; round < kRounds; ++round) worker.RunRound();
  const double took = std::chrono::duration<double, std::milli>(clock.Now() - start).count();
  document.TellWorkerToStop();
  worker.RunRound();

  const double prescribed = static_cast<double>(characters) * kCharacterMs + kRounds * kPausesMs;
  return PrintRow(std::string("round of polling, ") + line, Quantity(took / kRounds, "ms"),
                  Quantity(prescribed / kRounds, "ms wire and pauses"), took / prescribed, kGoal);
}

int Run() {
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  SimulatedEcu ecu(*clock);
  SimulatedLine line(ecu, *clock);
  const bool inside = Measure("in process", SimulatedPort(line, *clock), "sim", *clock);
  const EcuSimProcess process({});
  const bool outside = Measure("over a pty", SystemSerialPorts(*clock), process.Port(), *clock);
  return inside && outside ? 0 : 1;
}

}  // namespace

int main() {
  try {
    return Run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "polling_efficiency: %s\n", error.what());
    return 2;
  }
}
