#include "ui/CCard.h"

#include <QLabel>
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
  auto* const heading = new QLabel(title, this);
  heading->setFont(Emphasized(heading->font()));
  title_ = new QHBoxLayout;
  title_->addWidget(heading, 1);
  body_->addLayout(title_);
}

void CCard::AddBesideTitle(QWidget* widget) { title_->addWidget(widget); }

void CCard::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(BorderColour(palette()));
  painter.setBrush(CardColour(palette()));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCornerRadius,
                          kCornerRadius);
}

}  // namespace zelorgas
