#include "ui/CStoreDlg.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QVBoxLayout>
#include <utility>

#include "app/StoreProcedure.h"
#include "config/ConfigurationFile.h"
#include "config/StoragePaths.h"
#include "config/StorageTree.h"
#include "platform/FileSystem.h"
#include "ui/CCaption.h"
#include "ui/Text.h"

namespace zelorgas {

CStoreDlg::CStoreDlg(Settings& settings, std::filesystem::path working_folder, QWidget* parent)
    : QDialog(parent), settings_(settings), working_folder_(std::move(working_folder)) {
  setObjectName("store_dialog");
  setWindowTitle(tr("Store the configuration"));
  heading_ = new QLabel(this);
  heading_->setObjectName("store_heading");
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);
  detail_ = new QLabel(this);
  detail_->setObjectName("store_detail");
  to_file_ = new QCheckBox(tr("Store in a &file"), this);
  to_file_->setObjectName("store_to_file");
  to_file_->setToolTip(tr("The next dialog begins with the same choice"));
  to_file_->setChecked(settings_.SaveFile());
  gas_type_ = new QComboBox(this);
  gas_type_->setObjectName("store_gas_type");
  gas_type_->addItems({"LPG", "CNG"});
  brand_ = new QComboBox(this);
  brand_->setObjectName("store_brand");
  brand_->setEditable(true);
  brand_->setToolTip(tr("The folder of the car's make; it is created where it does not exist"));
  name_ = new QLineEdit(ToQString(MakeTimestampName()), this);
  name_->setObjectName("store_name");
  name_label_ = new QLabel(this);
  name_label_->setBuddy(name_);
  place_ = new CCaption({}, this);
  place_->setObjectName("store_place");
  place_->setWordWrap(true);
  notes_ = new QPlainTextEdit(this);
  notes_->setObjectName("store_notes");
  notes_->setTabChangesFocus(true);
  notes_label_ = new QLabel(this);
  notes_label_->setBuddy(notes_);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  ok_ = buttons->addButton(tr("&Store"), QDialogButtonBox::AcceptRole);
  ok_->setObjectName("store_ok");
  auto* const form = new QFormLayout;
  form->addRow(tr("&Gas"), gas_type_);
  form->addRow(tr("Folder of the &make"), brand_);
  form->addRow(name_label_, name_);
  form->addRow(QString(), place_);
  form->addRow(notes_label_, notes_);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(heading_);
  layout->addWidget(detail_);
  layout->addWidget(to_file_);
  layout->addLayout(form, 1);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(gas_type_, &QComboBox::currentIndexChanged, this, [this] {
    ListBrands();
    Check();
  });
  connect(to_file_, &QCheckBox::toggled, this, &CStoreDlg::Check);
  connect(brand_, &QComboBox::editTextChanged, this, &CStoreDlg::Check);
  connect(name_, &QLineEdit::textChanged, this, &CStoreDlg::Check);
  ListBrands();
  Check();
  resize(fontMetrics().averageCharWidth() * 80, fontMetrics().height() * 24);
  if (WantsFile()) name_->setFocus();
}

void CStoreDlg::StartWith(const std::filesystem::path& file, const std::string& notes) {
  const std::filesystem::path folder = file.parent_path();
  const std::string brand = PathText(folder.filename());
  const unsigned gas = folder.parent_path().filename() == "CNG" ? kNaturalGas : 0;
  if (NameProblem(brand).empty() && folder == StorageFolder(working_folder_, gas, brand)) {
    gas_type_->setCurrentIndex(static_cast<int>(gas));
    brand_->setEditText(ToQString(brand));
  } else {
    own_folder_ = folder;
    gas_type_->addItem(
        tr("As before: %1").arg(ToQString(PathText(folder.lexically_relative(working_folder_)))));
    gas_type_->setCurrentIndex(gas_type_->count() - 1);
  }
  // With the ending: its case is kept, and "a.fob.fob" is not taken for "a.fob".
  name_->setText(ToQString(PathText(file.filename())));
  notes_->setPlainText(ToQString(notes));
  Check();
}

void CStoreDlg::accept() {
  settings_.SetSaveFile(WantsFile());
  QDialog::accept();
}

bool CStoreDlg::InOwnFolder() const {
  return !own_folder_.empty() && gas_type_->currentIndex() == gas_type_->count() - 1;
}

std::filesystem::path CStoreDlg::Folder(Message& problem) const {
  if (InOwnFolder()) return own_folder_;
  const std::string brand = brand_->currentText().toStdString();
  problem = brand.empty() ? Message() : NameProblem(brand);
  if (!problem.empty()) return {};
  return StorageFolder(working_folder_, static_cast<unsigned>(gas_type_->currentIndex()), brand);
}

void CStoreDlg::ListBrands() {
  if (InOwnFolder()) return;
  const QString kept = brand_->currentText();
  const auto folder =
      StorageFolder(working_folder_, static_cast<unsigned>(gas_type_->currentIndex()))
          .parent_path();
  const QSignalBlocker quiet(brand_);
  brand_->clear();
  for (const StorageFolderEntry& entry : ReadStorageFolders(folder).folders) {
    brand_->addItem(ToQString(entry.name));
  }
  if (brand_->findText(ToQString(kDefaultBrandFolder)) < 0) {
    brand_->addItem(ToQString(kDefaultBrandFolder));
  }
  brand_->setEditText(kept.isEmpty() ? ToQString(kDefaultBrandFolder) : kept);
}

void CStoreDlg::Check() {
  for (QWidget* const field : {static_cast<QWidget*>(gas_type_), static_cast<QWidget*>(name_),
                               static_cast<QWidget*>(notes_)}) {
    field->setEnabled(WantsFile());
  }
  brand_->setEnabled(WantsFile() && !InOwnFolder());
  file_.clear();
  Message problem;
  StoreTarget target = StoreTarget::kNone;
  if (WantsFile()) {
    const std::filesystem::path folder = Folder(problem);
    if (problem.empty()) {
      file_ = StorageFile(folder, name_->text().toStdString(), kConfigurationExtension, problem)
                  .value_or(std::filesystem::path());
    }
    target = StoreTargetOf(file_);
    if (target == StoreTarget::kNew && !name_->isModified()) target = StoreTarget::kSuggested;
  }
  const StoreDialogTexts texts = TextsOfStoreDialog(target);
  heading_->setText(TranslatedMessage(texts.heading));
  detail_->setText(TranslatedMessage(texts.detail));
  detail_->setVisible(!texts.detail.empty());
  name_label_->setText(TranslatedMessage(texts.name_label));
  notes_label_->setText(TranslatedMessage(texts.notes_label));
  notes_->setPlaceholderText(TranslatedMessage(texts.notes_hint));
  place_->setText(problem.empty() ? ToQString(PathText(file_)) : TranslatedMessage(problem));
  ok_->setText(WantsFile() ? tr("&Store") : tr("&OK"));
  ok_->setEnabled(!WantsFile() || !file_.empty());
}

}  // namespace zelorgas
