// Where the configuration is going to be stored, under which name, and with which notes.
// User-interface thread.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <filesystem>
#include <string>

namespace zelorgas {

class CStoreDlg final : public QDialog {
  Q_OBJECT

 public:
  // `working_folder` holds the storage.
  CStoreDlg(std::filesystem::path working_folder, QWidget* parent);

  // Begins with an existing file of the storage: its place, its name and its notes.
  void StartWith(const std::filesystem::path& file, const std::string& notes);

  // Empty as long as nothing can be stored under the name.
  [[nodiscard]] const std::filesystem::path& File() const { return file_; }
  [[nodiscard]] std::string Notes() const { return notes_->toPlainText().toStdString(); }

 private:
  void ListBrands();
  // What is typed, and what it means.
  void Check();

  const std::filesystem::path working_folder_;
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
