// A person's session in the whole window program, as its main() starts it: connect, look at the
// live values, change a cell of the correction grid, store the configuration, read and delete
// errors, disconnect. It needs a serial port that the settings name and an ECU behind it, so a
// script starts it: tests/wine/window_session.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <filesystem>

#include "config/StoragePaths.h"
#include "ui/CGridTable.h"
#include "ui/CMainFrame.h"
#include "ui/CStoreDlg.h"
#include "ui/CValueTile.h"
#include "ui/CZelorGasApp.h"
#include "ui/WindowUser.h"

namespace zelorgas {
namespace {

using testing::HasSubstr;

// Says OK or Yes to every message box, as soon as it is there, and keeps what it said.
class Agreeing {
 public:
  Agreeing() {
    QObject::connect(&timer_, &QTimer::timeout, [this] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      said.push_back(box->text().toStdString());
      box->button(box->standardButtons().testFlag(QMessageBox::Yes) ? QMessageBox::Yes
                                                                    : QMessageBox::Ok)
          ->click();
    });
    timer_.start(0);
  }

  std::vector<std::string> said;

 private:
  QTimer timer_;
};

class WindowSession : public testing::Test, protected WindowUser {
 protected:
  void SetUp() override {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (frame_ == nullptr) frame_ = qobject_cast<CMainFrame*>(widget);
    }
    ASSERT_NE(frame_, nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frame_));
  }

  [[nodiscard]] bool WaitUntilIdle() const {
    return WaitFor([&] { return Find<QPushButton>("connect_button").isEnabled(); });
  }
  void ClickWhenPossible(const char* button) const {
    ASSERT_TRUE(WaitFor([&] { return Find<QWidget>(button).isEnabled(); })) << button;
    Click(button);
  }
  // Fills the dialog that the click on an enabled button brings up, and presses Store.
  void StoreNextAs(const QString& brand, const QString& name, const QString& notes) const {
    QTimer::singleShot(0, frame_, [=, this] {
      auto* const dialog = frame_->findChild<CStoreDlg*>();
      ASSERT_NE(dialog, nullptr);
      dialog->findChild<QCheckBox*>("store_to_file")->setChecked(true);
      dialog->findChild<QComboBox*>("store_brand")->setEditText(brand);
      dialog->findChild<QLineEdit*>("store_name")->setText(name);
      dialog->findChild<QPlainTextEdit*>("store_notes")->setPlainText(notes);
      dialog->findChild<QPushButton*>("store_ok")->click();
    });
  }

  Agreeing agreeing_;

 private:
  [[nodiscard]] QWidget& Window() const final { return *frame_; }

  CMainFrame* frame_ = nullptr;
};

TEST_F(WindowSession, FromConnectingToDisconnecting) {
  EXPECT_EQ(QGuiApplication::platformName(), "windows");
  EXPECT_FALSE(QApplication::windowIcon().isNull());
  ASSERT_EQ(Find<QComboBox>("port_list").currentText().left(4), "COM7");
  ClickWhenPossible("connect_button");
  ASSERT_TRUE(WaitForState(kConnected)) << testing::PrintToString(agreeing_.said);
  EXPECT_EQ(Text("ecu_serial"), "ECU123456");
  auto& speed = Find<CValueTile>("live_engine_speed");
  const QString before = speed.Value();
  EXPECT_TRUE(WaitFor([&] { return speed.Value() != before; })) << "live values move";
  ASSERT_TRUE(WaitUntilIdle());

  OpenTab("Correction grid");
  auto& grid = Find<CGridTable>("grid_table");
  ASSERT_TRUE(WaitFor([&] { return grid.Text({0, 4}) == "1.50"; }));
  grid.setFocus();
  grid.MoveCursor({0, 4});
  for (const char key : {'1', '.', '2', '5'}) QTest::keyClick(QApplication::focusWidget(), key);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  ASSERT_TRUE(WaitFor([&] { return grid.Text({0, 4}) == "1.25"; }));
  ASSERT_TRUE(WaitUntilIdle());

  OpenTab("Files");
  ASSERT_TRUE(WaitFor([&] { return Find<QWidget>("files_store").isEnabled(); }));
  StoreNextAs("OPEL", "session", "празен ход");
  Click("files_store");
  const std::filesystem::path file = StorageFolder(WorkingFolder(), 0, "OPEL") / "session.fob";
  EXPECT_TRUE(WaitFor([&] { return std::filesystem::exists(file); }))
      << testing::PrintToString(agreeing_.said);
  ASSERT_TRUE(WaitUntilIdle());

  OpenTab("Errors");
  auto& errors = Find<QListWidget>("temporary_error_list");
  EXPECT_EQ(errors.count(), 2);
  EXPECT_THAT(errors.item(0)->text().toStdString(), HasSubstr("Coolant Temperature too low"));
  errors.setCurrentRow(0);
  ClickWhenPossible("delete_error_button");
  EXPECT_TRUE(WaitFor([&] { return errors.count() == 1; }));
  ASSERT_TRUE(WaitUntilIdle());

  Find<QAction>("disconnect_action").trigger();
  EXPECT_TRUE(WaitForState(kNotConnected));
}

}  // namespace
}  // namespace zelorgas

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  zelorgas::CZelorGasApp app(argc, argv);
  int failed = 0;
  QTimer::singleShot(0, [&failed] {
    failed = RUN_ALL_TESTS();
    QApplication::closeAllWindows();
  });
  const int status = app.Run();
  return failed != 0 ? failed : status;
}
