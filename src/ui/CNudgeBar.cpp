#include "ui/CNudgeBar.h"

#include <QHBoxLayout>

#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr int kLargestPercent = 25;
constexpr int kFirstPercent = 5;

QString PercentText(int percent) { return QString::asprintf("%d %%", percent); }

// A text that may take two lines, for which there always is room.
class TwoLines final : public QLabel {
 public:
  explicit TwoLines(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setFixedHeight(fontMetrics().lineSpacing() * 2);
    setMinimumWidth(fontMetrics().averageCharWidth() * kLeastCharacters);
  }

  // The page is not to take it for a text that grows.
  [[nodiscard]] bool hasHeightForWidth() const override { return false; }

 private:
  static constexpr int kLeastCharacters = 20;
};

}  // namespace

CNudgeBar::CNudgeBar(GridModel& model, QAction* decrease, QAction* increase, QWidget* parent)
    : QWidget(parent), model_(model) {
  live_ = new TwoLines(this);
  live_->setObjectName("live_cell");
  live_->setAccessibleName(tr("Live cell"));
  percent_ = new QSlider(Qt::Horizontal, this);
  percent_->setObjectName("nudge_percent");
  percent_->setAccessibleName(tr("Per cent by which the live cell is nudged"));
  percent_->setToolTip(
      tr("The live cell is changed by so much, the cells around it by half of it"));
  percent_->setRange(1, kLargestPercent);
  percent_->setPageStep(5);
  percent_->setValue(kFirstPercent);
  percent_->setMinimumWidth(fontMetrics().averageCharWidth() * 16);
  percent_text_ = new QLabel(this);
  percent_text_->setObjectName("nudge_percent_text");
  percent_text_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  percent_text_->setFixedWidth(fontMetrics().horizontalAdvance(PercentText(100)));
  connect(percent_, &QSlider::valueChanged, this, &CNudgeBar::ShowPercent);

  auto* const layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(live_, 1);
  layout->addWidget(MakeButton(decrease));
  layout->addWidget(percent_);
  layout->addWidget(percent_text_);
  layout->addWidget(MakeButton(increase));
  ShowPercent();
  ShowLive();
}

QToolButton* CNudgeBar::MakeButton(QAction* action) {
  auto* const button = new QToolButton(this);
  button->setDefaultAction(action);
  button->setObjectName(action->objectName().replace("_action", "_button"));
  button->setAccessibleName(action->text());
  button->setAccessibleDescription(action->toolTip());
  button->setToolButtonStyle(Qt::ToolButtonTextOnly);
  button->setFocusPolicy(Qt::TabFocus);
  button->setMinimumHeight(fontMetrics().height() * 7 / 4);
  return button;
}

void CNudgeBar::ShowPercent() { percent_text_->setText(PercentText(Percent())); }

void CNudgeBar::ShowLive() {
  const GridCell cell = model_.Live().Cell();
  const QString text =
      model_.Live().Position()
          ? tr("Live: %1 ms, %2 1/min, %3")
                .arg(ToQString(model_.RowHeader(cell.row)),
                     ToQString(model_.ColumnHeader(cell.column)), ToQString(model_.CellText(cell)))
          : tr("Live: %1").arg(kNoValue);
  if (text != live_->text()) live_->setText(text);
}

}  // namespace zelorgas
