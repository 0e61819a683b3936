#include "ui/CCard.h"

#include <QPainter>

#include "ui/Colours.h"
#include "ui/Fonts.h"

namespace zelorgas {
namespace {

constexpr double kCornerRadius = 6;

}  // namespace

CCard::CCard(const QString& object_name, const QString& title, QWidget* parent) : QWidget(parent) {
  setObjectName(object_name);
  setAccessibleName(title);
  body_ = new QVBoxLayout(this);
  const int space = fontMetrics().height();
  body_->setContentsMargins(space, space * 3 / 4, space, space);
  body_->setSpacing(space / 2);
  heading_ = new QLabel(title, this);
  heading_->setFont(Emphasized(heading_->font()));
  title_ = new QHBoxLayout;
  title_->addWidget(heading_, 1);
  body_->addLayout(title_);
}

void CCard::AddBesideTitle(QWidget* widget) {
  beside_ = widget;
  title_->addWidget(widget);
  heading_->setMinimumWidth(1);
}

void CCard::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (beside_ == nullptr) return;
  const int wanted = heading_->sizeHint().width() + title_->spacing() + beside_->sizeHint().width();
  const QMargins margins = body_->contentsMargins();
  const bool fits = wanted <= width() - margins.left() - margins.right();
  title_->setDirection(fits ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  title_->setAlignment(beside_, fits ? Qt::Alignment() : Qt::AlignLeft);
}

void CCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(BorderColour(palette()));
  painter.setBrush(CardColour(palette()));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius,
                          kCornerRadius);
}

}  // namespace zelorgas
