#include "ui/CEntryField.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace zelorgas {

CEntryField::CEntryField(QWidget* parent) : QLineEdit(parent) { setAlignment(Qt::AlignRight); }

void CEntryField::Show(const QString& text) {
  shown_ = text;
  if (!isModified()) Restore();
}

void CEntryField::ShowInstead(const QString& text) {
  shown_ = text;
  Restore();
}

void CEntryField::Restore() {
  // Setting the same text again would take the selection away.
  if (text() != shown_) setText(shown_);
  setModified(false);
}

void CEntryField::Commit() {
  if (!isModified()) return;
  setModified(false);
  emit Entered(text());
}

void CEntryField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && isModified()) {
    Restore();
    selectAll();
    return;
  }
  QLineEdit::keyPressEvent(event);
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return;
  Commit();
  selectAll();
}

void CEntryField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // A box that comes up, a menu and another window leave a half-typed text as it is.
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
      reason == Qt::MenuBarFocusReason) {
    return;
  }
  if (isEnabled()) Commit();
}

void CEntryField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  // The link has gone, and what was typed for this ECU with it, whether the window is active or
  // not.
  if (event->type() == QEvent::EnabledChange && !isEnabled()) Restore();
}

}  // namespace zelorgas
