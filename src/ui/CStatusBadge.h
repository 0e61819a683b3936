// The state of the link as a coloured badge that reads from a distance, whatever the palette.
#pragma once

#include <QColor>
#include <QLabel>

namespace zelorgas {

class CStatusBadge final : public QLabel {
  Q_OBJECT

 public:
  explicit CStatusBadge(QWidget* parent = nullptr);

  void Show(const QString& text, const QColor& colour);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor colour_;
};

}  // namespace zelorgas
