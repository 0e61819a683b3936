// The storage as a person walks through it: the tree of folders, and the files of the selected one
// with their notes. Shows what is on the disk when it is told to; changes nothing there.
// User-interface thread.
#pragma once

#include <QLabel>
#include <QTreeWidget>
#include <QWidget>
#include <filesystem>
#include <string>
#include <vector>

#include "config/StorageTree.h"

namespace zelorgas {

class CFileBrowser final : public QWidget {
  Q_OBJECT

 public:
  // `root` is the storage, `extension` that of the files which are listed (".fob").
  CFileBrowser(const QString& object_name, std::filesystem::path root, std::string extension,
               QWidget* parent = nullptr);

  // Reads the folders and files again; what is selected stays so as long as it exists.
  void Refresh();

  [[nodiscard]] std::filesystem::path Folder() const;
  // Shows the files of `folder`; the root's when the storage has no such folder.
  void SelectFolder(const std::filesystem::path& folder);
  // Null when none is selected.
  [[nodiscard]] const StorageFileEntry* SelectedFile() const;
  void SelectFile(const std::filesystem::path& file);

 signals:
  void SelectionChanged();
  // By Enter or a double click.
  void FileActivated();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowFolder(const StorageFolderEntry& folder, QTreeWidgetItem* item);
  void ListFiles();
  [[nodiscard]] const std::filesystem::path& PathOf(const QTreeWidgetItem* item) const;
  [[nodiscard]] QTreeWidgetItem* FindFolder(const std::filesystem::path& folder) const;

  const std::filesystem::path root_;
  const std::string extension_;
  QTreeWidget* tree_;
  QTreeWidget* list_;
  QLabel* problem_;
  // Of the tree's items, by what each of them keeps: not every path can be said in a text.
  std::vector<std::filesystem::path> folders_;
  StorageFiles files_;  // in the order of the list's rows
};

}  // namespace zelorgas
