// The Files page: stored configurations with their notes; storing the ECU's, loading one into the
// ECU, and comparing. Looking at files needs no ECU. User-interface thread.
#pragma once

#include <QByteArray>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QStackedWidget>
#include <filesystem>

#include "app/LoadProcedure.h"
#include "app/StoreProcedure.h"
#include "ui/CDifferenceTable.h"
#include "ui/CEcuPage.h"
#include "ui/CElidedLabel.h"
#include "ui/CFileBrowser.h"
#include "ui/PageModels.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CTabFiles final : public CEcuPage {
  Q_OBJECT

 public:
  CTabFiles(UiContext& context, PageModels& models, QWidget* parent = nullptr);

  void ShowImage() override;
  void ShowLink(bool up) override;

  // Makes `file` the one that the buttons mean, also when it lies outside the storage.
  void ShowFile(const std::filesystem::path& file);
  [[nodiscard]] const std::filesystem::path& File() const { return file_; }

  [[nodiscard]] bool CanStore() const { return store_->isEnabled(); }

  // The same as the buttons.
  void Store();
  void Load();
  void CompareWithEcu();
  void CompareWithFile();

 signals:
  // A configuration was stored to, or loaded from, this file.
  void FileUsed(const QString& file);

 private:
  [[nodiscard]] QWidget* MakeButtons();
  void ShareRoom(int shown);
  void FollowSelection();
  void ShowNotes(const std::string& notes);
  void ShowButtons();
  void StoreNow(const StoreRequest& request);
  void LoadNow(const std::filesystem::path& file);
  void ShowDifferences(const QString& first, const QString& second,
                       const std::vector<BlockDifference>& differences);
  // Another ECU may come, or this one has other values now.
  void DropComparisonWithEcu();
  // The file read over the ECU's block; false, with the person told, when it is none.
  [[nodiscard]] bool Read(const std::filesystem::path& file, LoadedConfiguration& loaded);

  UiContext& context_;
  PageModels& models_;
  const std::filesystem::path working_folder_;
  QSplitter* halves_;
  QByteArray before_comparison_;
  CFileBrowser* browser_;
  CElidedLabel* name_;
  QPlainTextEdit* notes_;
  CDifferenceTable* differences_;
  QStackedWidget* below_;  // the notes or the differences
  QPushButton* store_ = nullptr;
  QPushButton* load_ = nullptr;
  QPushButton* compare_ = nullptr;
  QPushButton* compare_files_ = nullptr;
  std::filesystem::path file_;
  bool from_elsewhere_ = false;  // file_ is not one that the browser shows
  bool link_up_ = false;
  bool ecu_compared_ = false;  // one side of the differences is the ECU
};

}  // namespace zelorgas
