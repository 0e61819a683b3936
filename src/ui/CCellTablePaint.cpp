// How the table looks.
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "ui/CCellTable.h"
#include "ui/Colours.h"

namespace zelorgas {
namespace {

constexpr double kTextShareOfHeight = 0.52;
constexpr double kTextShareOfWidth = 0.92;
constexpr double kLargestText = 1.6;  // of the widget's font
constexpr double kSmallestText = 0.6;
constexpr double kSelectionShare = 0.35;
constexpr double kHeaderShare = 0.35;

// `font` no larger than lets `text` into the width.
QFont FittingFont(QFont font, const QString& text, double width) {
  const double wanted = QFontMetricsF(font).horizontalAdvance(text);
  if (wanted > width) font.setPointSizeF(font.pointSizeF() * width / wanted);
  return font;
}

const QString& Longest(const std::vector<QString>& texts) {
  return *std::ranges::max_element(texts, {}, &QString::size);
}

}  // namespace

// One size for all cells and one for all headers, as large as there is room for.
void CCellTable::ChooseFont() {
  QFont header("Arial");
  header.setPointSizeF(font().pointSizeF());
  header.setWeight(QFont::Bold);
  const QFontMetrics metrics(header);
  int wanted = metrics.horizontalAdvance(corner_);
  for (const QString& text : row_headers_) {
    wanted = std::max(wanted, metrics.horizontalAdvance(text));
  }
  header_width_ = wanted + metrics.height();

  const double cell_width = PlaceAt(0, 1).x() - PlaceAt(0, 0).x();
  const double cell_height = PlaceAt(1, 0).y() - PlaceAt(0, 0).y();
  const double by_height =
      cell_height * kTextShareOfHeight / std::max(1.0, QFontMetricsF(font()).ascent());
  QFont cell = font();
  cell.setPointSizeF(font().pointSizeF() * std::clamp(by_height, kSmallestText, kLargestText));
  cell_font_ = FittingFont(cell, widest_text_, std::max(1.0, cell_width * kTextShareOfWidth));
  header_font_ =
      FittingFont(header, Longest(column_headers_), std::max(1.0, cell_width * kTextShareOfWidth));
  updateGeometry();
}

void CCellTable::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  ChooseFont();
  if (editor_->IsOpen()) editor_->setGeometry(CellRect(edited_));
}

void CCellTable::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) ChooseFont();
  update();
}

void CCellTable::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  PaintHeaders(painter, event->region());
  PaintCells(painter, event->region());
  PaintOver(painter);
  PaintSelection(painter);
}

// Values of a link that is down are quiet, but still to be read. The palette's own colour for what
// is disabled would be too faint on the colours of the cells.
QColor CCellTable::TextColour(const QColor& usual) const {
  QPalette active = palette();
  active.setCurrentColorGroup(QPalette::Active);
  return isEnabled() ? usual : CaptionColour(active);
}

void CCellTable::PaintHeaders(QPainter& painter, const QRegion& region) {
  const QColor line = BorderColour(palette());
  const QColor back = palette().color(QPalette::Window);
  const QColor marked = Mixed(back, palette().color(QPalette::Highlight), kHeaderShare);
  const QColor text = TextColour(palette().color(QPalette::Active, QPalette::WindowText));
  painter.setFont(header_font_);
  const auto paint = [&](const QRect& rect, const QString& header, bool mark) {
    if (!region.intersects(rect)) return;
    painter.fillRect(rect, mark ? marked : back);
    painter.setPen(line);
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    painter.setPen(text);
    painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, header);
  };
  const QRect cells = CellArea();
  paint({0, 0, cells.left(), cells.top()}, corner_, false);
  for (int row = 0; row < rows_; ++row) {
    const QRect cell = CellRect({row, 0});
    paint({0, cell.top(), cells.left(), cell.height()}, row_headers_[static_cast<std::size_t>(row)],
          isEnabled() && row >= selection_.First().row && row <= selection_.Last().row);
  }
  for (int column = 0; column < columns_; ++column) {
    const QRect cell = CellRect({0, column});
    paint({cell.left(), 0, cell.width(), cells.top()},
          column_headers_[static_cast<std::size_t>(column)],
          isEnabled() && column >= selection_.First().column && column <= selection_.Last().column);
  }
  // Not as lines: on a finer screen those would leave a part of the edge unpainted.
  painter.fillRect(width() - 1, 0, 1, height(), line);
  painter.fillRect(0, height() - 1, width(), 1, line);
}

void CCellTable::PaintCells(QPainter& painter, const QRegion& region) {
  const QColor line = BorderColour(palette());
  const QColor empty = CardColour(palette());
  const QColor highlight = palette().color(QPalette::Active, QPalette::Highlight);
  const bool several = selection_.First() != selection_.Last();
  const QFontMetricsF metrics(cell_font_);
  for (int row = 0; row < rows_; ++row) {
    for (int column = 0; column < columns_; ++column) {
      const QRect rect = CellRect({row, column});
      if (!region.intersects(rect)) continue;
      const Cell& cell = At({row, column});
      QColor back = cell.colour.isValid() ? cell.colour : empty;
      if (several && isEnabled() && selection_.Contains({row, column})) {
        back = Mixed(back, highlight, kSelectionShare);
      }
      if (!isEnabled()) back = Mixed(back, empty, 0.6);
      painter.fillRect(rect, back);
      painter.setPen(line);
      painter.drawLine(rect.topRight(), rect.bottomRight());
      painter.drawLine(rect.bottomLeft(), rect.bottomRight());
      painter.setPen(TextColour(TextOn(back)));
      // One that is wider than they usually are is written smaller, not cut off.
      const bool fits = metrics.horizontalAdvance(cell.text) <= rect.width();
      painter.setFont(fits ? cell_font_ : FittingFont(cell_font_, cell.text, rect.width()));
      painter.drawText(rect, Qt::AlignCenter | Qt::TextSingleLine, cell.text);
    }
  }
}

void CCellTable::PaintSelection(QPainter& painter) {
  if (!isEnabled()) return;
  const QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
  const QRect outline = CellRect(selection_.First()).united(CellRect(selection_.Last()));
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(colour, 2, hasFocus() ? Qt::SolidLine : Qt::DotLine));
  painter.drawRect(outline.adjusted(0, 0, -1, -1));
  painter.setPen(QPen(colour, hasFocus() ? 3 : 1));
  painter.drawRect(CellRect(selection_.Cursor()).adjusted(1, 1, -2, -2));
}

}  // namespace zelorgas
