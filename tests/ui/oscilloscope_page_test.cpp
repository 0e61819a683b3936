#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <fstream>
#include <numeric>

#include "app/LoadProcedure.h"
#include "diag/RecordingFile.h"
#include "support/TemporaryFolder.h"
#include "ui/CTabDiagnostics.h"
#include "ui/CTimeSpin.h"
#include "ui/FastClock.h"
#include "ui/ScopePoints.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

using testing::Contains;
using testing::ElementsAre;

CTabDiagnostics& OpenScope(UiBench& bench) {
  return bench.frame->View().OpenPage<CTabDiagnostics>("Oscilloscope");
}

TEST(ScopePoints, KeepEveryPeakAndDrawNoMoreThanCanBeSeen) {
  std::deque<double> samples(6400);
  std::iota(samples.begin(), samples.end(), 0.0);
  samples[3001] = -50;
  samples[3002] = 90000;
  const ScopePoints points = PointsOf(samples, 0.1, 640, 800);
  EXPECT_LE(points.values.size(), 1600);
  EXPECT_EQ(std::ranges::min(points.values), -50);
  EXPECT_EQ(std::ranges::max(points.values), 90000);
  EXPECT_TRUE(std::ranges::is_sorted(points.seconds));
  EXPECT_EQ(PointsOf({1, 2, 3}, 0.1, 40, 800).values, QVector<double>({1, 2, 3}));
}

TEST(OscilloscopePage, RecordsWhileHiddenStopsAndReadsOut) {
  FastClock clock;
  UiBench bench(clock);
  ASSERT_TRUE(bench.Connect());
  QTest::qWait(50);
  OpenScope(bench);
  EXPECT_TRUE(UiBench::WaitFor([&] { return bench.Text("scope_value_rpm") != UiBench::kDashes; }));
  EXPECT_FALSE(bench.Find<QCheckBox>("scope_lambda2").text().isEmpty());

  bench.Click("scope_run");
  const std::string stopped = bench.Text("scope_value_rpm");
  QTest::qWait(50);
  EXPECT_EQ(bench.Text("scope_value_rpm"), stopped);
  emit bench.Find<CPlot>("scope_plot").PointedAt(0.21);
  EXPECT_EQ(bench.Text("scope_place"), "0.2 s before the newest");
}

TEST(OscilloscopePage, TheSpanDoublesAndHalvesWithinItsLimits) {
  FastClock clock;
  UiBench bench(clock);
  OpenScope(bench);
  auto& span = bench.Find<CTimeSpin>("scope_span");
  EXPECT_EQ(span.text(), "40 s");
  span.stepBy(6);
  EXPECT_EQ(span.text(), "640 s");
  span.stepBy(-20);
  EXPECT_EQ(span.text(), "2.5 s");
}

TEST(OscilloscopePage, HiddenChannelsStayHiddenInTheNextStart) {
  FastClock clock;
  UiBench bench(clock);
  OpenScope(bench);
  bench.Click("scope_tgas");
  EXPECT_EQ(bench.store.ReadInteger("Settings", "Tgas", 7), 0);
  bench.frame.reset();
  bench.frame = std::make_unique<CMainFrame>(bench.context);
  OpenScope(bench);
  EXPECT_FALSE(bench.Find<QCheckBox>("scope_tgas").isChecked());
  EXPECT_TRUE(bench.Find<QCheckBox>("scope_rpm").isChecked());
}

TEST(OscilloscopePage, ARecordingIsSavedLoadedAndNotLostByAccident) {
  const TemporaryFolder folder;
  FastClock clock;
  UiBench bench(clock);
  ASSERT_TRUE(bench.Connect());
  CTabDiagnostics& page = OpenScope(bench);
  ASSERT_TRUE(UiBench::WaitFor([&] { return bench.Text("scope_value_rpm") != UiBench::kDashes; }));
  bench.Click("scope_run");
  bench.Find<QPlainTextEdit>("scope_notes").setPlainText("cold start");
  const std::string speed = bench.Text("scope_value_rpm");

  // Neither closing nor loading drops it without a yes.
  bench.frame->close();
  EXPECT_TRUE(bench.frame->isVisible());
  EXPECT_FALSE(page.Load(folder.Path() / "other.osc"));
  EXPECT_EQ(bench.Text("scope_value_rpm"), speed);
  EXPECT_THAT(bench.boxes.said, ElementsAre("question: " + std::string(kRecordingUnsaved),
                                            "question: " + std::string(kRecordingUnsaved)));

  ASSERT_TRUE(page.Save(folder.Path() / "new folder" / "first.osc"));
  bench.Find<QPlainTextEdit>("scope_notes").setPlainText("");
  bench.boxes.answer = true;
  ASSERT_TRUE(page.Load(folder.Path() / "new folder" / "first.osc"));
  EXPECT_EQ(bench.Find<QPlainTextEdit>("scope_notes").toPlainText(), "cold start");
  EXPECT_EQ(bench.Text("scope_value_rpm"), speed);

  std::ofstream(folder.Path() / "broken.osc") << "<GASECUConfiguration/>";
  EXPECT_FALSE(page.Load(folder.Path() / "broken.osc"));
  EXPECT_THAT(bench.boxes.said, Contains("error: " + std::string(kConfigurationNotLoaded)));
  EXPECT_EQ(bench.Text("scope_value_rpm"), speed);

  for (const char* const name : {"graph.png", "graph.pdf", "values.csv"}) {
    EXPECT_TRUE(page.Export(QString::fromStdString((folder.Path() / name).string()))) << name;
    EXPECT_GT(std::filesystem::file_size(folder.Path() / name), 100U) << name;
  }
  EXPECT_FALSE(page.Export("/no such folder/graph.png"));
}

}  // namespace
}  // namespace zelorgas
