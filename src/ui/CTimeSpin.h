// The spin control for a span of time that is doubled and halved. User-interface thread.
#pragma once

#include <QAbstractSpinBox>

namespace zelorgas {

class CTimeSpin final : public QAbstractSpinBox {
  Q_OBJECT

 public:
  explicit CTimeSpin(QWidget* parent = nullptr);

  // What is shown now, in seconds, and which steps are left.
  void ShowSpan(double seconds, bool can_double, bool can_halve);

  void stepBy(int steps) override { emit Stepped(steps > 0 ? 1 : -1); }

 signals:
  // 1: doubled; -1: halved.
  void Stepped(int steps);

 protected:
  [[nodiscard]] StepEnabled stepEnabled() const override;
  // The wheel scrolls the page; it does not change the span by accident.
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool can_double_ = true;
  bool can_halve_ = true;
};

}  // namespace zelorgas
