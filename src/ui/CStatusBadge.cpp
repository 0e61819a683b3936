#include "ui/CStatusBadge.h"

#include <QPainter>

#include "ui/Colours.h"

namespace zelorgas {

CStatusBadge::CStatusBadge(QWidget* parent) : QLabel(parent) {
  QFont bold = font();
  bold.setBold(true);
  setFont(bold);
  const int space = fontMetrics().height() / 2;
  setContentsMargins(space, space / 3, space, space / 3);
  setTextFormat(Qt::PlainText);
}

void CStatusBadge::Show(const QString& text, const QColor& colour) {
  colour_ = colour;
  setText(text);
  setAccessibleName(text);
  update();
}

void CStatusBadge::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setPen(Mixed(colour_, Qt::black, 0.35));
  painter.setBrush(colour_);
  painter.drawRoundedRect(box, box.height() / 4, box.height() / 4);
  painter.setPen(TextOn(colour_));
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
}

}  // namespace zelorgas
