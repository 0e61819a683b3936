#include "ui/CCaption.h"

#include <QPainter>
#include <QStyle>

#include "ui/Colours.h"

namespace zelorgas {

CCaption::CCaption(const QString& text, QWidget* parent) : QLabel(text, parent) {
  setTextFormat(Qt::PlainText);
}

void CCaption::paintEvent(QPaintEvent*) {
  // The palette may change while the program runs, so the colour is asked for at every paint.
  QPalette quiet = palette();
  quiet.setColor(QPalette::WindowText, CaptionColour(quiet));
  const int flags = static_cast<int>(alignment()) | (wordWrap() ? Qt::TextWordWrap : 0);
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), flags, quiet, isEnabled(), text(),
                        QPalette::WindowText);
}

}  // namespace zelorgas
