#include "ui/PageModels.h"

#include "ui/ClpgecuView.h"

namespace zelorgas {

PageModels::PageModels(UiContext& context, ClpgecuView& view) : context_(context) {
  connect(&view, &ClpgecuView::ImageRead, this, &PageModels::TakeImage);
  connect(&view, &ClpgecuView::LiveDataCame, this, &PageModels::TakeLive);
}

void PageModels::TakeImage() {}

void PageModels::TakeLive() {}

}  // namespace zelorgas
