// The main view: the live strip above the tabs with the pages. Receives WM_COMM_STATUS and shows
// what it says: live values, the state of the link, which pages can be used.
#pragma once

#include <QTabWidget>
#include <QTimer>
#include <QWidget>
#include <vector>

#include "ui/CLiveStrip.h"
#include "ui/CPageFrame.h"
#include "ui/CommStatusText.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CTabStart;

class ClpgecuView final : public QWidget {
  Q_OBJECT

 public:
  explicit ClpgecuView(UiContext& context, QWidget* parent = nullptr);
  ~ClpgecuView() override;

  // A tab whose page is made when it is first opened.
  void AddPage(const QString& title, CPageFrame::Needs needs, CPageFrame::PageMaker make);

  // Turns to the page of that type, whose tab has `title`.
  template <typename Page>
  Page& OpenPage(const QString& title) {
    return *qobject_cast<Page*>(&TurnTo(title));
  }

  // The object name of the page that is open.
  [[nodiscard]] QString CurrentPage() const;

  // The tab of that title has something that the person should look at, or no longer.
  void MarkPage(const QString& title, bool marked);

  [[nodiscard]] CTabStart& StartPage() { return *start_page_; }
  // kConnecting, kLinkUp, kPortBusy or kNotConnected: what was shown last.
  [[nodiscard]] CommStatus LinkState() const { return link_state_; }

  // The injection times of every cylinder as a second strip; polled only while shown.
  void ShowCylinders(bool show);

 signals:
  void LinkStateChanged();
  // The worker has read the whole configuration, or the live values; the models take them.
  void ImageRead();
  void LiveDataCame();
  // A procedure has ended; the models take what it did before the pages show it.
  void BecameIdle();
  // What was said as `text` in the status line is over.
  void MessageOver(const QString& text);
  void Resized();

 protected:
  // The status sink's post box has something.
  void customEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void OnCommStatus(CommStatus status);
  void ShowImage();
  void ShowLive();
  CEcuPage& TurnTo(const QString& title);
  void ShowLinkState(CommStatus status);
  void FollowControl();
  void WatchAnswers();

  UiContext& context_;
  CLiveStrip* live_strip_;
  CLiveStrip* cylinder_strip_;
  QTabWidget* tabs_;
  CTabStart* start_page_;
  std::vector<CPageFrame*> pages_;
  CommStatus link_state_ = CommStatus::kNotConnected;
  QTimer answer_timer_;  // while connected
  bool answering_ = true;
};

}  // namespace zelorgas
