// Around a page that needs the ECU: disables it while the link is down, and says why above it.
#pragma once

#include <QLabel>
#include <QWidget>

namespace zelorgas {

class CPageFrame final : public QWidget {
  Q_OBJECT

 public:
  // Takes `page`.
  explicit CPageFrame(QWidget* page, QWidget* parent = nullptr);

  // Disables the page and shows `reason`; an empty one enables it.
  void Disable(const QString& reason);

 private:
  QWidget* page_;
  QLabel* reason_;
};

}  // namespace zelorgas
