// Where the configuration is going to be stored, under which name, and with which notes.
// User-interface thread.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <filesystem>
#include <string>

#include "app/Settings.h"

namespace zelorgas {

class CStoreDlg final : public QDialog {
  Q_OBJECT

 public:
  // `settings`, which outlives the dialog, keeps whether a file is wanted; `working_folder` holds
  // the storage.
  CStoreDlg(Settings& settings, std::filesystem::path working_folder, QWidget* parent);

  // Begins with an existing file of the storage, in whatever folder: its place, its name and its
  // notes.
  void StartWith(const std::filesystem::path& file, const std::string& notes);

  [[nodiscard]] bool WantsFile() const { return to_file_->isChecked(); }
  // Empty as long as no file is wanted, or nothing can be stored under the name.
  [[nodiscard]] const std::filesystem::path& File() const { return file_; }
  [[nodiscard]] std::string Notes() const { return notes_->toPlainText().toStdString(); }

  void accept() override;

 private:
  void ListBrands();
  // The folder that is chosen; empty, with the reason in `problem`, when there can be no such one.
  [[nodiscard]] std::filesystem::path Folder(Message& problem) const;
  [[nodiscard]] bool InOwnFolder() const;
  // What is typed, and what it means.
  void Check();

  Settings& settings_;
  const std::filesystem::path working_folder_;
  std::filesystem::path own_folder_;  // of the existing file, where no gas and no brand says it
  QCheckBox* to_file_;
  QLabel* heading_;
  QLabel* detail_;
  QComboBox* gas_type_;
  QComboBox* brand_;
  QLineEdit* name_;
  QLabel* name_label_;
  QLabel* place_;
  QPlainTextEdit* notes_;
  QLabel* notes_label_;
  QPushButton* ok_;
  std::filesystem::path file_;
};

}  // namespace zelorgas
