#include "ui/CCellChangeDlg.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLocale>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "maps/DecimalNumber.h"
#include "ui/CCaption.h"

namespace zelorgas {
namespace {

QString MeaningOf(AreaMode mode) {
  switch (mode) {
    case AreaMode::kLinear:
      return CCellChangeDlg::tr("So much added to each coefficient.");
    case AreaMode::kAbsolute:
      return CCellChangeDlg::tr("The same coefficient in all cells.");
    default:
      return CCellChangeDlg::tr("Each coefficient by so many per cent, up or down.");
  }
}

}  // namespace

CCellChangeDlg::CCellChangeDlg(AreaChange last, std::size_t cells, QWidget* parent)
    : QDialog(parent) {
  setObjectName("cell_change_dialog");
  setWindowTitle(tr("Modify Grid Area"));
  setAccessibleName(windowTitle());
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setAttribute(Qt::WA_DeleteOnClose);

  auto* const group = new QGroupBox(tr("Mode"), this);
  auto* const choices = new QVBoxLayout(group);
  modes_ = new QButtonGroup(this);
  const auto add_mode = [&](AreaMode mode, const char* object_name, const QString& text) {
    auto* const button = new QRadioButton(text, group);
    button->setObjectName(object_name);
    button->setAccessibleName(QString(text).remove('&'));
    modes_->addButton(button, static_cast<int>(mode));
    choices->addWidget(button);
  };
  add_mode(AreaMode::kPercentage, "mode_percentage", tr("&Percentage"));
  add_mode(AreaMode::kLinear, "mode_linear", tr("&Linear"));
  add_mode(AreaMode::kAbsolute, "mode_absolute", tr("&Absolute"));
  modes_->button(static_cast<int>(last.mode))->setChecked(true);

  auto* const value_label = new QLabel(tr("&Value"), this);
  value_ = new QLineEdit(QString::number(last.value, 'g', QLocale::FloatingPointShortest), this);
  value_->setObjectName("change_value");
  value_->setAccessibleName(tr("Value"));
  value_->setAlignment(Qt::AlignRight);
  value_label->setBuddy(value_);
  auto* const value_row = new QHBoxLayout;
  value_row->addWidget(value_label);
  value_row->addWidget(value_, 1);
  meaning_ = new CCaption({}, this);
  // As long as the longest, so that the dialog does not change its size.
  for (const AreaMode mode : {AreaMode::kPercentage, AreaMode::kLinear, AreaMode::kAbsolute}) {
    meaning_->setText(MeaningOf(mode));
    meaning_->setMinimumWidth(std::max(meaning_->minimumWidth(), meaning_->sizeHint().width()));
  }

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  buttons->setObjectName("cell_change_buttons");
  ok_ = buttons->button(QDialogButtonBox::Ok);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(modes_, &QButtonGroup::idClicked, this, &CCellChangeDlg::ShowMode);
  connect(value_, &QLineEdit::textChanged, this, &CCellChangeDlg::ShowMode);

  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(new QLabel(tr("Selected cells: %1").arg(cells), this));
  layout->addWidget(group);
  layout->addLayout(value_row);
  layout->addWidget(meaning_);
  layout->addWidget(buttons);
  ShowMode();
  value_->setFocus();
  value_->selectAll();
}

std::optional<AreaChange> CCellChangeDlg::Change() const {
  const std::optional<double> value = ParseDecimal(Trimmed(value_->text().toStdString()));
  if (!value) return std::nullopt;
  return AreaChange{static_cast<AreaMode>(modes_->checkedId()), *value};
}

void CCellChangeDlg::ShowMode() {
  const std::optional<AreaChange> change = Change();
  ok_->setEnabled(change.has_value());
  meaning_->setText(MeaningOf(static_cast<AreaMode>(modes_->checkedId())));
}

}  // namespace zelorgas
