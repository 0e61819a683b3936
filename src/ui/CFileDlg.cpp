#include "ui/CFileDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QVBoxLayout>

#include "config/StoragePaths.h"
#include "ui/ScreenRoom.h"
#include "ui/Text.h"

namespace zelorgas {

CFileDlg::CFileDlg(Purpose purpose, const QString& title, const std::filesystem::path& root,
                   const std::string& extension, QWidget* parent)
    : QDialog(parent), purpose_(purpose), extension_(extension) {
  setObjectName("file_dialog");
  setWindowTitle(title);
  browser_ = new CFileBrowser("file_browser", root, extension, this);
  name_ = new QLineEdit(this);
  name_->setObjectName("file_name");
  name_->setAccessibleName(tr("File name"));
  problem_ = new QLabel(this);
  problem_->setObjectName("file_name_problem");
  problem_->setTextFormat(Qt::PlainText);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  ok_ = buttons->addButton(purpose == Purpose::kOpen ? tr("&Open") : tr("&Save"),
                           QDialogButtonBox::AcceptRole);
  ok_->setObjectName("file_ok");
  ok_->setDefault(true);
  auto* const form = new QFormLayout;
  form->addRow(tr("File &name"), name_);
  form->addRow(QString(), problem_);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(browser_, 1);
  layout->addLayout(form);
  layout->addWidget(buttons);
  // A file to open is chosen from the list.
  form->setRowVisible(name_, purpose == Purpose::kSave);
  form->setRowVisible(problem_, purpose == Purpose::kSave);
  if (purpose == Purpose::kSave) name_->setText(ToQString(MakeTimestampName()));

  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(browser_, &CFileBrowser::SelectionChanged, this, &CFileDlg::FollowSelection);
  connect(browser_, &CFileBrowser::FileActivated, this, &QDialog::accept);
  connect(name_, &QLineEdit::textChanged, this, &CFileDlg::Check);
  const QFontMetrics metrics = fontMetrics();
  resize(WithinScreen(*this, {metrics.averageCharWidth() * 110, metrics.height() * 28}));
  if (purpose == Purpose::kSave) name_->setFocus();
  Check();
}

void CFileDlg::FollowSelection() {
  const StorageFileEntry* const file = browser_->SelectedFile();
  if (purpose_ == Purpose::kSave && file != nullptr) name_->setText(ToQString(file->name));
  Check();
}

void CFileDlg::Check() {
  if (purpose_ == Purpose::kOpen) {
    const StorageFileEntry* const file = browser_->SelectedFile();
    file_ = file == nullptr ? std::filesystem::path() : file->path;
  } else {
    Message problem;
    file_ = StorageFile(browser_->Folder(), name_->text().toStdString(), extension_, problem)
                .value_or(std::filesystem::path());
    problem_->setText(TranslatedMessage(problem));
  }
  ok_->setEnabled(!file_.empty());
}

void CFileDlg::accept() {
  if (!file_.empty()) QDialog::accept();
}

}  // namespace zelorgas
