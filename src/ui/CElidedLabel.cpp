#include "ui/CElidedLabel.h"

#include <QPainter>

namespace zelorgas {

CElidedLabel::CElidedLabel(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

void CElidedLabel::SetCaption(const QString& accessible_name, const QString& tooltip) {
  accessible_caption_ = accessible_name;
  tooltip_caption_ = tooltip;
  setAccessibleName(accessible_name);
}

void CElidedLabel::SetText(const QString& text) {
  if (text == this->text()) return;
  setText(text);
  setToolTip(tooltip_caption_.isEmpty() ? text : tooltip_caption_ + ": " + text);
  setAccessibleName(accessible_caption_ + ": " + text);
}

QSize CElidedLabel::minimumSizeHint() const {
  const int least = fontMetrics().horizontalAdvance(QStringLiteral("MM…"));
  return {text().isEmpty() ? 0 : least, QLabel::minimumSizeHint().height()};
}

void CElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(
      palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
  const QRect inside = contentsRect();
  painter.drawText(inside, static_cast<int>(alignment()) | Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideRight, inside.width()));
}

}  // namespace zelorgas
