// The main window: builds the menus, the view and the status line and joins them. What they do is
// their own business.
#pragma once

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <memory>
#include <string>

#include "ui/CGuideWindow.h"
#include "ui/CStatusLine.h"
#include "ui/ClpgecuView.h"
#include "ui/PageModels.h"
#include "ui/UiContext.h"

namespace zelorgas {

class CMainFrame final : public QMainWindow {
  Q_OBJECT

 public:
  explicit CMainFrame(UiContext& context);
  ~CMainFrame() override;

  [[nodiscard]] ClpgecuView& View() { return *view_; }

  // Makes `file` the document and puts it among the recent files, unless the person declines. When
  // it cannot be read: false, with the reason shown, and it is no recent file any more.
  bool OpenDocument(const std::string& file);
  // Selects the simulated ECU and connects to it.
  void StartDemo();
  void ShowMessage(const QString& text) { status_line_->ShowMessage(text); }
  // The window closes because the program is to be started anew.
  [[nodiscard]] bool RestartWanted() const { return restart_wanted_; }

 protected:
  // Disconnects first; the window stays, alive, until that is done.
  void closeEvent(QCloseEvent* event) override;
  // One file: a configuration or a recording.
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void MakePages();
  void MakeFileMenu();
  void MakeEcuMenu();
  void MakeViewMenu();
  void MakeToolsMenu();
  void MakeHelpMenu();
  static QAction* AddAction(QMenu* menu, const QString& object_name, const QString& text,
                            const QKeySequence& shortcut, const QString& tip);
  void ListRecentFiles(QMenu* menu);
  // In the title and among the recent files.
  void NameDocument(const std::string& file);
  void FollowControl();
  void ShowGuide();
  void ShowAbout();
  void RestoreLayout();
  void SaveLayout();

  UiContext& context_;
  ClpgecuView* view_;
  std::unique_ptr<PageModels> models_;
  CStatusLine* status_line_;
  std::unique_ptr<CGuideWindow> guide_;  // once it has been opened
  QAction* store_action_ = nullptr;
  QAction* connect_action_ = nullptr;
  QAction* disconnect_action_ = nullptr;
  QAction* refresh_action_ = nullptr;
  QAction* firmware_action_ = nullptr;
  QAction* cylinders_action_ = nullptr;
  bool close_wanted_ = false;
  bool restart_wanted_ = false;
};

}  // namespace zelorgas
