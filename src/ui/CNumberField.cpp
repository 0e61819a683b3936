#include "ui/CNumberField.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <cmath>
#include <limits>

#include "ui/Colours.h"

namespace zelorgas {
namespace {

constexpr QRgb kLightRed = qRgb(255, 128, 128);

}  // namespace

CNumberField::CNumberField(int decimals, QWidget* parent) : QLineEdit(parent), decimals_(decimals) {
  setAlignment(Qt::AlignRight);
}

void CNumberField::Show(std::uint16_t value) {
  shown_ = QString::number(value / std::pow(10, decimals_), 'f', decimals_);
  if (!isModified()) Restore();
}

void CNumberField::ShowInstead(const QString& text) {
  shown_ = text;
  Restore();
}

void CNumberField::Restore() {
  // Setting the same text again would take the selection away.
  if (text() != shown_) setText(shown_);
  setModified(false);
}

void CNumberField::Warn(bool warn) {
  if (warn == warned_) return;
  warned_ = warn;
  QPalette colours;
  if (warn) {
    colours.setColor(QPalette::Base, QColor(kLightRed));
    colours.setColor(QPalette::Text, TextOn(QColor(kLightRed)));
  }
  setPalette(colours);
}

std::optional<std::uint16_t> CNumberField::Typed() const {
  bool is_number = false;
  const double number = text().trimmed().replace(',', '.').toDouble(&is_number);
  const double word = number * std::pow(10, decimals_);
  const bool in_range = word >= 0 && word <= std::numeric_limits<std::uint16_t>::max();
  constexpr double kRounding = 1e-6;
  if (!is_number || !in_range || std::abs(word - std::round(word)) > kRounding) return {};
  return static_cast<std::uint16_t>(std::lround(word));
}

void CNumberField::Commit() {
  if (!isModified()) return;
  setModified(false);
  const QString typed = text();
  if (const auto value = Typed()) {
    emit Entered(*value);
  } else {
    Restore();
    emit Refused(typed);
  }
}

void CNumberField::keyPressEvent(QKeyEvent* event) {
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

void CNumberField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // A box that comes up, a menu and another window leave a half-typed number as it is.
  const Qt::FocusReason reason = event->reason();
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
      reason == Qt::MenuBarFocusReason) {
    return;
  }
  if (isEnabled()) Commit();
}

void CNumberField::changeEvent(QEvent* event) {
  QLineEdit::changeEvent(event);
  // The link has gone, and what was typed for this ECU with it, whether the window is active or
  // not.
  if (event->type() == QEvent::EnabledChange && !isEnabled()) Restore();
}

}  // namespace zelorgas
