#include "ui/CTabErrors.h"

#include <QVBoxLayout>

#include "ui/Buttons.h"

namespace zelorgas {
namespace {

constexpr int kLeastCharacters = 20;

}  // namespace

CTabErrors::CTabErrors(UiContext& context, PageModels& models, QWidget* parent)
    : CEcuPage(parent), context_(context), models_(models) {
  setObjectName("errors_page");
  setAccessibleName(tr("Errors"));
  sheet_ = new CErrSheet(models_.Errors(), this);
  commands_ = new QHBoxLayout;
  AddCommand("refresh_errors", tr("&Read errors again"),
             tr("Reads the stored errors from the ECU again"), &CTabErrors::Refresh);
  commands_->addStretch(1);
  QAction* const delete_one =
      AddCommand("delete_error", tr("De&lete error"), tr("Deletes the selected error in the ECU"),
                 &CTabErrors::DeleteOne);
  delete_one->setShortcut(QKeySequence::Delete);
  delete_one->setShortcutContext(Qt::WidgetShortcut);
  AddCommand("delete_all_errors", tr("Delete &all errors"),
             tr("Deletes the temporary and the permanent errors in the ECU"),
             &CTabErrors::DeleteAll);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, fontMetrics().height() / 2);
  layout->addWidget(sheet_, 1);
  layout->addLayout(commands_);
}

// In the row of buttons and in the context menu.
QAction* CTabErrors::AddCommand(const QString& object_name, const QString& text, const QString& tip,
                                void (CTabErrors::*command)()) {
  auto* const action = new QAction(text, this);
  action->setObjectName(object_name + "_action");
  connect(action, &QAction::triggered, this, command);
  sheet_->AddToMenus(action);
  QPushButton* const button = MakeButton(object_name + "_button", text, this,
                                         fontMetrics().averageCharWidth() * kLeastCharacters);
  button->setAccessibleName(QString(text).remove('&'));
  button->setToolTip(tip);
  button->setMinimumHeight(fontMetrics().height() * 7 / 4);
  // A click leaves the selection and the keyboard with the list.
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QPushButton::clicked, action, &QAction::trigger);
  connect(&context_.control, &CEcuControl::BusyChanged, this, [action, button](bool busy) {
    action->setEnabled(!busy);
    button->setEnabled(!busy);
  });
  commands_->addWidget(button);
  return action;
}

void CTabErrors::ShowImage() { sheet_->ShowErrors(); }

void CTabErrors::Refresh() {
  context_.control.RunOnThisEcu([this] {
    // What is read again is not to be taken for what the ECU has.
    models_.Errors().Forget();
    sheet_->ShowErrors();
    models_.ReadErrors();
  });
}

void CTabErrors::DeleteOne() {
  ErrorPage& page = sheet_->CurrentModel();
  context_.control.RunOnThisEcu(
      [this, &page] { static_cast<void>(page.DeleteSelected(context_.boxes)); });
}

void CTabErrors::DeleteAll() {
  ErrorPage& page = sheet_->CurrentModel();
  context_.control.RunOnThisEcu(
      [this, &page] { static_cast<void>(page.DeleteAll(context_.boxes)); });
}

}  // namespace zelorgas
