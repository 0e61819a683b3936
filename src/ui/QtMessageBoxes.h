// The procedures' message boxes as windows. User-interface thread.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <string_view>

#include "app/MessageBoxes.h"

namespace zelorgas {

class QtMessageBoxes final : public QObject, public MessageBoxes {
  Q_OBJECT

 public:
  // The window that the boxes belong to; null: none.
  void SetParentWindow(QWidget* window) { window_ = window; }

  void Inform(std::string_view text, MessageIcon icon) override;
  [[nodiscard]] bool Ask(std::string_view text) override;
  void Status(std::string_view text) override;

 signals:
  // For the status line.
  void StatusText(const QString& text);

 private:
  QPointer<QWidget> window_;
};

}  // namespace zelorgas
