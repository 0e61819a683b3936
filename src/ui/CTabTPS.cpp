#include "ui/CTabTPS.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include "ui/Text.h"

namespace zelorgas {

CTabTPS::CTabTPS(UiContext& context, QWidget* parent)
    : CEcuPage(parent),
      context_(context),
      model_(context.document, context.boxes, [this] { ShowValues(); }) {
  setObjectName("tps_page");
  setAccessibleName(TranslatedMessage(kTpsPageTitle));
  auto* const content = new QWidget;
  const TpsAccess access{model_, context_.control};
  acceleration_ = new CTPSAcceleration(access, content);
  deceleration_ = new CTPSDeceleration(access, content);
  idle_ = new CTPSIdle(access, content);
  end_points_ = new CTPSgen(access, content);

  auto* const column = new QVBoxLayout(content);
  column->setContentsMargins({});
  column->setSpacing(fontMetrics().height() * 3 / 4);
  column->addWidget(acceleration_, 1);
  column->addWidget(deceleration_, 1);
  auto* const below = new QHBoxLayout;
  below->setSpacing(column->spacing());
  below->addWidget(idle_, 1);
  below->addWidget(end_points_);
  column->addLayout(below);
  auto* const scroll = new QScrollArea(this);
  scroll->setObjectName("tps_scroll");
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setWidget(content);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, fontMetrics().height() / 2);
  layout->addWidget(scroll);
  // With a scroll bar beside it.
  wide_ = content->minimumSizeHint().width() + fontMetrics().height();
}

void CTabTPS::resizeEvent(QResizeEvent* event) {
  CEcuPage::resizeEvent(event);
  idle_->Arrange(width() < wide_ ? 1 : 2);
}

void CTabTPS::ShowImage() {
  ShowValues();
  ShowLive();
}

void CTabTPS::ShowLive() {
  if (link_up_) end_points_->ShowLive(context_.document.Snapshot());
}

void CTabTPS::ShowLink(bool up) {
  link_up_ = up;
  if (!up) end_points_->ShowNoLive();
}

void CTabTPS::ShowValues() {
  acceleration_->ShowValues();
  deceleration_->ShowValues();
  idle_->ShowValues();
  end_points_->ShowValues();
}

}  // namespace zelorgas
