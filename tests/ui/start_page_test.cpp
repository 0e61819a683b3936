#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <thread>

#include "support/VirtualClock.h"
#include "ui/FastClock.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;

std::vector<std::string> Entries(const QComboBox& list) {
  std::vector<std::string> entries;
  for (int i = 0; i < list.count(); ++i) entries.push_back(list.itemText(i).toStdString());
  return entries;
}

// The watcher speaks on a thread of its own.
void Report(UiBench& bench, PortWatchEvent event) {
  std::thread([&] { bench.report_ports(event); }).join();
  QCoreApplication::sendPostedEvents();
}

TEST(StartPage, PortListFollowsPluggingAndKeepsTheSelection) {
  VirtualClock clock;
  UiBench bench(clock, "/dev/ttyUSB0");
  const auto& list = bench.Find<QComboBox>("port_list");
  EXPECT_THAT(Entries(list), ElementsAre("Simulated ECU"));
  EXPECT_EQ(list.currentIndex(), -1) << "the port of last time is not there";
  EXPECT_FALSE(bench.Find<QWidget>("connect_button").isEnabled());

  bench.machine_ports = {{"/dev/ttyS0", ""}, {"/dev/ttyUSB0", "Serial adapter"}};
  Report(bench, PortWatchEvent::kChanged);
  EXPECT_THAT(Entries(list),
              ElementsAre("/dev/ttyS0", "/dev/ttyUSB0 (Serial adapter)", "Simulated ECU"));
  EXPECT_EQ(list.currentIndex(), 1);
  EXPECT_TRUE(bench.Find<QWidget>("connect_button").isEnabled());
  bench.machine_ports.pop_back();
  Report(bench, PortWatchEvent::kChanged);
  EXPECT_EQ(list.currentIndex(), -1);
  EXPECT_THAT(bench.boxes.informed, ElementsAre("A Serial COMM Device has just been installed!",
                                                "A Serial COMM Device has just been uninstalled!"));
}

TEST(StartPage, APluggedPortIsNoNewsWhileConnected) {
  FastClock clock;
  UiBench bench(clock);
  ASSERT_TRUE(bench.Connect());
  bench.machine_ports = {{"/dev/ttyUSB0", ""}};
  Report(bench, PortWatchEvent::kChanged);
  EXPECT_EQ(bench.Find<QComboBox>("port_list").currentText(), "Simulated ECU");
  EXPECT_THAT(bench.boxes.informed, ElementsAre());
}

TEST(StartPage, ChoosingALanguageStoresItSaysSoAndRestarts) {
  VirtualClock clock;
  UiBench bench(clock);
  auto& list = bench.Find<QComboBox>("language_list");
  EXPECT_EQ(list.currentText(), "English");
  emit list.activated(0);
  EXPECT_EQ(bench.settings.Language(), kLanguageBulgarian);
  EXPECT_THAT(bench.boxes.informed, ElementsAre(std::string(kLanguageNotice)));
  EXPECT_TRUE(bench.frame->RestartWanted());
  EXPECT_FALSE(bench.frame->isVisible());
}

// A screen reader says the accessible name; tests and scripts go by the object name.
TEST(MainFrame, EveryControlHasItsNames) {
  VirtualClock clock;
  UiBench bench(clock);
  auto& tabs = bench.Find<QTabWidget>("tabs");
  for (int tab = 0; tab < tabs.count(); ++tab) bench.OpenTab(tabs.tabText(tab));
  QList<QWidget*> controls;
  for (auto* const button : bench.frame->findChildren<QAbstractButton*>()) controls += button;
  for (auto* const list : bench.frame->findChildren<QComboBox*>()) controls += list;
  for (auto* const field : bench.frame->findChildren<QLineEdit*>()) controls += field;
  for (auto* const tile : bench.frame->findChildren<CValueTile*>()) controls += tile;
  for (const char* const name : {"main_view", "tabs", "start_page", "live_strip", "status_line",
                                 "communication_state", "status_quality", "ecu_card"}) {
    controls += &bench.Find<QWidget>(name);
  }
  for (const QWidget* const control : controls) {
    // Parts that the toolkit builds its own widgets of.
    if (control->objectName().startsWith("qt_") || control->objectName().startsWith("Scroll") ||
        control->inherits("QLineEditIconButton"))
      continue;
    EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
    // What a button says is its name where it has no other.
    const auto* const button = qobject_cast<const QAbstractButton*>(control);
    EXPECT_FALSE(control->accessibleName().isEmpty() &&
                 (button == nullptr || button->text().isEmpty()))
        << control->objectName().toStdString();
  }
  EXPECT_GE(controls.size(), 14 + 12 + 3 + 8);
}

}  // namespace
}  // namespace zelorgas
