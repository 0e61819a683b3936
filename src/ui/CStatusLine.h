// The status bar's content: the state of the link as a badge, a message, and with whom the program
// is connected and how well the line works.
#pragma once

#include <QTimer>
#include <QWidget>

#include "ui/CElidedLabel.h"
#include "ui/CStatusBadge.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CStatusLine final : public QWidget {
  Q_OBJECT

 public:
  explicit CStatusLine(UiContext& context, QWidget* parent = nullptr);

  void ShowLinkState(CommStatus status);
  // Until the next one, or until the connection changes.
  void ShowMessage(const QString& text);
  // When that is the message which is shown.
  void DropMessage(const QString& text);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void GiveRoom();
  CElidedLabel* AddField(const QString& object_name, const QString& accessible_name,
                         const QString& tooltip);
  void ShowConnection();
  void ShowQuality();

  UiContext& context_;
  CStatusBadge* badge_;
  CElidedLabel* message_;
  CElidedLabel* port_;
  CElidedLabel* firmware_;
  CElidedLabel* serial_;
  CElidedLabel* quality_;
  QTimer quality_timer_;
};

}  // namespace zelorgas
