#include "ui/CPageFrame.h"

#include <QVBoxLayout>
#include <utility>

namespace zelorgas {

CPageFrame::CPageFrame(PageMaker make, Needs needs, QWidget* parent)
    : QWidget(parent), make_(std::move(make)), needs_(needs) {
  reason_ = new QLabel(this);
  reason_->setObjectName("disabled_reason");
  reason_->setTextFormat(Qt::PlainText);
  reason_->setWordWrap(true);
  reason_->setFrameShape(QFrame::StyledPanel);
  reason_->setMargin(fontMetrics().height() / 2);
  QFont bold = reason_->font();
  bold.setBold(true);
  reason_->setFont(bold);
  // A page keeps the room that it needs: on a small screen, or a large scaling, it is scrolled.
  scroll_ = new QScrollArea(this);
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  // A click on a button leaves the keyboard where it is.
  scroll_->setFocusPolicy(Qt::NoFocus);
  auto* const layout = new QVBoxLayout(this);
  layout->addWidget(reason_);
  layout->addWidget(scroll_, 1);
}

void CPageFrame::ShowLinkProblem(const QString& reason) {
  problem_ = reason;
  reason_->setText(reason);
  reason_->setVisible(!reason.isEmpty() && needs_ == Needs::kLink);
  if (page_ == nullptr) return;
  page_->setEnabled(needs_ == Needs::kNothing || reason.isEmpty());
  page_->ShowLink(reason.isEmpty());
}

void CPageFrame::ShowImage() {
  if (page_ != nullptr && isVisible()) page_->ShowImage();
}

void CPageFrame::ShowLive() {
  if (page_ != nullptr && isVisible()) page_->ShowLive();
}

void CPageFrame::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Page().ShowImage();
}

CEcuPage& CPageFrame::Page() {
  if (page_ == nullptr) {
    page_ = make_(scroll_);
    scroll_->setWidget(page_);
    ShowLinkProblem(problem_);
  }
  return *page_;
}

}  // namespace zelorgas
