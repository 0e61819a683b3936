// Asks for a file of the storage: one that is there, to open it, or a name and a folder to save to.
// User-interface thread.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <cstdint>
#include <filesystem>
#include <string>

#include "ui/CFileBrowser.h"

namespace zelorgas {

class CFileDlg final : public QDialog {
  Q_OBJECT

 public:
  enum class Purpose : std::uint8_t { kOpen, kSave };

  // Who saves to the file asks before it replaces one.
  CFileDlg(Purpose purpose, const QString& title, const std::filesystem::path& root,
           const std::string& extension, QWidget* parent);

  void SelectFolder(const std::filesystem::path& folder) { browser_->SelectFolder(folder); }
  // What the person has chosen, after the dialog was accepted.
  [[nodiscard]] const std::filesystem::path& File() const { return file_; }

  void accept() override;

 private:
  void FollowSelection();
  void Check();

  const Purpose purpose_;
  const std::string extension_;
  CFileBrowser* browser_;
  QLineEdit* name_;
  QLabel* problem_;
  QPushButton* ok_;
  std::filesystem::path file_;
};

}  // namespace zelorgas
