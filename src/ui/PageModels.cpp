#include "ui/PageModels.h"

#include <algorithm>

#include "ui/ClpgecuView.h"

namespace zelorgas {

PageModels::PageModels(UiContext& context, ClpgecuView& view)
    : context_(context),
      configuration_(context.document, context.boxes),
      grid_(context.document, context.boxes),
      errors_(context.document, context.boxes) {
  connect(&view, &ClpgecuView::ImageRead, this, &PageModels::TakeImage);
  connect(&view, &ClpgecuView::LiveDataCame, this, &PageModels::TakeLive);
  connect(&context_.control, &CEcuControl::StateChanged, this, &PageModels::FollowControl);
  connect(&view, &ClpgecuView::BecameIdle, this, &PageModels::FollowGrid);
  connect(&view, &ClpgecuView::LinkStateChanged, this, [this, &view] {
    if (view.LinkState() != CommStatus::kLinkUp) grid_.Live().Hide();
  });
  context_.control.SetIdentifiedHook([this] { ReadErrors(); });
}

// What belonged to the one ECU is not to be taken for the next one's.
void PageModels::FollowControl() {
  const CEcuControl::State state = context_.control.CurrentState();
  if (state == CEcuControl::State::kConnected) {
    const auto serial = context_.control.Identity().serial;
    if (!serial || serial != serial_) {
      grid_.ForgetSteps();
      vehicle_ = {};
    }
    serial_ = serial;
  }
  if (state != CEcuControl::State::kDisconnected) return;
  errors_.Sheet().clear();
  errors_known_ = false;
}

// A procedure may have loaded another grid into the ECU.
void PageModels::FollowGrid() {
  if (image_read_ && !context_.control.Busy()) grid_.TakeImage(context_.document.Snapshot());
}

PageModels::~PageModels() { context_.control.SetIdentifiedHook({}); }

void PageModels::ReadErrors() { errors_known_ = errors_.ReadErrors() == ModbusResult::kOk; }

bool PageModels::HasErrors() {
  return std::ranges::any_of(errors_.Sheet().Pages(), &ErrorPage::Highlighted);
}

void PageModels::TakeImage() {
  configuration_.TakeFromImage();
  image_read_ = true;
  FollowGrid();
}

void PageModels::TakeLive() {
  const EcuImage image = context_.document.Snapshot();
  grid_.ShowLivePoint(image);
  trace_.TakeLive(image);
  const std::vector<LiveRecord> records = context_.document.LiveRecords().TakeAll();
  if (!records.empty()) scope_.AddSamples(image, records);
}

}  // namespace zelorgas
