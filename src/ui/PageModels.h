// What the pages show and edit: the models that live on while no page is visible, fed with what the
// worker reads. User-interface thread.
#pragma once

#include <QObject>

#include "ui/UiContext.h"

namespace zelorgas {

class ClpgecuView;

class PageModels final : public QObject {
  Q_OBJECT

 public:
  // Both outlive the models.
  PageModels(UiContext& context, ClpgecuView& view);

 private:
  // The worker has read the configuration, or live values.
  void TakeImage();
  void TakeLive();

  UiContext& context_;
};

}  // namespace zelorgas
