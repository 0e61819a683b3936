#include "ui/CPageFrame.h"

#include <QVBoxLayout>

namespace zelorgas {

CPageFrame::CPageFrame(QWidget* page, QWidget* parent) : QWidget(parent), page_(page) {
  setObjectName(page->objectName() + "_frame");
  reason_ = new QLabel(this);
  reason_->setObjectName("disabled_reason");
  reason_->setTextFormat(Qt::PlainText);
  reason_->setWordWrap(true);
  reason_->setFrameShape(QFrame::StyledPanel);
  reason_->setMargin(fontMetrics().height() / 2);
  QFont bold = reason_->font();
  bold.setBold(true);
  reason_->setFont(bold);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(reason_);
  layout->addWidget(page_, 1);
  Disable({});
}

void CPageFrame::Disable(const QString& reason) {
  page_->setEnabled(reason.isEmpty());
  reason_->setText(reason);
  reason_->setVisible(!reason.isEmpty());
}

}  // namespace zelorgas
