#include "ui/CTabFiles.h"

#include <QVBoxLayout>
#include <utility>

#include "config/ConfigurationFile.h"
#include "config/StoragePaths.h"
#include "config/Utf8Text.h"
#include "platform/FileSystem.h"
#include "ui/Buttons.h"
#include "ui/CFileDlg.h"
#include "ui/CStoreDlg.h"
#include "ui/LoadWithProgress.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

QString NameOf(const std::filesystem::path& file) { return ToQString(PathText(file.filename())); }

}  // namespace

CTabFiles::CTabFiles(UiContext& context, PageModels& models, QWidget* parent)
    : CEcuPage(parent), context_(context), models_(models), working_folder_(WorkingFolder()) {
  setObjectName("files_page");
  setAccessibleName(tr("Files"));
  browser_ = new CFileBrowser("configuration_browser", StorageRoot(working_folder_),
                              std::string(kConfigurationExtension), this);
  auto* const details = new QWidget(this);
  name_ = new CElidedLabel(details);
  name_->setObjectName("file_shown");
  QFont bold = name_->font();
  bold.setBold(true);
  name_->setFont(bold);
  notes_ = new QPlainTextEdit(details);
  notes_->setObjectName("file_notes");
  notes_->setAccessibleName(tr("Notes of the file"));
  notes_->setReadOnly(true);
  notes_->setPlaceholderText(tr("No notes"));
  auto* const details_layout = new QVBoxLayout(details);
  details_layout->setContentsMargins(0, 0, 0, 0);
  details_layout->addWidget(name_);
  details_layout->addWidget(notes_, 1);
  differences_ = new CDifferenceTable(this);
  below_ = new QStackedWidget(this);
  below_->addWidget(details);
  below_->addWidget(differences_);
  halves_ = new QSplitter(Qt::Vertical, this);
  halves_->addWidget(browser_);
  halves_->addWidget(below_);
  halves_->setStretchFactor(0, 3);
  halves_->setStretchFactor(1, 2);
  halves_->setChildrenCollapsible(false);
  connect(below_, &QStackedWidget::currentChanged, this, &CTabFiles::ShareRoom);
  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(halves_, 1);
  layout->addWidget(MakeButtons());
  connect(browser_, &CFileBrowser::SelectionChanged, this, &CTabFiles::FollowSelection);
  connect(browser_, &CFileBrowser::FileActivated, this, &CTabFiles::CompareWithEcu);
  connect(differences_, &CDifferenceTable::Closed, this, [this] { below_->setCurrentIndex(0); });
  connect(&context_.control, &CEcuControl::BusyChanged, this, &CTabFiles::ShowButtons);
  connect(&context_.control, &CEcuControl::StateChanged, this, &CTabFiles::DropComparisonWithEcu);
  connect(&context_.control, &CEcuControl::ConfigurationLoaded, this,
          &CTabFiles::DropComparisonWithEcu);
  FollowSelection();
}

QWidget* CTabFiles::MakeButtons() {
  auto* const side = new QWidget(this);
  auto* const layout = new QVBoxLayout(side);
  layout->setContentsMargins(fontMetrics().height() / 2, 0, 0, 0);
  const auto button = [&](const char* name, const QString& text, void (CTabFiles::*clicked)()) {
    QPushButton* const made = MakeButton(name, text, side);
    layout->addWidget(made);
    connect(made, &QPushButton::clicked, this, clicked);
    return made;
  };
  store_ = button("files_store", tr("&Store configuration..."), &CTabFiles::Store);
  load_ = button("files_load", tr("&Load into the ECU"), &CTabFiles::Load);
  layout->addSpacing(fontMetrics().height());
  compare_ = button("files_compare", tr("&Compare with the ECU"), &CTabFiles::CompareWithEcu);
  compare_files_ =
      button("files_compare_files", tr("Co&mpare with a file..."), &CTabFiles::CompareWithFile);
  layout->addStretch(1);
  return side;
}

// A comparison has the room while it lasts, then the list has its own again.
void CTabFiles::ShareRoom(int shown) {
  if (shown == 0) {
    halves_->restoreState(before_comparison_);
    return;
  }
  constexpr int kMuch = 1000;
  before_comparison_ = halves_->saveState();
  halves_->setSizes({kMuch, 3 * kMuch});
}

void CTabFiles::ShowImage() { browser_->Refresh(); }

void CTabFiles::ShowLink(bool up) {
  link_up_ = up;
  ShowButtons();
}

void CTabFiles::ShowButtons() {
  const bool idle = !context_.control.Busy();
  const bool ecu = idle && link_up_;
  const bool file = !file_.empty();
  const QString no_ecu = tr("Connect to an ECU first");
  store_->setEnabled(ecu);
  store_->setToolTip(ecu ? tr("Stores the configuration of the ECU in a file") : no_ecu);
  load_->setEnabled(ecu);
  load_->setToolTip(ecu ? tr("Writes the file's configuration into the ECU. What the ECU holds is "
                             "stored in the folder \"backup\" before.")
                        : no_ecu);
  compare_->setEnabled(ecu && file);
  compare_->setToolTip(link_up_ ? tr("Lists what the file has differently from the ECU") : no_ecu);
  compare_files_->setEnabled(idle && file);
  compare_files_->setToolTip(tr("Lists what differs from another file"));
}

void CTabFiles::FollowSelection() {
  const StorageFileEntry* const file = browser_->SelectedFile();
  // What was opened from elsewhere stays until a file is selected here.
  if (file == nullptr && from_elsewhere_) return;
  from_elsewhere_ = false;
  const std::filesystem::path selected = file == nullptr ? std::filesystem::path() : file->path;
  if (selected != file_) below_->setCurrentIndex(0);
  file_ = selected;
  name_->SetText(file == nullptr ? tr("No file is selected.") : ToQString(file->name));
  ShowNotes(file == nullptr ? std::string() : file->notes);
  ShowButtons();
}

void CTabFiles::ShowNotes(const std::string& notes) {
  // More is no person's, and takes the window seconds to lay out.
  constexpr std::size_t kLongest = 65'536;
  constexpr std::size_t kMostLines = 4'000;
  notes_->setPlainText(ToQString(Shortened(notes, kLongest, kMostLines)));
}

void CTabFiles::ShowFile(const std::filesystem::path& file) {
  std::error_code none;
  const std::filesystem::path full = std::filesystem::weakly_canonical(file, none);
  browser_->Refresh();
  browser_->SelectFolder(full.parent_path());
  browser_->SelectFile(full);
  if (browser_->SelectedFile() != nullptr) return;
  from_elsewhere_ = true;
  file_ = full;
  name_->SetText(ToQString(PathText(full)));
  ShowNotes(ReadNotes(full));
  below_->setCurrentIndex(0);
  ShowButtons();
}

void CTabFiles::Store() {
  CStoreDlg dialog(context_.settings, working_folder_, this);
  // The file that is chosen is meant for the ECU of this connection.
  connect(&context_.control, &CEcuControl::StateChanged, &dialog, &QDialog::reject);
  // The list may be read anew while the dialog is open.
  StorageFileEntry own;
  if (const StorageFileEntry* const selected = browser_->SelectedFile()) {
    own = *selected;
    dialog.StartWith(own.path, NotesWithoutVehicle(own.notes));
  }
  if (dialog.exec() != QDialog::Accepted) return;
  if (!dialog.WantsFile()) {
    context_.boxes.Status(TextsOfStoreDialog(StoreTarget::kNone).heading);
    return;
  }
  VehicleData vehicle = models_.Vehicle();
  if (vehicle == VehicleData{} && dialog.File() == own.path) vehicle = VehicleOfNotes(own.notes);
  context_.control.RunOnThisEcu(
      [this, request = StoreRequest{.file = dialog.File(),
                                    .notes = NotesWithVehicle(dialog.Notes(), vehicle)}] {
        StoreNow(request);
      });
}

void CTabFiles::StoreNow(const StoreRequest& request) {
  if (StoreConfiguration(context_.document, context_.boxes, request) != StoreOutcome::kStored) {
    browser_->Refresh();
    return;
  }
  ShowFile(request.file);
  emit FileUsed(ToQString(PathText(request.file)));
}

void CTabFiles::Load() {
  if (file_.empty()) {
    context_.boxes.Inform(kSelectFileFirst, MessageIcon::kExclamation);
    return;
  }
  context_.control.RunOnThisEcu([this, file = file_] { LoadNow(file); });
}

void CTabFiles::LoadNow(const std::filesystem::path& file) {
  const LoadResult result =
      LoadWithProgress(context_.document, context_.boxes, context_.control,
                       {.file = file, .backup_folder = BackupFolder(working_folder_)},
                       tr("Loading %1").arg(NameOf(file)), this);
  using Outcome = LoadResult::Outcome;
  if (result.outcome == Outcome::kDifferent) {
    ShowDifferences(NameOf(file), tr("the ECU"), result.differences);
    ecu_compared_ = true;
  }
  if (result.outcome != Outcome::kLoaded) return;
  const VehicleData vehicle = VehicleOfNotes(result.file.notes);
  if (vehicle != VehicleData{}) models_.Vehicle() = vehicle;
  emit FileUsed(ToQString(PathText(file)));
}

bool CTabFiles::Read(const std::filesystem::path& file, LoadedConfiguration& loaded) {
  loaded = ReadConfigurationFile(file, context_.document.Snapshot().block,
                                 context_.document.RoutingMap());
  Message text = Message::Verbatim(PathText(file.filename()));
  if (!loaded.Usable()) {
    text.Append(": ", loaded.faults.front());
    context_.boxes.Inform(text, MessageIcon::kError);
    return false;
  }
  if (!loaded.damage.empty()) {
    text.Append(": ", loaded.damage);
    context_.boxes.Status(text);
  }
  return true;
}

void CTabFiles::CompareWithEcu() {
  LoadedConfiguration loaded;
  if (!link_up_ || file_.empty() || !Read(file_, loaded)) return;
  ShowDifferences(NameOf(file_), tr("the ECU"),
                  CompareFileWithBlock(loaded, context_.document.Snapshot().block));
  ecu_compared_ = true;
}

void CTabFiles::DropComparisonWithEcu() {
  if (std::exchange(ecu_compared_, false)) below_->setCurrentIndex(0);
}

void CTabFiles::CompareWithFile() {
  CFileDlg dialog(CFileDlg::Purpose::kOpen, tr("Compare %1 with").arg(NameOf(file_)),
                  StorageRoot(working_folder_), std::string(kConfigurationExtension), this);
  dialog.SelectFolder(browser_->Folder());
  LoadedConfiguration first;
  LoadedConfiguration second;
  if (dialog.exec() != QDialog::Accepted || !Read(file_, first) || !Read(dialog.File(), second)) {
    return;
  }
  ShowDifferences(NameOf(file_), NameOf(dialog.File()), CompareFiles(first, second));
}

void CTabFiles::ShowDifferences(const QString& first, const QString& second,
                                const std::vector<BlockDifference>& differences) {
  ecu_compared_ = false;
  differences_->Show(first, second, differences);
  below_->setCurrentIndex(1);
}

}  // namespace zelorgas
