#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <fstream>

#include "app/LoadProcedure.h"
#include "app/StoreProcedure.h"
#include "config/ConfigurationFile.h"
#include "config/StoragePaths.h"
#include "support/TemporaryFolder.h"
#include "ui/CStoreDlg.h"
#include "ui/CTabFiles.h"
#include "ui/FastClock.h"
#include "ui/Text.h"
#include "ui/UiBench.h"

namespace zelorgas {
namespace {

using testing::Contains;

// The window in a working folder of its own.
class FilesPage : public testing::Test {
 protected:
  FilesPage() { std::filesystem::current_path(folder_.Path()); }
  ~FilesPage() override { std::filesystem::current_path(before_); }

  CTabFiles& Open() { return bench_.frame->View().OpenPage<CTabFiles>("Files"); }

  // Presses Store in the dialog that comes up next.
  void FillNextStoreDialog(const QString& name, const QString& notes) {
    QTimer::singleShot(0, [this, name, notes] {
      auto* const dialog = bench_.frame->findChild<CStoreDlg*>();
      ASSERT_NE(dialog, nullptr);
      EXPECT_EQ(dialog->findChild<QLabel*>("store_heading")->text(),
                ToQString(TextsOfStoreDialog(bench_.settings.SaveFile() ? StoreTarget::kSuggested
                                                                        : StoreTarget::kNone)
                              .heading));
      dialog->findChild<QCheckBox*>("store_to_file")->setChecked(true);
      dialog->findChild<QComboBox*>("store_brand")->setEditText("OPEL");
      dialog->findChild<QLineEdit*>("store_name")->setText(name);
      dialog->findChild<QPlainTextEdit*>("store_notes")->setPlainText(notes);
      auto* const ok = dialog->findChild<QPushButton*>("store_ok");
      if (ok->isEnabled()) {
        ok->click();
      } else {
        dialog->reject();
      }
    });
  }

  std::filesystem::path before_ = std::filesystem::current_path();
  TemporaryFolder folder_;
  FastClock clock_;
  UiBench bench_{clock_};
};

TEST_F(FilesPage, StoresFindsComparesAndLoads) {
  CTabFiles& page = Open();
  EXPECT_FALSE(bench_.Find<QPushButton>("files_store").isEnabled()) << "no ECU yet";
  ASSERT_TRUE(bench_.Connect());
  bench_.boxes.answer = true;
  FillNextStoreDialog("mine", "idle is fine");
  bench_.Click("files_store");
  const auto file = StorageFolder(folder_.Path(), 0, "OPEL") / "mine.fob";
  ASSERT_TRUE(std::filesystem::exists(file));
  EXPECT_THAT(bench_.boxes.said, Contains("note: " + std::string(kConfigurationStored)));
  EXPECT_EQ(bench_.Find<QPlainTextEdit>("file_notes").toPlainText(), "idle is fine");
  EXPECT_EQ(bench_.recent_files.Files().size(), 1U);

  const std::uint16_t before = bench_.simulated.Ecu().Register(374);
  bench_.simulated.Ecu().SetRegister(374, 199);
  bench_.control.Refresh();
  ASSERT_TRUE(
      UiBench::WaitFor([&] { return bench_.document.Snapshot().RegisterCopy(374) == 199; }));
  page.CompareWithEcu();
  auto& table = bench_.Find<QTreeWidget>("difference_table");
  ASSERT_EQ(table.topLevelItemCount(), 1);
  EXPECT_EQ(table.topLevelItem(0)->text(2), "1.99");
  EXPECT_EQ(bench_.Text("difference_heading"), "mine.fob and the ECU differ in 1 value.");

  bench_.OpenTab("Correction grid");
  bench_.Find<QAction>("step_up_action").trigger();
  const auto& undo = bench_.Find<QAction>("undo_action");
  EXPECT_TRUE(UiBench::WaitFor([&] { return undo.isEnabled(); }));
  bench_.OpenTab("Files");
  bench_.Click("files_load");
  bench_.OpenTab("Correction grid");
  EXPECT_FALSE(undo.isEnabled()) << "of another configuration";
  EXPECT_THAT(bench_.boxes.said, Contains("question: " + std::string(kLoadQuestion)));
  EXPECT_THAT(bench_.boxes.said, Contains("note: " + std::string(kConfigurationLoaded)));
  EXPECT_EQ(bench_.simulated.Ecu().Register(374), before);
  // What it replaced is kept.
  EXPECT_FALSE(std::filesystem::is_empty(BackupFolder(folder_.Path())));
}

TEST_F(FilesPage, WhatWasToBeStoredOfOneEcuIsNotTakenFromTheNext) {
  Open();
  ASSERT_TRUE(bench_.Connect());
  bench_.settings.SetSaveFile(true);
  bench_.boxes.answer = true;
  QTimer::singleShot(0, [this] {
    bench_.control.Disconnect();
    bench_.simulated.Ecu().SetSerial(654321);
    bench_.control.Connect(std::string(kSimulatedPortName), "Simulated ECU");
    auto* const dialog = bench_.frame->findChild<CStoreDlg*>();
    if (dialog->isVisible()) dialog->accept();
  });
  bench_.Click("files_store");
  EXPECT_EQ(bench_.Text("ecu_serial"), "ECU654321");
  EXPECT_EQ(bench_.boxes.said.size(), 0U) << "nothing is stored";
}

TEST_F(FilesPage, FilesAreOpenedFromAnywhereAndWithoutAnEcu) {
  const auto file = folder_.Path() / "elsewhere.fob";
  Message problem;
  ASSERT_TRUE(WriteConfigurationFile(file, {}, 0, "from a stick", problem)) << problem.English();
  ASSERT_TRUE(bench_.frame->OpenDocument(file.string()));
  EXPECT_EQ(bench_.Find<QPlainTextEdit>("file_notes").toPlainText(), "from a stick");
  EXPECT_FALSE(bench_.Find<QPushButton>("files_load").isEnabled());
  EXPECT_EQ(bench_.frame->windowTitle(), "ZELOR GASECU - [elsewhere.fob]");

  const auto dropped = folder_.Path() / "dropped.fob";
  ASSERT_TRUE(WriteConfigurationFile(dropped, {}, 0, "by mouse", problem)) << problem.English();
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(dropped.string()))});
  QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(bench_.frame.get(), &enter);
  QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(bench_.frame.get(), &drop);
  EXPECT_EQ(bench_.Find<QPlainTextEdit>("file_notes").toPlainText(), "by mouse");
}

}  // namespace
}  // namespace zelorgas
