#include "ui/CFileBrowser.h"

#include <QHeaderView>
#include <QSplitter>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "config/Utf8Text.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kFolderRole = Qt::UserRole;  // the place in folders_
enum Column : int { kName, kModified, kNotes, kColumns };

// What a file or a stranger's name says is never taken for markup, and does not fill the screen.
QString PlainToolTip(const std::string& text) {
  return "<p style='white-space:pre-wrap'>" + ToQString(Shortened(text)).toHtmlEscaped() + "</p>";
}

std::string WordsOf(const Message& message) { return TranslatedMessage(message).toStdString(); }

// One line of the list, whatever the notes hold.
QString OneLine(const std::string& text) { return ToQString(Shortened(text)).simplified(); }

}  // namespace

CFileBrowser::CFileBrowser(const QString& object_name, std::filesystem::path root,
                           std::string extension, QWidget* parent)
    : QWidget(parent), root_(std::move(root)), extension_(std::move(extension)) {
  setObjectName(object_name);
  auto* const splitter = new QSplitter(this);
  tree_ = new QTreeWidget(splitter);
  tree_->setObjectName(object_name + "_folders");
  tree_->setAccessibleName(tr("Folders"));
  tree_->setHeaderHidden(true);
  tree_->setUniformRowHeights(true);
  list_ = new QTreeWidget(splitter);
  list_->setObjectName(object_name + "_files");
  list_->setAccessibleName(tr("Files"));
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->setAlternatingRowColors(true);
  list_->setColumnCount(kColumns);
  list_->setHeaderLabels({tr("Name"), tr("Changed"), tr("Notes")});
  list_->header()->setSectionResizeMode(kModified, QHeaderView::ResizeToContents);
  list_->header()->setSectionResizeMode(kNotes, QHeaderView::Stretch);
  list_->header()->setStretchLastSection(false);
  list_->header()->setTextElideMode(Qt::ElideRight);
  tree_->setMinimumWidth(fontMetrics().horizontalAdvance(TranslatedMessage(kStorageTreeName)) +
                         3 * fontMetrics().height());
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 3);
  splitter->setChildrenCollapsible(false);
  problem_ = new QLabel(this);
  problem_->setObjectName(object_name + "_problem");
  problem_->setTextFormat(Qt::PlainText);
  problem_->setWordWrap(true);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(splitter, 1);
  layout->addWidget(problem_);
  connect(tree_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
    if (item != nullptr) ListFiles();
  });
  connect(list_, &QTreeWidget::currentItemChanged, this, &CFileBrowser::SelectionChanged);
  connect(list_, &QTreeWidget::itemActivated, this, &CFileBrowser::FileActivated);
  Refresh();
}

// In a narrow window the notes have room beside the names.
void CFileBrowser::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  constexpr int kUsual = 34;  // characters
  constexpr double kShare = 0.28;
  list_->setColumnWidth(kName, std::min(fontMetrics().averageCharWidth() * kUsual,
                                        static_cast<int>(width() * kShare)));
}

void CFileBrowser::Refresh() {
  const std::filesystem::path folder = Folder();
  const StorageFileEntry* const selected = SelectedFile();
  const std::filesystem::path file = selected == nullptr ? folder : selected->path;
  {
    // Nothing is selected anew: who looks on keeps what it shows.
    const QSignalBlocker silent(this);
    const QSignalBlocker quiet(tree_);
    tree_->clear();
    auto* const top = new QTreeWidgetItem(tree_, {TranslatedMessage(kStorageTreeName)});
    folders_.clear();
    ShowFolder(ReadStorageFolders(root_), top);
    tree_->expandAll();
    SelectFolder(folder);
    ListFiles();
    SelectFile(file);
  }
  emit SelectionChanged();
}

void CFileBrowser::ShowFolder(const StorageFolderEntry& folder, QTreeWidgetItem* item) {
  item->setData(0, kFolderRole, static_cast<int>(folders_.size()));
  folders_.push_back(folder.path);
  item->setIcon(0, style()->standardIcon(QStyle::SP_DirIcon));
  item->setToolTip(0, PlainToolTip(folder.problem.empty() ? folder.name : WordsOf(folder.problem)));
  for (const StorageFolderEntry& inner : folder.folders) {
    auto* const child = new QTreeWidgetItem(item, {ToQString(inner.name)});
    ShowFolder(inner, child);
  }
}

const std::filesystem::path& CFileBrowser::PathOf(const QTreeWidgetItem* item) const {
  return folders_[static_cast<std::size_t>(item->data(0, kFolderRole).toInt())];
}

std::filesystem::path CFileBrowser::Folder() const {
  const QTreeWidgetItem* const item = tree_->currentItem();
  return item == nullptr ? root_ : PathOf(item);
}

void CFileBrowser::SelectFolder(const std::filesystem::path& folder) {
  QTreeWidgetItem* const item = FindFolder(folder);
  tree_->setCurrentItem(item == nullptr ? tree_->topLevelItem(0) : item);
}

QTreeWidgetItem* CFileBrowser::FindFolder(const std::filesystem::path& folder) const {
  for (QTreeWidgetItemIterator item(tree_); *item != nullptr; ++item) {
    if (PathOf(*item) == folder) return *item;
  }
  return nullptr;
}

void CFileBrowser::ListFiles() {
  files_ = ReadStorageFiles(Folder(), extension_);
  {
    const QSignalBlocker quiet(list_);
    list_->clear();
    for (const StorageFileEntry& file : files_.files) {
      const bool sound = file.problem.empty();
      auto* const row =
          new QTreeWidgetItem(list_, {ToQString(file.name), ToQString(ModifiedText(file)),
                                      OneLine(sound ? file.notes : WordsOf(file.problem))});
      row->setIcon(
          kName, style()->standardIcon(sound ? QStyle::SP_FileIcon : QStyle::SP_MessageBoxWarning));
      row->setToolTip(kName, PlainToolTip(file.name));
      row->setToolTip(kNotes, PlainToolTip(sound ? file.notes : WordsOf(file.problem)));
    }
  }
  QString text = TranslatedMessage(files_.problem);
  if (files_.problem.empty() && files_.files.empty()) {
    text = tr("This folder has no %1 files.").arg(ToQString(extension_));
  }
  problem_->setText(text);
  problem_->setVisible(!text.isEmpty());
  emit SelectionChanged();
}

const StorageFileEntry* CFileBrowser::SelectedFile() const {
  const int row = list_->indexOfTopLevelItem(list_->currentItem());
  return row < 0 ? nullptr : &files_.files[static_cast<std::size_t>(row)];
}

void CFileBrowser::SelectFile(const std::filesystem::path& file) {
  for (std::size_t row = 0; row < files_.files.size(); ++row) {
    if (files_.files[row].path != file) continue;
    list_->setCurrentItem(list_->topLevelItem(static_cast<int>(row)));
    return;
  }
  list_->setCurrentItem(nullptr);
  emit SelectionChanged();
}

}  // namespace zelorgas
