// The page of the throttle corrections: both tables, the return to idle, and the throttle sensor.
// User-interface thread.
#pragma once

#include "maps/TpsModel.h"
#include "ui/CEcuPage.h"
#include "ui/CTPSIdle.h"
#include "ui/CTPSgen.h"
#include "ui/CTpsTableCard.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CTabTPS final : public CEcuPage {
  Q_OBJECT

 public:
  // `context` outlives the page.
  CTabTPS(UiContext& context, QWidget* parent);

  void ShowImage() override;
  void ShowLive() override;
  void ShowLink(bool up) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void ShowValues();

  UiContext& context_;
  TpsModel model_;
  CTPSAcceleration* acceleration_;
  CTPSDeceleration* deceleration_;
  CTPSIdle* idle_;
  CTPSgen* end_points_;
  int wide_;  // what the page needs with the idle settings in two columns
  bool link_up_ = false;
};

}  // namespace zelorgas
