// A page of the main view. It shows what the document and the models hold, turns clicks into calls
// of them, and keeps no rule of the ECU itself. It is made when its tab is opened for the first
// time, and told to show something only while it is visible. User-interface thread.
#pragma once

#include <QWidget>

namespace zelorgas {

class CEcuPage : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;

  // The configuration of the ECU may have changed: it was read, or a procedure wrote to it. Also
  // called when the page becomes visible.
  virtual void ShowImage() {}
  // Live values have come.
  virtual void ShowLive() {}
  // The link has come up or gone down; for pages that can be used without it.
  virtual void ShowLink(bool /*up*/) {}
};

}  // namespace zelorgas
