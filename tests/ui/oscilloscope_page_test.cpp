#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFileDialog>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <numeric>

#include "diag/RecordingFile.h"
#include "platform/FileSystem.h"
#include "support/TemporaryFolder.h"
#include "ui/CTabDiagnostics.h"
#include "ui/FastClock.h"
#include "ui/ScopePoints.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

using testing::StartsWith;

CTabDiagnostics& OpenScope(UiBench& bench) {
  return bench.frame->View().OpenPage<CTabDiagnostics>("Oscilloscope");
}

bool WaitForLiveData(const UiBench& bench, int updates) {
  const auto counting =
      QObject::connect(&bench.frame->View(), &ClpgecuView::LiveDataCame, [&updates] { --updates; });
  const bool came = UiBench::WaitFor([&updates] { return updates <= 0; });
  QObject::disconnect(counting);
  return came;
}

TEST(ScopePoints, KeepEveryPeakAndDrawNoMoreThanCanBeSeen) {
  std::deque<double> samples(6400);
  std::iota(samples.begin(), samples.end(), 0.0);
  samples[3001] = -50;
  samples[2559] = 90000;
  for (const int columns : {800, 405}) {  // of 8 samples, and of 15.8
    const ScopePoints points = PointsOf(samples, 0.1, 640, columns);
    EXPECT_LE(points.values.size(), 2 * columns + 2);
    EXPECT_EQ(std::ranges::min(points.values), -50);
    EXPECT_EQ(std::ranges::max(points.values), 90000) << columns;
    EXPECT_TRUE(std::ranges::is_sorted(points.seconds));
  }
  EXPECT_EQ(PointsOf({1, 2, 3}, 0.1, 40, 800).values, QVector<double>({1, 2, 3}));
}

TEST(OscilloscopePage, RecordsWhileHiddenStopsAndReadsOut) {
  FastClock clock;
  UiBench bench(clock);
  ASSERT_TRUE(bench.Connect());
  bench.frame->close();
  EXPECT_TRUE(bench.boxes.said.empty()) << "nothing is recorded before the page is opened";
  bench.frame->show();
  ASSERT_TRUE(bench.Connect());
  OpenScope(bench);
  bench.OpenTab("Start");
  EXPECT_TRUE(WaitForLiveData(bench, 20));
  bench.frame->close();
  EXPECT_TRUE(bench.frame->isVisible()) << "what came while the page was hidden is not lost";
  OpenScope(bench);
  EXPECT_TRUE(UiBench::WaitFor([&] { return bench.Text("scope_value_rpm") != UiBench::kDashes; }));

  bench.Click("scope_run");
  const std::string stopped = bench.Text("scope_value_rpm");
  EXPECT_TRUE(WaitForLiveData(bench, 5));
  EXPECT_EQ(bench.Text("scope_value_rpm"), stopped);
  auto& plot = bench.Find<CPlot>("scope_plot");
  emit plot.PointedAt(0.21);
  EXPECT_EQ(bench.Text("scope_place"), "0.2 s before the newest");
  const std::tuple<Qt::Key, Qt::KeyboardModifiers, const char*> keys[] = {
      {Qt::Key_Right, Qt::NoModifier, "0.3 s before the newest"},
      {Qt::Key_Right, Qt::ShiftModifier, "1.3 s before the newest"},
      {Qt::Key_Right, Qt::ControlModifier, "1.3 s before the newest"},
      {Qt::Key_Left, Qt::NoModifier, "1.2 s before the newest"},
  };
  for (const auto& [key, modifiers, place] : keys) {
    QTest::keyClick(&plot, key, modifiers);
    EXPECT_EQ(bench.Text("scope_place"), place);
  }
}

TEST(OscilloscopePage, ARecordingIsSavedLoadedAndNotLostByAccident) {
  const TemporaryFolder folder;
  FastClock clock;
  UiBench bench(clock);
  ASSERT_TRUE(bench.Connect());
  CTabDiagnostics& page = OpenScope(bench);
  ASSERT_TRUE(UiBench::WaitFor([&] { return bench.Text("scope_value_rpm") != UiBench::kDashes; }));

  // Samples go on arriving while a question is open; saved is what was seen before.
  const std::filesystem::path file = folder.Path() / "running.osc";
  ASSERT_TRUE(page.Save(file));
  const std::size_t before = LoadRecordingFile(file).traces.Length();
  bench.boxes.answer = true;
  bench.boxes.while_asking = [&] { EXPECT_TRUE(WaitForLiveData(bench, 20)); };
  ASSERT_TRUE(page.Save(file));
  EXPECT_EQ(LoadRecordingFile(file).traces.Length(), before);
  bench.boxes.while_asking = {};
  bench.boxes.answer = false;
  bench.frame->close();
  EXPECT_TRUE(bench.frame->isVisible()) << "what came since is unsaved";
  bench.boxes.answer = true;

  bench.Click("scope_run");
  bench.Find<QPlainTextEdit>("scope_notes").setPlainText("cold start");
  const std::string speed = bench.Text("scope_value_rpm");
  const std::filesystem::path first = folder.Path() / "new folder" / "first.osc";
  ASSERT_TRUE(page.Save(first));
  EXPECT_EQ(bench.recent_files.Files().front(), PathText(first));
  auto& notes = bench.Find<QPlainTextEdit>("scope_notes");
  notes.setPlainText("");
  ASSERT_EQ(page.Load(first), RecordingLoad::kLoaded);
  EXPECT_EQ(notes.toPlainText(), "cold start");
  EXPECT_EQ(bench.Text("scope_value_rpm"), speed);

  emit bench.Find<CPlot>("scope_plot").PointedAt(0.21);
  QTest::keyClicks(&notes, "A ");
  bench.boxes.answer = false;
  EXPECT_TRUE(bench.frame->OpenDocument(PathText(first))) << "declined is not failed";
  EXPECT_EQ(bench.recent_files.Files().front(), PathText(first));
  EXPECT_EQ(bench.Text("scope_place"), "0.2 s before the newest");
  EXPECT_TRUE(notes.document()->isUndoAvailable());
  bench.boxes.answer = true;

  for (const char* const name : {"graph.png", "graph.pdf", "values.csv"}) {
    EXPECT_TRUE(page.Export(QString::fromStdString((folder.Path() / name).string()))) << name;
    EXPECT_GT(std::filesystem::file_size(folder.Path() / name), 100U) << name;
  }
  EXPECT_FALSE(page.Export("/no such folder/graph.png"));
  // The reason is the system's own.
  EXPECT_THAT(bench.boxes.informed.back(),
              StartsWith("/no such folder/graph.png could not be written.\n"));
  QTimer::singleShot(0, [&] {
    auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    dialog->selectFile(QString::fromStdString((folder.Path() / "run 1.5").string()));
    QMetaObject::invokeMethod(dialog, "accept");
  });
  bench.Click("scope_export");
  EXPECT_TRUE(std::filesystem::exists(folder.Path() / "run 1.5.png"));
}

TEST(OscilloscopePage, AHostileFileNeitherSlowsNorWidensThePage) {
  const TemporaryFolder folder;
  FastClock clock;
  UiBench bench(clock);
  CTabDiagnostics& page = OpenScope(bench);
  bench.Click("scope_run");
  const int width = page.minimumSizeHint().width();
  ScopeTraces traces;
  for (auto& samples : traces.channels) samples = {-1e300, 1e300, -9999999, 3};
  traces.notes.assign(3'000'000, 'x');
  Message reason;
  const std::filesystem::path file = folder.Path() / "hostile.osc";
  ASSERT_TRUE(WriteRecording(traces, file, reason));
  ASSERT_EQ(page.Load(file), RecordingLoad::kLoaded);
  auto& notes = bench.Find<QPlainTextEdit>("scope_notes");
  EXPECT_TRUE(notes.isReadOnly());
  EXPECT_LT(notes.toPlainText().size(), 30'000);
  EXPECT_EQ(bench.Text("scope_value_rpm"), "-1e+300");
  QCoreApplication::processEvents();
  EXPECT_EQ(page.minimumSizeHint().width(), width);
  bench.boxes.answer = true;
  ASSERT_TRUE(page.Save(file));
  EXPECT_EQ(LoadRecordingFile(file).traces.notes, traces.notes);
}

}  // namespace
}  // namespace zelorgas
