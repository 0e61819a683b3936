#include "ui/PageModels.h"

#include <algorithm>
#include <utility>

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
  connect(&view, &ClpgecuView::LinkStateChanged, this,
          [this, &view] { FollowLink(view.LinkState()); });
  // What a load has replaced is not to come back cell by cell.
  connect(&context_.control, &CEcuControl::ConfigurationLoaded, this,
          [this] { grid_.ForgetSteps(); });
  context_.control.SetIdentifiedHook([this] { ReadErrors(); });
}

// What belonged to the one ECU is not to be taken for the next one's.
void PageModels::FollowControl() {
  const CEcuControl::State state = context_.control.CurrentState();
  link_was_lost_ = false;
  if (state == CEcuControl::State::kConnecting) image_read_ = false;
  if (state == CEcuControl::State::kConnected) {
    const auto serial = context_.control.Identity().serial;
    if (!serial || serial != serial_) {
      grid_.ForgetEcu();
      trace_ = {};
      vehicle_ = {};
      context_.document.SelectRoutingMap(0);
      configuration_.ForgetEcu();
    }
    serial_ = serial;
  }
  if (state == CEcuControl::State::kDisconnected) errors_.Forget();
}

void PageModels::FollowLink(CommStatus status) {
  if (status == CommStatus::kLinkUp) return;
  grid_.Live().Hide();
  // Before the first reading of a connection nothing was lost.
  if (status == CommStatus::kConnecting && image_read_) link_was_lost_ = true;
}

// A procedure may have loaded another grid into the ECU.
void PageModels::FollowGrid() {
  if (!context_.control.Busy()) SyncGrid();
}

void PageModels::SyncGrid() {
  if (image_read_) grid_.TakeImage(context_.document.Snapshot());
}

PageModels::~PageModels() { context_.control.SetIdentifiedHook({}); }

void PageModels::ReadErrors() { static_cast<void>(errors_.ReadErrors()); }

bool PageModels::HasErrors() {
  return std::ranges::any_of(errors_.Sheet().Pages(), &ErrorPage::Highlighted);
}

void PageModels::TakeImage() {
  configuration_.TakeFromImage();
  image_read_ = true;
  FollowGrid();
  // Later: what the worker has reported is first shown to its end.
  if (grid_.Unsettled()) {
    context_.control.RunLaterOnThisEcu(this, [this] { grid_.Settle(); });
  }
  if (!std::exchange(link_was_lost_, false)) return;
  // The ECU may have been without power meanwhile.
  context_.control.RunLaterOnThisEcu(this, [this] { ReadErrors(); });
}

Oscilloscope& PageModels::OpenScope() {
  scope_open_ = true;
  return scope_;
}

void PageModels::TakeLive() {
  const EcuImage image = context_.document.Snapshot();
  grid_.ShowLivePoint(image);
  trace_.TakeLive(image);
  const std::vector<LiveRecord> records = context_.document.LiveRecords().TakeAll();
  if (scope_open_) scope_.AddSamples(image, records);
}

}  // namespace zelorgas
