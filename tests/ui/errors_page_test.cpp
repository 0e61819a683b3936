#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabBar>

#include "ui/CErrSheet.h"
#include "ui/FastClock.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

using testing::ElementsAre;

// The window, connected to an ECU with temporary errors 1 and 8 and permanent error 3, with the
// error page open.
struct ErrorsPage {
  ErrorsPage() : bench(clock) {
    EXPECT_TRUE(bench.Connect());
    EXPECT_TRUE(Marked(bench.Find<QTabWidget>("tabs"), "Errors")) << "before the page is opened";
    bench.OpenTab("Errors");
  }

  static bool Marked(const QTabWidget& tabs, const QString& title) {
    for (int tab = 0; tab < tabs.count(); ++tab) {
      if (tabs.tabText(tab) == title) return !tabs.tabIcon(tab).isNull();
    }
    return false;
  }
  [[nodiscard]] bool Highlighted(const char* title) const {
    return Marked(bench.Find<CErrSheet>("error_sheet"), title);
  }
  [[nodiscard]] QListWidget& List(const char* name) const { return bench.Find<QListWidget>(name); }
  [[nodiscard]] std::vector<std::string> Entries(const char* name) const {
    std::vector<std::string> entries;
    for (int row = 0; row < List(name).count(); ++row) {
      entries.push_back(List(name).item(row)->text().toStdString());
    }
    return entries;
  }
  void ClickRow(const char* name, int row) const {
    QTest::mouseClick(List(name).viewport(), Qt::LeftButton, {},
                      List(name).visualItemRect(List(name).item(row)).center());
  }
  [[nodiscard]] QString Description(const char* name) const {
    return bench.Find<QPlainTextEdit>(name).toPlainText();
  }

  FastClock clock;
  UiBench bench;
};

TEST(ErrorsPage, ShowsWhatWasReadWithTheConnection) {
  const ErrorsPage page;
  EXPECT_THAT(page.Entries("temporary_error_list"),
              ElementsAre(" 005  Coolant Temperature too low", " 002  Start on GAS"));
  EXPECT_THAT(page.Entries("permanent_error_list"), ElementsAre(" 001  Permanent DTC 03"));
  EXPECT_TRUE(page.Highlighted("Temporary"));
  EXPECT_TRUE(page.Highlighted("Permanent"));
  EXPECT_EQ(page.Description("temporary_error_description"), "");
  page.ClickRow("temporary_error_list", 1);
  EXPECT_EQ(page.Description("temporary_error_description"), "The vehicle has been started on GAS");
  page.bench.Find<QAction>("disconnect_action").trigger();
  EXPECT_FALSE(page.Highlighted("Temporary")) << "of an ECU that has gone";

  auto& sheet_page = page.bench.Find<QWidget>("temporary_errors");
  sheet_page.resize(1003, 501);
  EXPECT_EQ(page.List("temporary_error_list").geometry(), QRect(2, 2, 597, 491));
  EXPECT_EQ(page.bench.Find<QWidget>("temporary_error_description").geometry(),
            QRect(601, 2, 395, 491));
}

TEST(ErrorsPage, DeletesTheSelectedErrorInTheEcu) {
  ErrorsPage page;
  page.bench.boxes.answer = true;
  page.bench.Click("delete_error_button");
  EXPECT_EQ(page.bench.boxes.informed.back(), "Please, select an item/error!");
  page.ClickRow("temporary_error_list", 0);
  QTest::keyClick(&page.List("temporary_error_list"), Qt::Key_Delete);
  EXPECT_EQ(page.bench.simulated.Ecu().ErrorCount(false, 1), 0);
  EXPECT_THAT(page.Entries("temporary_error_list"), ElementsAre(" 002  Start on GAS"));
  EXPECT_EQ(page.Description("temporary_error_description"), "");

  page.bench.Find<QTabWidget>("error_sheet").setCurrentIndex(1);
  page.ClickRow("permanent_error_list", 0);
  page.List("permanent_error_list").actions().at(1)->trigger();
  EXPECT_EQ(page.bench.simulated.Ecu().ErrorCount(true, 3), 0);
  EXPECT_FALSE(page.Highlighted("Permanent"));
  EXPECT_EQ(page.bench.Text("permanent_errors_empty"), "There are no errors.");
}

}  // namespace
}  // namespace zelorgas
