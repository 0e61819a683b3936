#include "ui/CProgressDlg.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace zelorgas {

CProgressDlg::CProgressDlg(const QString& what, bool can_cancel, QWidget* parent)
    : QDialog(parent), can_cancel_(can_cancel) {
  setObjectName("progress_dialog");
  setAccessibleName(what);
  setWindowTitle(what);
  // What else the person clicks meanwhile waits.
  setWindowModality(Qt::WindowModal);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  bar_ = new QProgressBar(this);
  bar_->setObjectName("progress_bar");
  bar_->setAccessibleName(what);
  bar_->setMinimumWidth(fontMetrics().averageCharWidth() * 50);
  auto* const layout = new QVBoxLayout(this);
  auto* const label = new QLabel(what, this);
  // A file's name may be in it, and is not to be taken for markup.
  label->setTextFormat(Qt::PlainText);
  layout->addWidget(label);
  layout->addWidget(bar_);
  if (can_cancel_) {
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->setObjectName("progress_buttons");
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
  }
  since_start_.start();
}

bool CProgressDlg::Step(std::size_t done, std::size_t total) {
  bar_->setRange(0, static_cast<int>(total));
  bar_->setValue(static_cast<int>(done));
  if (!isVisible() && done < total && since_start_.elapsed() > kPatienceMs) show();
  // Everything: the person's input too, which the modal dialog keeps from the rest of the window.
  if (isVisible()) QCoreApplication::processEvents();
  return !cancelled_;
}

}  // namespace zelorgas
