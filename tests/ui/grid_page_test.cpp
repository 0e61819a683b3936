#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTimer>
#include <tuple>
#include <utility>

#include "ui/CGridTable.h"
#include "ui/CTabGrid.h"
#include "ui/FastClock.h"
#include "ui/QtMessageBoxes.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

using testing::Each;
using testing::ElementsAre;

constexpr std::uint16_t kFirstCell = 370;
constexpr std::uint16_t kRowStride = 16;

// The window, connected, with the grid page open and the keyboard in the table. The simulated ECU's
// map has 160 in its first three columns and 150 in the next two.
struct GridPage {
  explicit GridPage(Clock& clock, SimulatedLineOptions line = {.paced = false})
      : bench(clock, kSimulatedPortName, line) {
    EXPECT_TRUE(bench.Connect());
    bench.OpenTab("Correction grid");
    Table().setFocus();
  }

  [[nodiscard]] CGridTable& Table() const { return bench.Find<CGridTable>("grid_table"); }
  [[nodiscard]] std::string Text(int row, int column) const {
    return Table().Text({row, column}).toStdString();
  }
  [[nodiscard]] std::uint16_t InEcu(int row, int column) {
    return bench.simulated.Ecu().Register(
        static_cast<std::uint16_t>(kFirstCell + kRowStride * row + column));
  }
  [[nodiscard]] std::vector<int> InEcu(TableCell first, TableCell last) {
    std::vector<int> words;
    for (int row = first.row; row <= last.row; ++row) {
      for (int column = first.column; column <= last.column; ++column) {
        words.push_back(InEcu(row, column));
      }
    }
    return words;
  }
  void Select(TableCell first, TableCell last) const {
    Table().MoveCursor(first);
    Table().MoveCursor(last, true);
  }
  // As a person types: each key goes to what has the keyboard then.
  static void Type(const char* keys) {
    for (const char* key = keys; *key != 0; ++key) {
      QTest::keyClick(QApplication::focusWidget(), *key);
    }
  }
  static void Press(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, with);
  }
  // Lets what was entered reach the ECU.
  bool Settle() {
    QCoreApplication::processEvents();
    return UiBench::WaitFor([this] { return !bench.control.Busy(); });
  }
  void Enter(const char* text) {
    Type(text);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Settle());
  }

  UiBench bench;
};

TEST(GridPage, WhatIsTypedOverACellIsInTheEcuAfterEnter) {
  const std::tuple<const char*, std::uint16_t, const char*, std::size_t> cases[] = {
      {"1.237", 123, "1.23", 0}, {"3,5", 310, "3.10", 1}, {"1.2x", 160, "1.60", 0}};
  for (const auto& [typed, word, shown, messages] : cases) {
    FastClock clock;
    GridPage page(clock);
    page.Enter(typed);
    EXPECT_EQ(page.InEcu(0, 0), word) << typed;
    EXPECT_EQ(page.Text(0, 0), shown) << typed;
    EXPECT_EQ(page.bench.boxes.informed, std::vector(messages, std::string(kOutOfRangeInput)));
    EXPECT_EQ(page.Table().Selection().Cursor(), (TableCell{1, 0}));
    EXPECT_TRUE(page.Table().hasFocus());
  }
}

TEST(GridPage, ValuesTypedFasterThanTheLineAllArriveAndTheLastOneCounts) {
  FastClock clock;
  GridPage page(clock);
  for (const char* const value : {"1.1", "1.2", "1.3"}) {
    page.Type(value);
    page.Press(Qt::Key_Down);
  }
  page.Press(Qt::Key_Home, Qt::ControlModifier);
  page.Enter("1.60");
  EXPECT_THAT(page.InEcu({0, 0}, {3, 0}), ElementsAre(160, 120, 130, 160));
  page.bench.Click("undo_button");
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.InEcu(0, 0), 110);
}

TEST(GridPage, TheKeysOfUndoQueueBehindAnEditThatIsOnItsWay) {
  FastClock clock;
  GridPage page(clock);
  page.Type("1.2");
  page.Press(Qt::Key_Return);
  page.Press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(page.bench.Find<QWidget>("undo_button").isEnabled());
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.InEcu(0, 0), 160);
  EXPECT_TRUE(page.bench.Find<QWidget>("redo_button").isEnabled());
  page.Press(Qt::Key_Z, Qt::ControlModifier);
  page.Press(Qt::Key_Y, Qt::ControlModifier);
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.InEcu(0, 0), 120);
}

TEST(GridPage, EscapeAndALostLinkLeaveTheCellAlone) {
  FastClock clock;
  GridPage page(clock);
  page.Type("2");
  page.Press(Qt::Key_Escape);
  page.Type("2");
  page.bench.simulated.SetEcuUnplugged(true);
  ASSERT_TRUE(page.bench.WaitForState(UiBench::kConnecting));
  page.bench.simulated.SetEcuUnplugged(false);
  ASSERT_TRUE(page.bench.WaitForState(UiBench::kConnected));
  EXPECT_TRUE(page.Settle());
  EXPECT_FALSE(page.bench.Find<QLineEdit>("grid_table_editor").isVisible());
  EXPECT_EQ(page.InEcu(0, 0), 160);
}

TEST(GridPage, WhatWasMeantForOneEcuIsNotWrittenToTheNext) {
  FastClock clock;
  GridPage page(clock);
  page.bench.control.Run([&] {
    page.bench.control.ConnectAnew();
    page.Type("1.2");
    page.Press(Qt::Key_Return);
  });
  EXPECT_EQ(page.bench.control.CurrentState(), CEcuControl::State::kConnected);
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.InEcu(0, 0), 160);
}

TEST(GridPage, TheKeysOfTableEditorsChangeTheSelectionInOneStep) {
  // From the last column with 160 to the first with 145, the cursor in that.
  const std::pair<Qt::Key, std::vector<int>> cases[] = {{Qt::Key_Slash, {160, 155, 150, 145}},
                                                        {Qt::Key_S, {157, 152, 148, 146}},
                                                        {Qt::Key_Equal, {145, 145, 145, 145}},
                                                        {Qt::Key_Plus, {161, 151, 151, 146}},
                                                        {Qt::Key_Minus, {159, 149, 149, 144}}};
  const std::vector<int> before{160, 150, 150, 145};
  FastClock clock;
  GridPage page(clock);
  const auto press = [&](Qt::Key key, Qt::KeyboardModifiers with, const std::vector<int>& words) {
    page.Press(key, with);
    page.Press(Qt::Key_Home);  // too late to mean another cell
    EXPECT_TRUE(page.Settle());
    EXPECT_EQ(page.InEcu({4, 2}, {4, 5}), words) << static_cast<char>(key);
  };
  for (const auto& [key, words] : cases) {
    page.Select({4, 2}, {4, 5});
    press(key, {}, words);
    press(Qt::Key_Z, Qt::ControlModifier, before);
    press(Qt::Key_Y, Qt::ControlModifier, words);
    page.bench.Click("undo_button");
    EXPECT_TRUE(page.Settle());
  }
  EXPECT_FALSE(page.bench.Find<QWidget>("undo_button").isEnabled());
}

TEST(GridPage, CellsAreSelectedByKeyboardAndMouse) {
  FastClock clock;
  GridPage page(clock);
  CGridTable& table = page.Table();
  const auto selected = [&](TableCell first, TableCell last) {
    return table.Selection().First() == first && table.Selection().Last() == last;
  };
  const auto beside = [&](TableCell cell, QPoint offset) {
    return table.CellRect(cell).center() + offset;
  };
  page.Press(Qt::Key_Up);
  page.Press(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_TRUE(selected({0, 0}, {0, 0})) << "there is nothing beyond the edge";
  page.Press(Qt::Key_End);
  page.Press(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(selected({0, 11}, {11, 11}));
  page.Press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_TRUE(selected({0, 0}, {11, 11}));
  QTest::mouseClick(&table, Qt::LeftButton, {}, beside({7, 5}, {}));
  QTest::mouseClick(&table, Qt::LeftButton, Qt::ShiftModifier, beside({4, 6}, {}));
  EXPECT_TRUE(selected({4, 5}, {7, 6}));
  QTest::mouseClick(&table, Qt::RightButton, {}, beside({5, 6}, {}));
  EXPECT_TRUE(selected({4, 5}, {7, 6})) << "the menu is for what is selected";
  QTest::mouseClick(&table, Qt::LeftButton, {},
                    beside({3, 0}, {-table.CellRect({3, 0}).right(), 0}));
  EXPECT_TRUE(selected({3, 0}, {3, 11}));
  QTest::mouseClick(&table, Qt::LeftButton, {},
                    beside({0, 8}, {0, -table.CellRect({0, 8}).bottom()}));
  EXPECT_TRUE(selected({0, 8}, {11, 8}));
  QTest::mouseDClick(&table, Qt::LeftButton, {}, beside({2, 2}, {}));
  EXPECT_EQ(page.bench.Find<QLineEdit>("grid_table_editor").selectedText(), "1.60");
}

TEST(GridPage, StepsAndCentresOutliveAReconnectionToTheSameEcuOnly) {
  FastClock clock;
  GridPage page(clock);
  SimulatedEcu& ecu = page.bench.simulated.Ecu();
  page.Enter("1.2");
  const auto reconnect = [&] {
    page.bench.OpenTab("Start");
    page.bench.Click("connect_button");
    ASSERT_TRUE(page.bench.WaitForState(UiBench::kNotConnected));
    ASSERT_TRUE(page.bench.Connect());
    page.bench.OpenTab("Correction grid");
  };
  ecu.SetRegister(349, 30000);  // the last row's centre
  reconnect();
  page.bench.Click("undo_button");
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.InEcu(0, 0), 160);
  page.Table().MoveCursor({11, 0});
  EXPECT_EQ(page.Table().accessibleDescription(), "30.0, 600: 1.60");

  ecu.SetSerial(654321);
  ecu.SetRegister(336, 3);  // rows in use
  reconnect();
  EXPECT_FALSE(page.bench.Find<QWidget>("redo_button").isEnabled());
  page.Table().MoveCursor({11, 1});
  EXPECT_EQ(page.Table().accessibleDescription(), "24.0, 1200: 1.60");
}

TEST(GridPage, ABoxOverADialogGoesWithTheConnection) {
  FastClock clock;
  GridPage page(clock);
  UiBench& bench = page.bench;
  QtMessageBoxes boxes;
  UiContext context{bench.document,     bench.status, bench.firmware,  bench.control,
                    bench.counters,     boxes,        bench.store,     bench.settings,
                    bench.recent_files, bench.ports,  bench.simulated, {}};
  PageModels models(context, bench.frame->View());
  CTabGrid own_page(context, models, nullptr);
  own_page.findChild<QAction*>("cell_centres_action")->trigger();
  const QPointer<QDialog> dialog = own_page.findChild<QDialog*>("map_refs_dialog");
  dialog->findChild<QLineEdit*>("centre_speed1")->setText("fast");
  QPointer<QMessageBox> box;
  QTimer::singleShot(0, [&] {
    box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    EXPECT_NE(box, nullptr);
    bench.control.Disconnect();
  });
  QTest::mouseClick(dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok),
                    Qt::LeftButton);
  EXPECT_EQ(dialog, nullptr);
  EXPECT_EQ(box, nullptr);
}

TEST(GridPage, ModifyAreaAsksForTheValue) {
  FastClock clock;
  GridPage page(clock);
  page.Press(Qt::Key_Down, Qt::ShiftModifier);
  page.Press(Qt::Key_Right, Qt::ShiftModifier);
  page.Press(Qt::Key_M, Qt::ControlModifier);
  auto* dialog = &page.bench.Find<QDialog>("cell_change_dialog");
  page.bench.Find<QRadioButton>("mode_absolute").click();
  auto& value = page.bench.Find<QLineEdit>("change_value");
  value.setText("two");
  auto* const ok = dialog->findChild<QPushButton*>();
  ASSERT_EQ(ok->text(), "OK");
  EXPECT_FALSE(ok->isEnabled());
  value.setText("1,7512345");
  ok->click();
  EXPECT_TRUE(page.Settle());
  EXPECT_THAT(page.InEcu({0, 0}, {1, 1}), Each(175));
}

TEST(GridPage, ALongActionCanBeCancelledAndTakenBack) {
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  GridPage page(*clock, {});
  page.Table().SelectAll();
  QTimer cancel;
  QObject::connect(&cancel, &QTimer::timeout, [&] {
    auto* const dialog = page.bench.frame->findChild<QDialog*>("progress_dialog");
    if (dialog == nullptr || !dialog->isVisible()) return;
    EXPECT_FALSE(page.bench.Find<QWidget>("interpolate_button").isEnabled());
    QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
  });
  cancel.start(20);
  page.Press(Qt::Key_Plus);
  EXPECT_TRUE(page.Settle());
  cancel.stop();
  EXPECT_EQ(page.Text(0, 0), "1.61");
  EXPECT_EQ(page.Text(11, 11), "1.40");
  page.bench.Find<QAction>("undo_action").trigger();
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.bench.simulated.Ecu().Block(), FactoryConfiguration());
}

TEST(GridPage, TheLiveCellIsFollowedAndNudged) {
  FastClock clock;
  GridPage page(clock);
  page.bench.simulated.Ecu().PinEngine(EngineState{.speed_rpm = 2450, .petrol_time_us = 6100});
  ASSERT_TRUE(UiBench::WaitFor(
      [&] { return page.bench.Text("live_cell") == "Live: 6.0 ms, 2400 1/min, 1.50"; }));
  page.bench.Find<QSlider>("nudge_percent").setValue(10);
  EXPECT_EQ(page.bench.Text("nudge_percent_text"), "10 %");
  page.bench.Click("nudge_increase_button");
  EXPECT_TRUE(page.Settle());
  EXPECT_THAT(page.InEcu({1, 2}, {3, 4}), ElementsAre(168, 157, 157, 168, 165, 157, 168, 157, 157));
  page.bench.Click("nudge_decrease_button");
  EXPECT_TRUE(page.Settle());
  EXPECT_EQ(page.InEcu(2, 3), 148);
}

// Counts how often the pages of the tabs, all but the first, and what they are made of paint.
class PaintCount final : public QObject {
 public:
  explicit PaintCount(const QTabWidget& tabs) {
    for (int tab = 1; tab < tabs.count(); ++tab) {
      for (QWidget* const part : tabs.widget(tab)->findChildren<QWidget*>()) {
        part->installEventFilter(this);
      }
    }
  }
  int paints = 0;

 protected:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
  }
};

TEST(GridPage, PaintsWhatIsLiveAndNothingWhileHiddenAsAllPages) {
  FastClock clock;
  GridPage page(clock);
  const auto& tabs = page.bench.Find<QTabWidget>("tabs");
  for (int tab = 0; tab < tabs.count(); ++tab) page.bench.OpenTab(tabs.tabText(tab));
  page.bench.OpenTab("Correction grid");
  PaintCount count(tabs);
  EXPECT_TRUE(UiBench::WaitFor([&] { return count.paints > 10; }));
  page.bench.OpenTab("Start");
  QCoreApplication::processEvents();
  count.paints = 0;
  const std::string speed = page.bench.Live("live_engine_speed");
  EXPECT_TRUE(UiBench::WaitFor([&] { return page.bench.Live("live_engine_speed") != speed; }));
  EXPECT_EQ(count.paints, 0);
}

}  // namespace
}  // namespace zelorgas
