#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QWheelEvent>

#include "config/Parameters.h"
#include "ui/CParameterRow.h"
#include "ui/ClpgecuView.h"
#include "ui/FastClock.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

// The window, connected, with the configuration page open.
struct ConfigurationPage {
  explicit ConfigurationPage(const char* group) : bench(clock) {
    EXPECT_TRUE(bench.Connect());
    bench.OpenTab("Configuration");
    auto& groups = bench.Find<QListWidget>("configuration_groups");
    groups.setCurrentItem(groups.findItems(group, Qt::MatchExactly).value(0));
  }

  [[nodiscard]] QLineEdit& Field(const char* name) const { return bench.Find<QLineEdit>(name); }
  [[nodiscard]] QComboBox& List(const char* name) const { return bench.Find<QComboBox>(name); }
  [[nodiscard]] std::uint16_t InEcu(const char* name) {
    const Parameter& parameter = *FindParameter(name);
    return parameter.ValueIn(bench.simulated.Ecu().Register(parameter.Register()));
  }
  bool WaitInEcu(const char* name, std::uint16_t value) {
    return UiBench::WaitFor([&] { return InEcu(name) == value && !bench.control.Busy(); });
  }
  static void Type(QLineEdit& field, const char* text, Qt::Key then = Qt::Key_Return) {
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, text);
    QTest::keyClick(&field, then);
  }
  void Choose(const char* name, const char* entry) const {
    QComboBox& list = List(name);
    list.setCurrentText(entry);
    emit list.activated(list.currentIndex());
    QCoreApplication::processEvents();
  }

  FastClock clock;
  UiBench bench;
};

TEST(ConfigurationPage, ANumberIsInTheEcuOnceItIsEntered) {
  ConfigurationPage page("Change-over");
  QLineEdit& field = page.Field("temp_hot_eng");
  const QString before = field.text();
  EXPECT_EQ(before.toInt(), page.InEcu("TEMP_HOT_ENG"));
  page.Type(field, "47");
  EXPECT_TRUE(page.WaitInEcu("TEMP_HOT_ENG", 47));
  page.Type(field, "65535", Qt::Key_Tab);
  EXPECT_TRUE(page.WaitInEcu("TEMP_HOT_ENG", 65535)) << "leaving the field enters it";
  EXPECT_EQ(field.text(), "65535");

  const std::size_t writes = page.bench.simulated.Ecu().WriteCount();
  for (const char* const refused : {"65536", "-1", "2.5", "hot"}) {
    page.Type(field, refused);
    EXPECT_EQ(field.text(), "65535") << refused;
    EXPECT_EQ(page.bench.boxes.statuses.back(),
              "TEMP_HOT_ENG cannot be \"" + std::string(refused) + "\": 0 to 65535.");
  }
  page.Type(field, "12", Qt::Key_Escape);
  EXPECT_EQ(field.text(), "65535");
  EXPECT_EQ(page.bench.simulated.Ecu().WriteCount(), writes);
}

TEST(ConfigurationPage, AFailedWriteIsToldAndShowsTheValueOfTheEcu) {
  ConfigurationPage page("Safety");
  auto& flag = page.bench.Find<QCheckBox>("gp_changeover_on_rpm");
  const bool before = flag.isChecked();
  QTest::mouseClick(&flag, Qt::LeftButton, {}, QPoint(8, flag.height() / 2));
  ASSERT_TRUE(page.WaitInEcu("GP_CHANGEOVER_ON_RPM", before ? 0 : 1));

  QLineEdit& field = page.Field("rpm_trouble");
  const QString value = field.text();
  page.bench.simulated.SetEcuUnplugged(true);
  page.Type(field, "4711");
  const auto told = [&] { return !page.bench.boxes.said.empty() && !page.bench.control.Busy(); };
  ASSERT_TRUE(UiBench::WaitFor(told));
  EXPECT_THAT(
      page.bench.boxes.said,
      testing::ElementsAre("error: The parameter could not be loaded into the target system!"));
  EXPECT_EQ(field.text(), value);
  page.bench.simulated.SetEcuUnplugged(false);
  EXPECT_TRUE(page.bench.WaitForState(UiBench::kConnected));
}

TEST(ConfigurationPage, AnInjectorBringsItsValuesAndItsNozzle) {
  ConfigurationPage page("Injection");
  page.Choose("injector_type", "VALTEK");
  ASSERT_TRUE(page.WaitInEcu("INJECTOR_TYPE", 4));
  EXPECT_EQ(page.InEcu("TSPEEDUP"), 5000);
  EXPECT_EQ(page.Field("tspeedup").text(), "5000");
  QLineEdit& nozzle = page.Field("nozzlediam");
  const auto background = [&] { return nozzle.palette().color(QPalette::Base); };
  page.Type(nozzle, "1.0");
  ASSERT_TRUE(page.WaitInEcu("NOZZLEDIAM", 10));
  EXPECT_EQ(background(), QColor(255, 128, 128));
  page.Type(nozzle, "1,1");
  ASSERT_TRUE(page.WaitInEcu("NOZZLEDIAM", 11));
  EXPECT_EQ(nozzle.text(), "1.1");
  EXPECT_EQ(background(), page.Field("tspeedup").palette().color(QPalette::Base));

  page.Choose("injector_type", "STEFANELLI-RED");
  ASSERT_TRUE(page.WaitInEcu("INJECTOR_TYPE", 7));
  EXPECT_EQ(nozzle.text(), "---");
  EXPECT_FALSE(nozzle.isEnabled());

  page.bench.simulated.SetEcuUnplugged(true);
  page.Choose("injector_type", "MAGIC");
  EXPECT_FALSE(page.bench.boxes.informed.empty());
  EXPECT_EQ(page.List("injector_type").currentText(), "MAGIC") << "until it is read again";
  EXPECT_THAT(page.bench.Text("injector_type_note"), testing::HasSubstr("STEFANELLI-RED"));
  page.bench.simulated.SetEcuUnplugged(false);
  page.bench.simulated.Ecu().SetRegister(285, 77);
  page.bench.Find<QAction>("refresh_action").trigger();
  EXPECT_TRUE(UiBench::WaitFor([&] { return nozzle.isEnabled(); })) << "an unknown injector";
  EXPECT_EQ(nozzle.text(), "1.1");
}

TEST(ConfigurationPage, WhatWasNotedForOneEcuIsNotTakenForTheNext) {
  ConfigurationPage page("Vehicle");
  page.Choose("routing_map", "Map 2");
  EXPECT_EQ(page.bench.document.RoutingMap(), 1U);
  for (const std::uint32_t serial : {123456U, 654321U}) {
    page.bench.simulated.Ecu().SetSerial(serial);
    page.bench.Find<QAction>("disconnect_action").trigger();
    page.bench.Find<QAction>("connect_action").trigger();
    const bool same = serial == 123456;
    ASSERT_TRUE(page.bench.WaitForState(UiBench::kConnected));
    EXPECT_EQ(page.bench.document.RoutingMap(), same ? 1U : 0U);
    EXPECT_TRUE(UiBench::WaitFor(
        [&] { return page.List("routing_map").currentText() == (same ? "Map 2" : "Map 1"); }));
  }
}

TEST(ConfigurationPage, SensorsSetTheScaleOfWhatTheyMeasure) {
  ConfigurationPage page("Sensors");
  // The wheel scrolls the page and leaves the lists alone.
  QComboBox& list = page.List("tw_sensor_type");
  const int before = list.currentIndex();
  list.setFocus();
  for (const int turn : {-120, 120}) {
    QWheelEvent wheel({5, 5}, list.mapToGlobal(QPointF(5, 5)), {}, {0, turn}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&list, &wheel);
    EXPECT_EQ(list.currentIndex(), before);
  }

  auto& pressure = page.bench.Find<QProgressBar>("gas_pressure_now");
  page.Choose("pressure_sensor_tpye", "Zelor-P9400");
  EXPECT_EQ(pressure.maximum(), 4200);
  auto& switch_mode = page.bench.Find<QCheckBox>("switch_mode");
  const auto choose = [&](int index) {
    emit page.List("pressure_sensor_tpye").activated(index);
    switch_mode.click();
  };
  // The click comes before the choice is in the ECU, and is not meant for that.
  choose(0);
  EXPECT_TRUE(page.WaitInEcu("PRESSURE_SENSOR_TPYE", 1));
  choose(1);
  EXPECT_TRUE(page.WaitInEcu("PRESSURE_SENSOR_TPYE", 0));
  EXPECT_EQ(page.InEcu("ONOFF_PRESSURE_SENSOR_TPYE"), 1);
  EXPECT_TRUE(UiBench::WaitFor([&] { return !page.bench.control.Busy(); }));
  EXPECT_FALSE(switch_mode.isChecked());

  page.Type(page.Field("parameter_search"), "lambda", Qt::Key_End);
  page.Choose("lambda_oxygenrange", "0-12V");
  EXPECT_EQ(page.bench.simulated.Ecu().Register(324), 3);
  EXPECT_EQ(page.bench.Find<QProgressBar>("lambda1_now").maximum(), 1200);
}

TEST(ConfigurationPage, AnOpenListShowsAfterwardsWhatCameMeanwhile) {
  ConfigurationPage page("Sensors");
  QComboBox& list = page.List("tw_sensor_type");
  const auto while_open = [&](std::uint16_t in_ecu, std::initializer_list<Qt::Key> keys) {
    list.showPopup();
    page.bench.simulated.Ecu().SetRegister(286, in_ecu);
    bool read = false;
    QObject scope;
    QObject::connect(&page.bench.Find<ClpgecuView>("main_view"), &ClpgecuView::ImageRead, &scope,
                     [&read] { read = true; });
    page.bench.Find<QAction>("refresh_action").trigger();
    EXPECT_TRUE(UiBench::WaitFor([&read] { return read; }));
    for (const Qt::Key key : keys) QTest::keyClick(list.view(), key);
    EXPECT_FALSE(list.view()->isVisible());
    EXPECT_TRUE(UiBench::WaitFor([&] { return !page.bench.control.Busy(); }));
  };
  while_open(2, {Qt::Key_Escape});
  EXPECT_EQ(list.currentText(), "Romano-CNG");
  while_open(0, {Qt::Key_Home, Qt::Key_Down, Qt::Key_Return});
  EXPECT_TRUE(page.WaitInEcu("TW_SENSOR_TYPE", 1)) << "what was chosen";
  EXPECT_EQ(list.currentText(), "Zelor-T740429");
}

TEST(ConfigurationPage, ShowsEveryParameterInItsGroupOrWhatTheSearchFinds) {
  ConfigurationPage page("Vehicle");
  const auto& groups = page.bench.Find<QListWidget>("configuration_groups");
  const QList<CParameterRow*> rows = page.bench.frame->findChildren<CParameterRow*>();
  EXPECT_EQ(static_cast<std::size_t>(rows.size()), Parameters().size());
  const auto shown = [&] { return std::ranges::count_if(rows, &QWidget::isVisible); };
  EXPECT_EQ(shown(), 0);
  std::ptrdiff_t in_groups = 0;
  for (int group = 1; group < groups.count(); ++group) {
    QTest::mouseClick(groups.viewport(), Qt::LeftButton, {},
                      groups.visualItemRect(groups.item(group)).center());
    in_groups += shown();
  }
  EXPECT_EQ(in_groups, rows.size());

  page.Type(page.Field("parameter_search"), "RPM cold", Qt::Key_End);
  EXPECT_EQ(shown(), 1);
  EXPECT_TRUE(page.Field("rpm_cold_eng").isVisible());
  page.Type(page.Field("parameter_search"), "xyzzy", Qt::Key_End);
  EXPECT_EQ(page.bench.Text("parameters_found"),
            "Nothing here has these words in its name or meaning.");
  for (const auto& [words, field] : {std::pair("engine CODE", "engine_code"),
                                     {"routing stored", "routing_map"},
                                     {"on/off switch", "switch_mode"}}) {
    page.Type(page.Field("parameter_search"), words, Qt::Key_End);
    EXPECT_TRUE(page.bench.Find<QWidget>(field).isVisible()) << words;
    EXPECT_TRUE(page.bench.Text("parameters_found").starts_with("Found: ")) << words;
    EXPECT_FALSE(page.Field("vehicle_make").isVisible());
  }
  page.Type(page.Field("parameter_search"), "", Qt::Key_Escape);
  EXPECT_TRUE(page.List("lambda_oxygenrange").isVisible()) << "the last group is back";
}

}  // namespace
}  // namespace zelorgas
