// A tab of the main view: makes its page when it is first shown, passes on what the page is to show
// while it is visible, and disables a page that needs the ECU while the link is down, saying why
// above it. User-interface thread.
#pragma once

#include <QLabel>
#include <QScrollArea>
#include <QWidget>
#include <cstdint>
#include <functional>

#include "ui/CEcuPage.h"

namespace zelorgas {

class CPageFrame final : public QWidget {
  Q_OBJECT

 public:
  enum class Needs : std::uint8_t {
    kLink,     // useless without an ECU
    kNothing,  // disables by itself what needs one
  };
  // Makes the page as a child of the given widget; its object name is set.
  using PageMaker = std::function<CEcuPage*(QWidget*)>;

  CPageFrame(PageMaker make, Needs needs, QWidget* parent = nullptr);

  // What keeps the ECU from being used, for people; empty when nothing does.
  void ShowLinkProblem(const QString& reason);
  void ShowImage();
  void ShowLive();

  // Makes it if it has not been shown yet.
  [[nodiscard]] CEcuPage& Page();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  PageMaker make_;
  const Needs needs_;
  QString problem_;
  CEcuPage* page_ = nullptr;
  QLabel* reason_;
  QScrollArea* scroll_;
};

}  // namespace zelorgas
