// A line of text that gives way: what does not fit ends in an ellipsis, and the tooltip has it all.
#pragma once

#include <QLabel>

namespace zelorgas {

class CElidedLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit CElidedLabel(QWidget* parent = nullptr);

  // For a screen reader and the tooltip, each followed by the text.
  void SetCaption(const QString& accessible_name, const QString& tooltip);
  void SetText(const QString& text);

  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString accessible_caption_;
  QString tooltip_caption_;
};

}  // namespace zelorgas
