// One channel of the oscilloscope beside its graph: a box that shows or hides it, its colour, and
// its value at the cursor. User-interface thread.
#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QWidget>
#include <optional>

#include "diag/ScopeChannels.h"

namespace zelorgas {

class CChannelRow final : public QWidget {
  Q_OBJECT

 public:
  explicit CChannelRow(ScopeChannel channel, QWidget* parent = nullptr);

  [[nodiscard]] bool IsShown() const { return box_->isChecked(); }
  void SetShown(bool shown) { box_->setChecked(shown); }
  // False while the channel's sensor is not fitted.
  void SetPresent(bool present);
  void SetValue(std::optional<double> value);

 signals:
  void Toggled(bool shown);

 private:
  QCheckBox* box_;
  QLabel* value_;
};

}  // namespace zelorgas
