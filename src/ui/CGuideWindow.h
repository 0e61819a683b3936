// The fitter's guide in a window of its own, so that it can lie beside the program: the chapters at
// the left, back and contents, and a search through all of them. Nothing of the guide is read
// before it is first opened. User-interface thread.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QToolButton>
#include <QWidget>

#include "ui/CGuideBrowser.h"

namespace zelorgas {

class CGuideWindow final : public QWidget {
  Q_OBJECT

 public:
  // `foreign`: the program speaks another language than the guide, which says so.
  explicit CGuideWindow(bool foreign);

  // Shows the chapter that helps with the page of that object name, or the contents, in front.
  void OpenForPage(const QString& page);

 private:
  QWidget* MakeBar();
  void ListChapters();
  void FollowSource(const QUrl& source);
  // The next place of what is searched for, in this chapter or one behind it.
  void FindNext();

  QListWidget* chapters_;
  CGuideBrowser* browser_;
  QLineEdit* search_ = nullptr;
  QLabel* found_ = nullptr;
};

}  // namespace zelorgas
