// How long an edit of the correction grid takes on the paced line, beside the bare time of its
// characters: one cell, and an area change over all 144. The handshake that holds the polling is
// measured by itself, from the call to the first write's first character. With the polling running,
// over the simulated line in this process and over a pty from a second process. Prints the ratios;
// fails above the goals.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "EcuSimProcess.h"
#include "Table.h"
#include "maps/GridModel.h"
#include "sim/SimulatedPort.h"

namespace {

using namespace zelorgas;

constexpr double kCellGoal = 1.1;
constexpr double kAreaGoal = 1.05;
constexpr int kCellEdits = 21;
constexpr int kAreaChanges = 3;
constexpr std::size_t kCells = kGridSize * kGridSize;
constexpr double kCellWireMs = (17 + 17) * 10.0 * 1000.0 / 19200.0;  // request and answer
constexpr Clock::Duration kPatience = std::chrono::seconds(20);

class FullReadAwaited final : public StatusSink {
 public:
  void Post(CommStatus status) override {
    if (status == CommStatus::kFullRead) read_.Set();
  }
  void Wait() const {
    if (!read_.Wait(kPatience)) throw std::runtime_error("the ECU could not be read");
  }

 private:
  Event read_;
};

class NoBoxes final : public MessageBoxes {
  void Inform(const Message& text, MessageIcon) override {
    throw std::runtime_error(text.English());
  }
  [[nodiscard]] bool Ask(const Message&) override { return false; }
  void Status(const Message&) override {}
};

// When the first write since Reset went out.
class FirstWrite {
 public:
  void See(const FrameTrace& trace) {
    const std::lock_guard guard(lock_);
    const std::string_view start(":0B06");
    if (!when_ && std::ranges::equal(trace.frame.first(start.size()), start)) when_ = trace.time;
  }
  void Reset() {
    const std::lock_guard guard(lock_);
    when_.reset();
  }
  Clock::TimePoint When() {
    const std::lock_guard guard(lock_);
    return when_.value();
  }

 private:
  std::mutex lock_;
  std::optional<Clock::TimePoint> when_;
};

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

double MsBetween(Clock::TimePoint from, Clock::TimePoint to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

bool Report(const char* line, const char* what, double handshake_ms, double took_ms, double wire_ms,
            double goal) {
  return PrintRow(std::string("edit of ") + what + ", " + line,
                  Quantity(took_ms, "ms") + ", " + Quantity(handshake_ms, "ms before"),
                  Quantity(wire_ms, "ms on the wire"), took_ms / wire_ms, goal);
}

bool Measure(const char* line, SerialOpener opener, const std::string& name, Clock& clock) {
  FullReadAwaited status;
  NoBoxes boxes;
  FirstWrite first;
  ClpgecuDoc document(std::move(opener), clock, status);
  document.Link().SetPortName(name);
  document.Link().SetTraceSink([&](const FrameTrace& trace) { first.See(trace); });
  document.Image().software = {0, 39};
  if (!document.StartWorker()) throw std::runtime_error("cannot open " + name);
  status.Wait();
  GridModel grid(document, boxes);
  grid.TakeImage(document.Snapshot());

  Clock::TimePoint shown;
  const GridWatch watch{[&](GridCell) { shown = clock.Now(); }, {}};
  // Runs `edit` so many times; the medians go into the report.
  const auto report = [&](const char* what, int times, std::size_t count, double goal, auto edit) {
    std::vector<double> handshakes;
    std::vector<double> writings;
    for (int i = 0; i < times; ++i) {
      first.Reset();
      const Clock::TimePoint start = clock.Now();
      edit(i);
      handshakes.push_back(MsBetween(start, first.When()));
      writings.push_back(MsBetween(first.When(), shown));
      // The polling takes up its rounds again; each edit meets it elsewhere.
      clock.Sleep(std::chrono::milliseconds(37));
    }
    return Report(line, what, Median(handshakes), Median(writings),
                  static_cast<double>(count) * kCellWireMs, goal);
  };
  const bool cell_reached = report("one cell", kCellEdits, 1, kCellGoal, [&](int i) {
    grid.EditCell({5, 5}, i % 2 == 0 ? "1.5" : "1.6", watch);
  });
  std::vector<GridCell> all;
  for (std::uint16_t i = 0; i < kCells; ++i) {
    all.push_back(
        {static_cast<std::uint16_t>(i / kGridSize), static_cast<std::uint16_t>(i % kGridSize)});
  }
  const bool area_reached = report("144 cells", kAreaChanges, kCells, kAreaGoal, [&](int i) {
    grid.ModifyArea(all, {AreaMode::kLinear, i % 2 == 0 ? 0.05 : -0.05}, watch);
  });
  document.StopWorker();
  return cell_reached && area_reached;
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
    std::fprintf(stderr, "grid_editing: %s\n", error.what());
    return 2;
  }
}
