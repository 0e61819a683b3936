// Whether the window stays alive and what it costs: the real window in front of the simulated ECU
// on the paced line, by the real clock, while a heartbeat measures how long its event loop was away
// and getrusage what the process took, simulated ECU included. Prints each phase's longest gap, the
// share of a core while connected, and what the open correction grid adds to that at ten live
// updates a second; fails above a goal.

#include <QAction>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>

#include "CpuShare.h"
#include "Table.h"
#include "ui/CGridTable.h"
#include "ui/UiBench.h"

namespace {

using namespace zelorgas;

constexpr double kGapGoalMs = 50;
constexpr double kCpuGoalPercent = 2;
constexpr double kGridGoalPercent = 5;
constexpr double kUpdatesASecond = 10;
constexpr int kBeatMs = 5;
constexpr std::chrono::seconds kMeasured{8};

class HeartBeat {
 public:
  explicit HeartBeat(const Clock& clock) : clock_(clock), last_(clock.Now()) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { Beat(); });
    timer_.start(kBeatMs);
  }
  // The longest gap of the phase that ends now; the wait for the beat itself is not one.
  double EndPhase() {
    Beat();
    const double gap = std::chrono::duration<double, std::milli>(longest_).count();
    longest_ = {};
    return gap;
  }

 private:
  void Beat() {
    longest_ = std::max(longest_, clock_.Now() - last_);
    last_ = clock_.Now();
  }

  const Clock& clock_;
  Clock::TimePoint last_;
  Clock::Duration longest_{};
  QTimer timer_;
};

class Phases {
 public:
  Phases(const Clock& clock, bool& reached) : heart_(clock), reached_(reached) {}

  void Run(const char* name, const std::function<void()>& work) {
    heart_.EndPhase();
    work();
    const double gap = heart_.EndPhase();
    reached_ &=
        PrintRow(std::string("event loop, ") + name, Quantity(gap, "ms away"), "", gap, kGapGoalMs);
  }

 private:
  HeartBeat heart_;
  bool& reached_;
};

struct Load {
  double percent;             // of a core
  double updates_per_second;  // of the live values
};

Load Measure(const UiBench& bench) {
  int updates = 0;
  const auto counting =
      QObject::connect(&bench.frame->View(), &ClpgecuView::LiveDataCame, [&updates] { ++updates; });
  const CpuShare share = MeasureCpuShare(kMeasured);
  QObject::disconnect(counting);
  return {share.percent, updates / share.seconds};
}

bool MeasureLoads(const UiBench& bench) {
  const Load idle = Measure(bench);
  const bool quiet = PrintRow("connected and idle", Quantity(idle.percent, "% of a core", 2),
                              "simulated ECU included", idle.percent, kCpuGoalPercent);
  bench.OpenTab("Correction grid");
  QTest::qWait(500);
  const Load grid = Measure(bench);
  const double added = (grid.percent - idle.percent) * kUpdatesASecond / grid.updates_per_second;
  const bool light =
      PrintRow("correction grid, added at 10 updates a second", Quantity(added, "% of a core", 2),
               Quantity(grid.updates_per_second, "a second measured"), added, kGridGoalPercent);
  return quiet && light;
}

int Run() {
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  UiBench bench(*clock, kSimulatedPortName, {});
  QTest::qWait(500);
  bool reached = true;
  {
    Phases phases(*clock, reached);
    phases.Run("connecting", [&] { reached &= bench.Connect(); });
    phases.Run("polling", [&] { QTest::qWait(3000); });
    phases.Run("the ECU stops answering", [&] {
      bench.Find<QAction>("unplug_ecu_action").trigger();
      reached &= bench.WaitForState(UiBench::kConnecting);
      QTest::qWait(3000);
    });
    phases.Run("disconnecting from it", [&] { bench.Click("connect_button"); });
    phases.Run("connecting to a dead line", [&] { bench.Click("connect_button"); });
    bench.Find<QAction>("unplug_ecu_action").trigger();
    phases.Run("connecting again", [&] { reached &= bench.Connect(); });
    phases.Run("opening the correction grid", [&] { bench.OpenTab("Correction grid"); });
    phases.Run("changing 144 cells", [&] {
      auto& table = bench.Find<CGridTable>("grid_table");
      table.SelectAll();
      bench.Find<QAction>("step_up_action").trigger();
      reached &= UiBench::WaitFor([&] { return bench.control.Busy(); });
      reached &= UiBench::WaitFor([&] { return !bench.control.Busy(); });
      reached &= table.Text({11, 11}) == "1.41";
    });
    bench.OpenTab("Start");
  }
  reached &= MeasureLoads(bench);
  return reached ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (getenv("DISPLAY") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const QApplication qt(argc, argv);
  return Run();
}
