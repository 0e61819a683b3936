#include "ui/CCellEditor.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace zelorgas {

CCellEditor::CCellEditor(QWidget* parent) : QLineEdit(parent) {
  setAlignment(Qt::AlignCenter);
  setContextMenuPolicy(Qt::NoContextMenu);
  hide();
}

void CCellEditor::Open(const QRect& cell, const QString& text, Start start) {
  start_ = start;
  open_ = true;
  setGeometry(cell);
  setText(text);
  show();
  setFocus(Qt::OtherFocusReason);
  if (start == Start::kOpened) {
    selectAll();
  } else {
    end(false);
  }
}

void CCellEditor::Commit(int row_step, int column_step) {
  if (!open_) return;
  Close();
  emit Committed(text(), row_step, column_step);
}

void CCellEditor::Cancel() {
  if (open_) Close();
}

void CCellEditor::Close() {
  open_ = false;
  // First, because a field that hides gives the keyboard to just anybody.
  if (hasFocus()) parentWidget()->setFocus(Qt::OtherFocusReason);
  hide();
  emit Closed();
}

bool CCellEditor::event(QEvent* event) {
  const auto* const press = dynamic_cast<QKeyEvent*>(event);
  if (press != nullptr && press->type() == QEvent::KeyPress &&
      (press->key() == Qt::Key_Tab || press->key() == Qt::Key_Backtab)) {
    Commit(0, press->key() == Qt::Key_Tab ? 1 : -1);
    return true;
  }
  return QLineEdit::event(event);
}

void CCellEditor::keyPressEvent(QKeyEvent* event) {
  const bool leaves_sideways = start_ == Start::kTyped;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Commit(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1, 0);
    case Qt::Key_Down:
      return Commit(1, 0);
    case Qt::Key_Up:
      return Commit(-1, 0);
    case Qt::Key_Escape:
      return Cancel();
    case Qt::Key_Left:
      if (leaves_sideways) return Commit(0, -1);
      break;
    case Qt::Key_Right:
      if (leaves_sideways) return Commit(0, 1);
      break;
    default:
      break;
  }
  QLineEdit::keyPressEvent(event);
}

void CCellEditor::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // A message box that comes up, a menu and another window leave a half-typed number as it is.
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
      reason == Qt::MenuBarFocusReason) {
    return;
  }
  if (isEnabled()) {
    Commit(0, 0);
  } else {
    Cancel();
  }
}

void CCellEditor::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  // A field that is disabled has lost its ECU; in a window that is not active it had no focus to
  // lose.
  if (event->type() == QEvent::EnabledChange && !isEnabled()) Cancel();
}

}  // namespace zelorgas
