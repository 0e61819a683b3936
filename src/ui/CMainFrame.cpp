#include "ui/CMainFrame.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include "app/AboutInfo.h"
#include "app/StartUp.h"
#include "platform/ProgramVersion.h"
#include "ui/CAboutDlg.h"
#include "ui/CTabStart.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr std::string_view kWindowSection = "Window";
constexpr std::string_view kGeometryKey = "Geometry";
constexpr std::string_view kCylindersKey = "Cylinders";
constexpr QSize kFirstSize{1200, 760};

}  // namespace

CMainFrame::CMainFrame(UiContext& context) : context_(context) {
  setObjectName("main_frame");
  setWindowTitle(ToQString(WindowTitle(tr("Untitled").toStdString())));
  view_ = new ClpgecuView(context_, this);
  setCentralWidget(view_);
  models_ = std::make_unique<PageModels>(context_, *view_);
  MakePages();
  status_line_ = new CStatusLine(context_, this);
  statusBar()->addPermanentWidget(status_line_, 1);
  MakeFileMenu();
  MakeEcuMenu();
  MakeViewMenu();
  MakeToolsMenu();
  MakeHelpMenu();

  connect(view_, &ClpgecuView::LinkStateChanged, this, [this] {
    status_line_->ShowLinkState(view_->LinkState());
    FollowControl();
  });
  connect(&context_.control, &CEcuControl::StateChanged, this, &CMainFrame::FollowControl);
  connect(&context_.control, &CEcuControl::BusyChanged, this, &CMainFrame::FollowControl);
  connect(&view_->StartPage(), &CTabStart::RestartRequested, this, [this] {
    restart_wanted_ = true;
    close();
  });
  FollowControl();
  RestoreLayout();
}

QAction* CMainFrame::AddAction(QMenu* menu, const QString& object_name, const QString& text,
                               const QKeySequence& shortcut, const QString& tip) {
  QAction* const action = menu->addAction(text);
  action->setObjectName(object_name);
  action->setShortcut(shortcut);
  action->setToolTip(tip);
  action->setStatusTip(QString());
  return action;
}

// In the order of the tabs.
void CMainFrame::MakePages() {}

void CMainFrame::MakeFileMenu() {
  QMenu* const menu = menuBar()->addMenu(tr("&File"));
  menu->setObjectName("file_menu");
  QMenu* const recent = menu->addMenu(tr("&Recent files"));
  recent->setObjectName("recent_files_menu");
  connect(menu, &QMenu::aboutToShow, this, [this, recent] { ListRecentFiles(recent); });
  ListRecentFiles(recent);
  menu->addSeparator();
  QAction* const exit = AddAction(menu, "exit_action", tr("E&xit"), QKeySequence("Ctrl+Q"),
                                  tr("Disconnects and ends the program"));
  connect(exit, &QAction::triggered, this, &QWidget::close);
}

void CMainFrame::MakeEcuMenu() {
  QMenu* const menu = menuBar()->addMenu(tr("&ECU"));
  menu->setObjectName("ecu_menu");
  menu->setToolTipsVisible(true);
  connect_action_ = AddAction(menu, "connect_action", tr("&Connect"), QKeySequence("F2"),
                              tr("Opens the selected port and identifies the ECU"));
  disconnect_action_ = AddAction(menu, "disconnect_action", tr("&Disconnect"),
                                 QKeySequence("Shift+F2"), tr("Ends the connection to the ECU"));
  refresh_action_ = AddAction(menu, "refresh_action", tr("&Refresh"), QKeySequence("F5"),
                              tr("Reads the whole configuration from the ECU again"));
  CTabStart* const start = &view_->StartPage();
  connect(connect_action_, &QAction::triggered, start, &CTabStart::ToggleConnection);
  connect(disconnect_action_, &QAction::triggered, start, &CTabStart::ToggleConnection);
  connect(refresh_action_, &QAction::triggered, &context_.control, &CEcuControl::Refresh);
}

void CMainFrame::MakeViewMenu() {
  QMenu* const menu = menuBar()->addMenu(tr("&View"));
  menu->setObjectName("view_menu");
  menu->setToolTipsVisible(true);
  cylinders_action_ =
      AddAction(menu, "cylinders_action", tr("Injection times by &cylinder"), QKeySequence("F7"),
                tr("Reads and shows the petrol and gas injection times of every cylinder"));
  cylinders_action_->setCheckable(true);
  connect(cylinders_action_, &QAction::toggled, view_, &ClpgecuView::ShowCylinders);
  QAction* const full_screen = AddAction(menu, "full_screen_action", tr("&Full screen"),
                                         QKeySequence("F11"), tr("Uses the whole screen"));
  full_screen->setCheckable(true);
  connect(menu, &QMenu::aboutToShow, full_screen,
          [this, full_screen] { full_screen->setChecked(isFullScreen()); });
  connect(full_screen, &QAction::triggered, this,
          [this] { setWindowState(windowState() ^ Qt::WindowFullScreen); });
}

void CMainFrame::MakeToolsMenu() {
  QMenu* const menu = menuBar()->addMenu(tr("&Tools"));
  menu->setObjectName("tools_menu");
  QMenu* const simulated = menu->addMenu(tr("&Simulated ECU"));
  simulated->setObjectName("simulated_menu");
  simulated->setToolTipsVisible(true);
  connect(menu, &QMenu::aboutToShow, simulated,
          [this, simulated] { simulated->setEnabled(context_.ports.IsSimulatedSelected()); });
  QAction* const plug =
      AddAction(simulated, "unplug_ecu_action", tr("&Unplug the ECU"), {},
                tr("The ECU falls silent. Plugged in again, the link comes back by itself."));
  plug->setCheckable(true);
  connect(plug, &QAction::toggled, this,
          [this](bool out) { context_.simulated.SetEcuUnplugged(out); });
  QAction* const adapter =
      AddAction(simulated, "unplug_adapter_action", tr("Unplug the &adapter"), {},
                tr("The serial port vanishes. It is opened again once it is back."));
  adapter->setCheckable(true);
  connect(adapter, &QAction::toggled, this,
          [this](bool out) { context_.simulated.SetAdapterUnplugged(out); });
  QAction* const restart =
      AddAction(simulated, "restart_ecu_action", tr("&Restart the ECU"), {},
                tr("The ECU restarts; the program writes the configuration back."));
  connect(restart, &QAction::triggered, this, [this] { context_.simulated.RestartEcu(); });
}

void CMainFrame::MakeHelpMenu() {
  QMenu* const menu = menuBar()->addMenu(tr("&Help"));
  menu->setObjectName("help_menu");
  const QString name = ToQString(TemplateString(DocumentString::kWindowTitle));
  QAction* const about =
      AddAction(menu, "about_action", tr("&About %1...").arg(name), QKeySequence("F1"), {});
  about->setMenuRole(QAction::AboutRole);
  connect(about, &QAction::triggered, this, &CMainFrame::ShowAbout);
}

void CMainFrame::ListRecentFiles(QMenu* menu) {
  menu->clear();
  int number = 0;
  for (const std::string& file : context_.recent_files.Files()) {
    QString shown = ToQString(file);
    QAction* const action =
        menu->addAction(QStringLiteral("&%1 %2").arg(++number).arg(shown.replace('&', "&&")));
    action->setObjectName(QStringLiteral("recent_file%1").arg(number));
    connect(action, &QAction::triggered, this, [this, file] { OpenRecentFile(file); });
  }
  menu->setEnabled(number > 0);
}

void CMainFrame::OpenRecentFile(const std::string& file) {
  if (!OpenDocument(file)) context_.recent_files.Remove(file);
}

bool CMainFrame::OpenDocument(const std::string& file) {
  const QFileInfo info(ToQString(file));
  if (!info.isFile() || !info.isReadable()) {
    context_.boxes.Inform(tr("%1 was not found.").arg(info.filePath()).toStdString(),
                          MessageIcon::kExclamation);
    return false;
  }
  context_.recent_files.Add(file);
  setWindowTitle(ToQString(WindowTitle(info.fileName().toStdString())));
  return true;
}

void CMainFrame::StartDemo() {
  view_->StartPage().SelectPort(kSimulatedPortName);
  view_->StartPage().ToggleConnection();
}

void CMainFrame::FollowControl() {
  using State = CEcuControl::State;
  const State state = context_.control.CurrentState();
  const bool idle = !context_.control.Busy();
  connect_action_->setEnabled(idle && state == State::kDisconnected);
  disconnect_action_->setEnabled(idle && state == State::kConnected);
  refresh_action_->setEnabled(idle && state == State::kConnected &&
                              view_->LinkState() == CommStatus::kLinkUp);
  // Later, from the event loop: this may run inside the procedure that is about to end.
  if (idle && close_wanted_) QTimer::singleShot(0, this, &QWidget::close);
}

void CMainFrame::ShowAbout() {
  CAboutDlg(MakeAboutInfo(ReadProgramVersion(), BuildTime()), this).exec();
}

void CMainFrame::closeEvent(QCloseEvent* event) {
  if (context_.control.Busy()) {
    close_wanted_ = true;
    event->ignore();
    return;
  }
  close_wanted_ = false;
  context_.control.Disconnect();
  SaveLayout();
  event->accept();
}

void CMainFrame::RestoreLayout() {
  const QByteArray geometry = QByteArray::fromBase64(
      QByteArray::fromStdString(context_.store.ReadString(kWindowSection, kGeometryKey, "")));
  if (!restoreGeometry(geometry)) {
    resize(kFirstSize.boundedTo(screen()->availableGeometry().size() * 0.95));
  }
  cylinders_action_->setChecked(context_.store.ReadInteger(kWindowSection, kCylindersKey, 0) == 1);
}

void CMainFrame::SaveLayout() {
  // Where the settings cannot be kept the window starts in its first place again.
  static_cast<void>(context_.store.WriteString(kWindowSection, kGeometryKey,
                                               saveGeometry().toBase64().toStdString()));
  static_cast<void>(context_.store.WriteInteger(kWindowSection, kCylindersKey,
                                                cylinders_action_->isChecked() ? 1 : 0));
}

}  // namespace zelorgas
