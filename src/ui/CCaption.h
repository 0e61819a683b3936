// A quiet text beside or below what matters: captions and hints.
#pragma once

#include <QLabel>

namespace zelorgas {

class CCaption final : public QLabel {
  Q_OBJECT

 public:
  explicit CCaption(const QString& text, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace zelorgas
