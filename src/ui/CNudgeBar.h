// Where the engine runs at the moment, and the buttons that enrich or lean the mixture there by the
// per cent of a slider. User-interface thread.
#pragma once

#include <QAction>
#include <QLabel>
#include <QSlider>
#include <QToolButton>
#include <QWidget>

#include "maps/GridModel.h"

namespace zelorgas {

class CNudgeBar final : public QWidget {
  Q_OBJECT

 public:
  // `model` outlives the bar; a click on a button triggers its action.
  CNudgeBar(GridModel& model, QAction* decrease, QAction* increase, QWidget* parent = nullptr);

  [[nodiscard]] int Percent() const { return percent_->value(); }
  // What the model holds now.
  void ShowLive();

 private:
  [[nodiscard]] QToolButton* MakeButton(QAction* action);
  void ShowPercent();

  GridModel& model_;
  QLabel* live_;
  QSlider* percent_;
  QLabel* percent_text_;
};

}  // namespace zelorgas
