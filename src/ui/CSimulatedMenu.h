// The menu of the simulated ECU: what a cable, a supply and an interrupted update do to a real one,
// and an image for it. Enabled while that ECU is the selected port. User-interface thread.
#pragma once

#include <QMenu>

#include "ui/UiContext.h"

namespace zelorgas {

class CSimulatedMenu final : public QMenu {
  Q_OBJECT

 public:
  CSimulatedMenu(UiContext& context, QWidget* parent);

 private:
  QAction* Add(const char* object_name, const QString& text, const QString& tip);
  void WriteDemoImage();

  UiContext& context_;
};

}  // namespace zelorgas
