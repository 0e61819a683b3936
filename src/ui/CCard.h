// A titled area of a page with a quiet frame around it.
#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QWidget>

namespace zelorgas {

class CCard : public QWidget {
  Q_OBJECT

 public:
  CCard(const QString& object_name, const QString& title, QWidget* parent = nullptr);

  // In the title's line, at its right end; below the title where both are too wide.
  void AddBesideTitle(QWidget* widget);
  // Below the title.
  [[nodiscard]] QVBoxLayout& Body() { return *body_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QLabel* heading_;
  QWidget* beside_ = nullptr;
  QHBoxLayout* title_;
  QVBoxLayout* body_;
};

}  // namespace zelorgas
