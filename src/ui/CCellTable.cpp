#include "ui/CCellTable.h"

#include <QHelpEvent>
#include <QToolTip>
#include <algorithm>

namespace zelorgas {

CCellTable::CCellTable(const QString& object_name, const QString& accessible_name,
                       const Shape& shape, QWidget* parent)
    : QWidget(parent),
      rows_(shape.rows),
      columns_(shape.columns),
      widest_text_(shape.widest_text),
      first_keys_(shape.first_keys),
      row_headers_(static_cast<std::size_t>(rows_)),
      column_headers_(static_cast<std::size_t>(columns_)),
      cells_(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_)),
      selection_(rows_, columns_),
      editor_(new CCellEditor(this)) {
  setObjectName(object_name);
  setAccessibleName(accessible_name);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  editor_->setObjectName(object_name + "_editor");
  editor_->setAccessibleName(tr("New value of the cell"));
  connect(editor_, &CCellEditor::Committed, this, &CCellTable::FinishEditing);
  connect(editor_, &CCellEditor::Closed, this, [this] { update(CellRect(edited_)); });
  ChooseFont();
}

void CCellTable::SetHeader(QString& header, const QString& text) {
  if (header == text) return;
  header = text;
  ChooseFont();
  update();
}

void CCellTable::SetCorner(const QString& text) { SetHeader(corner_, text); }

void CCellTable::SetRowHeader(int row, const QString& text) {
  SetHeader(row_headers_[static_cast<std::size_t>(row)], text);
}

void CCellTable::SetColumnHeader(int column, const QString& text) {
  SetHeader(column_headers_[static_cast<std::size_t>(column)], text);
}

void CCellTable::SetCell(TableCell cell, const QString& text, const QColor& colour,
                         const QString& plain) {
  Cell& content = At(cell);
  content.plain = plain.isNull() ? text : plain;
  if (content.text == text && content.colour == colour) return;
  content.text = text;
  content.colour = colour;
  update(CellRect(cell));
  if (cell == selection_.Cursor()) SayCursor();
}

QSize CCellTable::sizeHint() const {
  return {minimumSizeHint().width(), fontMetrics().height() * 2 * (rows_ + 1)};
}

QSize CCellTable::minimumSizeHint() const {
  // The text may be smaller than elsewhere where there is no room.
  const int cell = fontMetrics().horizontalAdvance(widest_text_);
  return {header_width_ + cell * columns_ * 7 / 10, fontMetrics().height() * 3 / 2 * (rows_ + 1)};
}

QRect CCellTable::CellRect(TableCell cell) const {
  return {PlaceAt(cell.row, cell.column).toPoint(),
          PlaceAt(cell.row + 1, cell.column + 1).toPoint() - QPoint(1, 1)};
}

QRect CCellTable::CellArea() const {
  return CellRect({0, 0}).united(CellRect({rows_ - 1, columns_ - 1}));
}

QPointF CCellTable::PlaceAt(double row, double column) const {
  // One pixel at the right and at the bottom is the frame's.
  const double cell_width = static_cast<double>(width() - 1 - header_width_) / columns_;
  const double cell_height = static_cast<double>(height() - 1) / (rows_ + 1);
  return {header_width_ + column * cell_width, (row + 1) * cell_height};
}

TableCell CCellTable::CellAt(QPoint place) const {
  const auto index = [](double offset, double length, int count) {
    return offset < 0 ? -1 : std::min(static_cast<int>(offset * count / length), count - 1);
  };
  const QPointF begin = PlaceAt(0, 0);
  const QPointF end = PlaceAt(rows_, columns_);
  return {index(place.y() - begin.y(), end.y() - begin.y(), rows_),
          index(place.x() - begin.x(), end.x() - begin.x(), columns_)};
}

template <typename Change>
void CCellTable::ChangeSelection(Change change) {
  const auto outline = [this] {
    return CellRect(selection_.First()).united(CellRect(selection_.Last()));
  };
  const QRect before = outline();
  change();
  // The headers of the selected cells are marked too.
  const QRect changed = before.united(outline()).adjusted(-2, -2, 2, 2);
  const QRect headers_beside(0, changed.top(), header_width_, changed.height());
  const QRect headers_above(changed.left(), 0, changed.width(), CellArea().top());
  update(QRegion(changed) + headers_beside + headers_above);
  SayCursor();
}

void CCellTable::MoveCursor(TableCell cell, bool extend) {
  ChangeSelection([&] { selection_.MoveTo(cell, extend); });
}

void CCellTable::SelectAll() {
  ChangeSelection([this] { selection_.SelectAll(); });
}

void CCellTable::SayCursor() {
  const TableCell cursor = selection_.Cursor();
  setAccessibleDescription(QStringLiteral("%1, %2: %3")
                               .arg(row_headers_[static_cast<std::size_t>(cursor.row)],
                                    column_headers_[static_cast<std::size_t>(cursor.column)],
                                    Text(cursor)));
}

void CCellTable::StartEditing(const QString& text, CCellEditor::Start start) {
  edited_ = selection_.Cursor();
  MoveCursor(edited_);
  editor_->setFont(cell_font_);
  editor_->Open(CellRect(edited_), text, start);
}

void CCellTable::FinishEditing(const QString& text, int row_step, int column_step) {
  if (row_step != 0 || column_step != 0) {
    ChangeSelection([&] { selection_.MoveBy(row_step, column_step, false); });
  }
  // The text on show says nothing about what is wanted: an earlier edit may still be on its way.
  if (editor_->Typed()) emit Entered(edited_, text);
}

bool CCellTable::event(QEvent* event) {
  const auto* const help = dynamic_cast<QHelpEvent*>(event);
  if (help == nullptr || help->type() != QEvent::ToolTip) return QWidget::event(event);
  const TableCell cell = CellAt(help->pos());
  if (cell.row >= 0 && cell.column >= 0 && !At(cell).tip.isEmpty()) {
    QToolTip::showText(help->globalPos(), At(cell).tip, this, CellRect(cell));
  } else {
    QToolTip::hideText();
  }
  return true;
}

void CCellTable::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void CCellTable::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

void CCellTable::keyPressEvent(QKeyEvent* event) {
  if (MoveByKey(*event)) return;
  if (event->key() == Qt::Key_F2) {
    return StartEditing(At(selection_.Cursor()).plain, CCellEditor::Start::kOpened);
  }
  const QString text = event->text();
  const bool is_command = event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier);
  if (text.size() == 1 && first_keys_.contains(text) && !is_command) {
    return StartEditing(text, CCellEditor::Start::kTyped);
  }
  QWidget::keyPressEvent(event);
}

bool CCellTable::MoveByKey(const QKeyEvent& event) {
  const bool extend = event.modifiers().testFlag(Qt::ShiftModifier);
  // As far as it goes.
  const bool far = event.modifiers().testFlag(Qt::ControlModifier);
  const auto move = [this](int rows, int columns, bool extending) {
    ChangeSelection([&] { selection_.MoveBy(rows, columns, extending); });
    return true;
  };
  switch (event.key()) {
    case Qt::Key_Up:
      return move(far ? -rows_ : -1, 0, extend);
    case Qt::Key_Down:
      return move(far ? rows_ : 1, 0, extend);
    case Qt::Key_Left:
      return move(0, far ? -columns_ : -1, extend);
    case Qt::Key_Right:
      return move(0, far ? columns_ : 1, extend);
    case Qt::Key_Home:
      return move(far ? -rows_ : 0, -columns_, extend);
    case Qt::Key_End:
      return move(far ? rows_ : 0, columns_, extend);
    case Qt::Key_PageUp:
      return move(-rows_, 0, extend);
    case Qt::Key_PageDown:
      return move(rows_, 0, extend);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return move(extend ? -1 : 1, 0, false);
    case Qt::Key_A:
      if (far) SelectAll();
      return far;
    default:
      return false;
  }
}

void CCellTable::mousePressEvent(QMouseEvent* event) {
  const TableCell cell = CellAt(event->pos());
  const bool inside_selection = selection_.Contains(cell);
  // The menu is for what is selected, where it is opened on that.
  if (event->button() == Qt::RightButton && inside_selection) return;
  if (event->button() != Qt::LeftButton && event->button() != Qt::RightButton) return;
  ChangeSelection([&] {
    if (cell.row < 0 && cell.column < 0) return selection_.SelectAll();
    if (cell.row < 0) return selection_.SelectColumn(cell.column);
    if (cell.column < 0) return selection_.SelectRow(cell.row);
    selection_.MoveTo(cell, event->modifiers().testFlag(Qt::ShiftModifier));
  });
}

void CCellTable::mouseMoveEvent(QMouseEvent* event) {
  if (!event->buttons().testFlag(Qt::LeftButton)) return;
  const TableCell cell = CellAt(event->pos());
  if (cell != selection_.Cursor()) MoveCursor(cell, true);
}

void CCellTable::mouseDoubleClickEvent(QMouseEvent* event) {
  const TableCell cell = CellAt(event->pos());
  if (event->button() != Qt::LeftButton || cell.row < 0 || cell.column < 0) return;
  // The first click may have met another cell.
  MoveCursor(cell);
  StartEditing(At(cell).plain, CCellEditor::Start::kOpened);
}

}  // namespace zelorgas
