// A titled area of a page with a quiet frame around it.
#pragma once

#include <QVBoxLayout>
#include <QWidget>

namespace zelorgas {

class CCard : public QWidget {
  Q_OBJECT

 public:
  CCard(const QString& object_name, const QString& title, QWidget* parent = nullptr);

  // Below the title.
  [[nodiscard]] QVBoxLayout& Body() { return *body_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QVBoxLayout* body_;
};

}  // namespace zelorgas
