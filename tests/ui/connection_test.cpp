#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <algorithm>

#include "app/RestartWriteBack.h"
#include "support/VirtualClock.h"
#include "ui/FastClock.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

TEST(Window, ConnectsShowsTheEcuAndItsLiveValuesMove) {
  FastClock clock;
  UiBench bench(clock);
  EXPECT_EQ(bench.Text("communication_state"), UiBench::kNotConnected);
  EXPECT_EQ(bench.frame->windowTitle(), "ZELOR GASECU - [Untitled]");
  ASSERT_TRUE(bench.Connect());
  EXPECT_EQ(bench.Find<QPushButton>("connect_button").text(), "Disconnect");
  EXPECT_EQ(bench.Text("ecu_serial"), "ECU123456");
  EXPECT_EQ(bench.Text("ecu_software"), "00.39");
  EXPECT_EQ(bench.Text("ecu_vendor"), "Tarnwick Ltd.");
  EXPECT_EQ(bench.Text("status_serial"), "ECU123456");
  EXPECT_EQ(bench.Text("status_port"), "Simulated ECU");
  const std::string speed = bench.Live("live_engine_speed");
  EXPECT_TRUE(UiBench::WaitFor([&] { return bench.Live("live_engine_speed") != speed; }));
  EXPECT_EQ(bench.settings.Port(), "") << "next time the person means the car's port";
}

TEST(Window, APulledPlugDisablesThePagesAndHealsByItself) {
  FastClock clock;
  UiBench bench(clock);
  CEcuPage* page = nullptr;
  bench.frame->View().AddPage("Some page", CPageFrame::Needs::kLink,
                              [&](QWidget* parent) { return page = new CEcuPage(parent); });
  EXPECT_EQ(page, nullptr) << "made when it is needed";
  auto& tabs = bench.Find<QTabWidget>("tabs");
  tabs.setCurrentIndex(tabs.count() - 1);
  ASSERT_NE(page, nullptr);
  EXPECT_FALSE(page->isEnabled());
  tabs.setCurrentIndex(0);
  ASSERT_TRUE(bench.Connect());
  tabs.setCurrentIndex(tabs.count() - 1);
  EXPECT_TRUE(page->isEnabled());
  EXPECT_TRUE(bench.Text("disabled_reason").empty());

  for (const char* const plug : {"unplug_ecu_action", "unplug_adapter_action"}) {
    bench.Find<QAction>(plug).trigger();
    ASSERT_TRUE(bench.WaitForState(UiBench::kConnecting)) << plug;
    EXPECT_TRUE(bench.boxes.HasStatus("The ECU does not answer."));
    EXPECT_FALSE(page->isEnabled());
    EXPECT_FALSE(bench.Text("disabled_reason").empty());

    bench.Find<QAction>(plug).trigger();
    ASSERT_TRUE(bench.WaitForState(UiBench::kConnected)) << plug;
    EXPECT_TRUE(page->isEnabled());
    const std::string speed = bench.Live("live_engine_speed");
    EXPECT_TRUE(UiBench::WaitFor([&] { return bench.Live("live_engine_speed") != speed; })) << plug;
  }
}

TEST(Window, AMessageAndTheStateAreReadInANarrowWindow) {
  FastClock clock;
  UiBench bench(clock);
  ASSERT_TRUE(bench.Connect());
  const auto& port = bench.Find<QLabel>("status_port");
  for (const char* const text : {"The ECU does not answer.", ""}) {
    bench.frame->ShowMessage(text);
    bench.frame->resize(480, 1);
    for (const char* const name : {"status_message", "communication_state"}) {
      const auto& shown = bench.Find<QLabel>(name);
      EXPECT_TRUE(UiBench::WaitFor([&] { return shown.width() >= shown.sizeHint().width(); }))
          << name << " " << shown.text().toStdString();
    }
  }
  bench.frame->resize(1200, 760);
  EXPECT_TRUE(UiBench::WaitFor([&] { return port.width() >= port.sizeHint().width(); }));
}

TEST(Window, AnotherEcuOnTheSameCableIsConnectedToAnew) {
  FastClock clock;
  UiBench bench(clock);
  ASSERT_TRUE(bench.Connect());
  bench.Find<QAction>("unplug_ecu_action").trigger();
  ASSERT_TRUE(bench.WaitForState(UiBench::kConnecting));
  bench.simulated.Ecu().SetSerial(654321);
  bench.simulated.Ecu().SetRegister(kBlockFirstRegister, 12345);
  bench.simulated.RestartEcu();
  bench.Find<QAction>("unplug_ecu_action").trigger();
  ASSERT_TRUE(UiBench::WaitFor([&] { return bench.Text("ecu_serial") == "ECU654321"; }));
  ASSERT_TRUE(bench.WaitForState(UiBench::kConnected));
  EXPECT_EQ(bench.simulated.Ecu().Register(kBlockFirstRegister), 12345) << "nothing is written";
  EXPECT_EQ(bench.document.Snapshot().block, bench.simulated.Ecu().Block());
}

TEST(Window, ARestartedEcuGetsItsConfigurationBack) {
  FastClock clock;
  UiBench bench(clock);
  ASSERT_TRUE(bench.Connect());
  const ConfigurationBlock before = bench.simulated.Ecu().Block();
  ASSERT_EQ(bench.document.Snapshot().block, before);
  bench.simulated.Ecu().SetRegister(kBlockFirstRegister, 12345);
  bench.simulated.Ecu().SetRegister(kBlockLastRegister, 12345);
  bench.Find<QAction>("restart_ecu_action").trigger();
  ASSERT_TRUE(
      UiBench::WaitFor([&] { return bench.boxes.HasStatus("The data have been synchronized."); }));
  EXPECT_EQ(bench.boxes.statuses.front(), kRestartNotice);
  EXPECT_EQ(bench.simulated.Ecu().Block(), before);
  EXPECT_FALSE(bench.control.Busy());
  EXPECT_TRUE(bench.boxes.informed.empty());
}

// Records, by the document's clock, how long the event loop was away.
class HeartBeat {
 public:
  explicit HeartBeat(const Clock& clock) : clock_(clock), last_(clock.Now()) {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      longest_ = std::max(longest_, clock_.Now() - last_);
      last_ = clock_.Now();
      ++beats_;
    });
    timer_.start(0);
  }

  [[nodiscard]] double LongestGapMs() const {
    return std::chrono::duration<double, std::milli>(longest_).count();
  }
  [[nodiscard]] int Beats() const { return beats_; }

 private:
  const Clock& clock_;
  Clock::TimePoint last_;
  Clock::Duration longest_{0};
  int beats_ = 0;
  QTimer timer_;
};

TEST(Window, StaysAliveWhileItConnectsToADeadLine) {
  VirtualClock clock;
  UiBench bench(clock);
  bench.simulated.SetEcuUnplugged(true);
  const double before = clock.ElapsedMs();
  const HeartBeat heart(clock);
  bool connect_was_enabled = false;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    if (!bench.control.Busy()) return;
    connect_was_enabled |= bench.Find<QPushButton>("connect_button").isEnabled();
    connect_was_enabled |= bench.Find<QAction>("connect_action").isEnabled();
    if (bench.control.CurrentState() == CEcuControl::State::kConnecting) {
      EXPECT_EQ(bench.Text("communication_state"), UiBench::kConnecting);
    }
  });
  look.start(0);
  bench.Click("connect_button");
  // The end time-out and the failure pause.
  EXPECT_GE(clock.ElapsedMs() - before, 2000);
  EXPECT_LE(heart.LongestGapMs(), 50);
  EXPECT_GE(heart.Beats(), 2000 / 50);
  EXPECT_FALSE(connect_was_enabled);
  ASSERT_EQ(bench.boxes.informed.size(), 1U);
  EXPECT_TRUE(bench.boxes.informed[0].starts_with("Couldn't establish connection with GASECU!"));
  EXPECT_EQ(bench.Text("communication_state"), UiBench::kNotConnected);
  EXPECT_FALSE(bench.document.Link().IsOpen());
  EXPECT_FALSE(bench.document.HasWorker());
  EXPECT_TRUE(bench.Find<QPushButton>("connect_button").isEnabled());
}

TEST(Window, AWishForTheEcuWaitsUntilTheProcedureHasEnded) {
  VirtualClock clock;
  UiBench bench(clock);
  bench.simulated.SetEcuUnplugged(true);
  std::vector<std::string> order;
  QTimer::singleShot(0, [&] {
    order.push_back(bench.control.Busy() ? "asked during" : "asked too late");
    bench.control.Run([&] { order.push_back("ran"); });
    bench.control.WhenIdle([&] { order.push_back(bench.control.Busy() ? "busy" : "idle"); });
    order.push_back("went on");
  });
  bench.Click("connect_button");
  EXPECT_EQ(order, (std::vector<std::string>{"asked during", "went on", "ran", "idle"}));
}

TEST(Window, ClosingItDisconnectsAndRemembersItsPlace) {
  FastClock clock;
  UiBench bench(clock);
  ASSERT_TRUE(bench.Connect());
  // Within the screen: a newer toolkit gives a window no more than that.
  constexpr QSize kSize(780, 707);
  bench.frame->resize(kSize);
  bench.Find<QAction>("cylinders_action").setChecked(true);
  bench.frame->close();
  EXPECT_FALSE(bench.frame->isVisible());
  EXPECT_FALSE(bench.document.HasWorker());
  EXPECT_FALSE(bench.document.Link().IsOpen());
  bench.frame.reset();
  bench.frame = std::make_unique<CMainFrame>(bench.context);
  EXPECT_EQ(bench.frame->size(), kSize);
  EXPECT_TRUE(bench.Find<QAction>("cylinders_action").isChecked());
}

}  // namespace
}  // namespace zelorgas
