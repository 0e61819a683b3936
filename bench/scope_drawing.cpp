// What the oscilloscope costs: its page in a window of an ordinary size, twelve channels, ten
// samples a second, by the real clock. Prints the share of a core that adding and drawing take
// (process time over wall time), with the channels at the capacity of several time scales and all
// of them shown, and the memory that a sample takes; fails above a goal.
#include <malloc.h>

#include <QTimer>
#include <chrono>
#include <cmath>
#include <memory>

#include "CpuShare.h"
#include "Table.h"
#include "ui/CTabDiagnostics.h"
#include "ui/UiBench.h"

namespace {

using namespace zelorgas;

constexpr double kCpuGoalPercent = 5;
constexpr double kBytesGoal = 12;  // a sample; the number itself has 8
constexpr int kSamplePeriodMs = 100;
constexpr std::chrono::milliseconds kMeasured{8000};
constexpr QSize kWindow{1400, 800};

// Every channel moves, each in its own way, as an engine's signals do.
ScopeSample SampleAt(int moment) {
  ScopeSample sample{};
  for (std::size_t i = 0; i < sample.size(); ++i) {
    const double place = static_cast<double>(i) + 1;
    sample[i] = place + std::sin(moment * place / 40) + std::sin(moment * 0.9) / 3;
  }
  return sample;
}

class Scope {
 public:
  void Add() { scope_.AddSample(SampleAt(moment_++)); }
  void Fill(double time_scale) {
    while (scope_.TimeScale() < time_scale) scope_.StretchTime();
    while (scope_.Traces().Length() < scope_.Capacity()) Add();
  }
  Oscilloscope& Model() { return scope_; }

 private:
  Oscilloscope scope_;
  int moment_ = 0;
};

bool MeasureDrawing(UiBench& bench, double time_scale) {
  Scope scope;
  scope.Fill(time_scale);
  CTabDiagnostics page(bench.context, scope.Model());
  page.resize(kWindow);
  page.show();
  page.ShowImage();
  QTest::qWait(500);
  QTimer timer;
  timer.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer, &QTimer::timeout, &page, [&] {
    scope.Add();
    page.ShowLive();
  });
  timer.start(kSamplePeriodMs);
  const double percent = MeasureCpuShare(kMeasured).percent;
  return PrintRow("oscilloscope, 12 x " + std::to_string(scope.Model().Capacity()) + " samples",
                  Quantity(percent, "% of a core", 2), "10 samples a second", percent,
                  kCpuGoalPercent);
}

double HeapBytes() { return static_cast<double>(mallinfo2().uordblks); }

bool MeasureMemory() {
  bool reached = true;
  Scope scope;
  const double before = HeapBytes();
  for (const double time_scale : {1.0, 4.0, 16.0}) {
    scope.Fill(time_scale);
    // A full channel shifts without growing.
    for (int i = 0; i < 1000; ++i) scope.Add();
    const auto samples = static_cast<double>(kScopeChannels * scope.Model().Traces().Length());
    const double bytes = (HeapBytes() - before) / samples;
    reached &= PrintRow("memory of a sample, 12 x " + Quantity(samples / kScopeChannels, "", 0),
                        Quantity(bytes, "bytes", 2), "8 bytes of the value", bytes, kBytesGoal);
  }
  return reached;
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("DISPLAY")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  bool reached = MeasureMemory();
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  UiBench bench(*clock);
  bench.frame->hide();
  for (const double time_scale : {16.0, 4.0, 1.0}) reached &= MeasureDrawing(bench, time_scale);
  return reached ? 0 : 1;
}
