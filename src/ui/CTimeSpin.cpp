#include "ui/CTimeSpin.h"

#include <QLineEdit>
#include <QWheelEvent>

namespace zelorgas {

CTimeSpin::CTimeSpin(QWidget* parent) : QAbstractSpinBox(parent) {
  lineEdit()->setReadOnly(true);
  lineEdit()->setAlignment(Qt::AlignRight);
  setMinimumWidth(fontMetrics().averageCharWidth() * 12);
}

void CTimeSpin::ShowSpan(double seconds, bool can_double, bool can_halve) {
  lineEdit()->setText(tr("%1 s").arg(seconds));
  can_double_ = can_double;
  can_halve_ = can_halve;
  update();
}

QAbstractSpinBox::StepEnabled CTimeSpin::stepEnabled() const {
  StepEnabled steps = StepNone;
  if (can_double_) steps |= StepUpEnabled;
  if (can_halve_) steps |= StepDownEnabled;
  return steps;
}

void CTimeSpin::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace zelorgas
