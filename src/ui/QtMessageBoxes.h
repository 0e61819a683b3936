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

  void Inform(const Message& text, MessageIcon icon) override;
  [[nodiscard]] bool Ask(const Message& text) override;
  void Status(const Message& text) override;
  [[nodiscard]] std::string WordsOf(const Message& text) const override;

 signals:
  // For the status line.
  void StatusText(const QString& text);

 private:
  QPointer<QWidget> window_;
};

}  // namespace zelorgas
