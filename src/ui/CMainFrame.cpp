#include "ui/CMainFrame.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>

#include "app/AboutInfo.h"
#include "app/StartUp.h"
#include "config/ConfigurationFile.h"
#include "diag/RecordingFile.h"
#include "platform/FileSystem.h"
#include "platform/ProgramVersion.h"
#include "ui/CAboutDlg.h"
#include "ui/CSimulatedMenu.h"
#include "ui/CTabConfiguration.h"
#include "ui/CTabDiagnostics.h"
#include "ui/CTabErrors.h"
#include "ui/CTabFiles.h"
#include "ui/CTabGrid.h"
#include "ui/CTabStart.h"
#include "ui/CTabTPS.h"
#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr std::string_view kWindowSection = "Window";
constexpr std::string_view kGeometryKey = "Geometry";
constexpr std::string_view kCylindersKey = "Cylinders";
constexpr QSize kFirstSize{1200, 760};

// The one file of ours that was dropped; empty when it is anything else.
QString DroppedFile(const QMimeData* data) {
  const QList<QUrl> urls = data->urls();
  if (urls.size() != 1 || !urls.front().isLocalFile()) return {};
  const QString file = urls.front().toLocalFile();
  const QString suffix = "." + QFileInfo(file).suffix().toLower();
  return suffix == ToQString(kConfigurationExtension) || suffix == ToQString(kRecordingExtension)
             ? file
             : QString();
}

}  // namespace

CMainFrame::CMainFrame(UiContext& context) : context_(context) {
  setObjectName("main_frame");
  setAcceptDrops(true);
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
  connect(view_, &ClpgecuView::MessageOver, status_line_, &CStatusLine::DropMessage);
  connect(view_, &ClpgecuView::ImageRead, this,
          [this] { context_.firmware.FollowConnection(context_.control); });
  connect(&context_.control, &CEcuControl::StateChanged, this, &CMainFrame::FollowControl);
  connect(&context_.control, &CEcuControl::BusyChanged, this, &CMainFrame::FollowControl);
  connect(&view_->StartPage(), &CTabStart::RestartRequested, this, [this] {
    restart_wanted_ = true;
    close();
  });
  FollowControl();
  RestoreLayout();
}

// The pages, which use the models, go before them.
CMainFrame::~CMainFrame() { delete takeCentralWidget(); }

QAction* CMainFrame::AddAction(QMenu* menu, const QString& object_name, const QString& text,
                               const QKeySequence& shortcut, const QString& tip) {
  QAction* const action = menu->addAction(text);
  action->setObjectName(object_name);
  action->setShortcut(shortcut);
  action->setToolTip(tip);
  return action;
}

// In the order of the tabs.
void CMainFrame::MakePages() {
  using Needs = CPageFrame::Needs;
  view_->AddPage(tr("Configuration"), Needs::kLink, [this](QWidget* parent) {
    return new CTabConfiguration(context_, *models_, parent);
  });
  view_->AddPage(tr("Correction grid"), Needs::kLink,
                 [this](QWidget* parent) { return new CTabGrid(context_, *models_, parent); });
  view_->AddPage(TranslatedMessage(kTpsPageTitle), Needs::kLink,
                 [this](QWidget* parent) { return new CTabTPS(context_, parent); });
  view_->AddPage(tr("Oscilloscope"), Needs::kNothing, [this](QWidget* parent) {
    auto* const page = new CTabDiagnostics(context_, models_->OpenScope(), parent);
    connect(page, &CTabDiagnostics::FileUsed, this,
            [this](const QString& file) { NameDocument(file.toStdString()); });
    return page;
  });
  view_->AddPage(tr("Errors"), Needs::kLink,
                 [this](QWidget* parent) { return new CTabErrors(context_, *models_, parent); });
  view_->AddPage(tr("Files"), Needs::kNothing, [this](QWidget* parent) {
    auto* const page = new CTabFiles(context_, *models_, parent);
    connect(page, &CTabFiles::FileUsed, this,
            [this](const QString& file) { NameDocument(file.toStdString()); });
    return page;
  });
  connect(&context_.control, &CEcuControl::BusyChanged, view_, [this](bool busy) {
    if (!busy) view_->MarkPage(tr("Errors"), models_->HasErrors());
  });
}

void CMainFrame::MakeFileMenu() {
  QMenu* const menu = menuBar()->addMenu(tr("&File"));
  menu->setObjectName("file_menu");
  menu->setToolTipsVisible(true);
  store_action_ =
      AddAction(menu, "store_action", tr("&Store configuration..."), QKeySequence("Ctrl+S"),
                tr("Stores the configuration of the ECU in a file"));
  connect(store_action_, &QAction::triggered, this, [this] {
    auto& files = view_->OpenPage<CTabFiles>(tr("Files"));
    if (files.CanStore()) files.Store();
  });
  QAction* const load = AddAction(menu, "load_action", tr("&Load configuration..."),
                                  QKeySequence("Ctrl+O"), tr("Shows the stored configurations"));
  connect(load, &QAction::triggered, this, [this] { view_->OpenPage<CTabFiles>(tr("Files")); });
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
  menu->setToolTipsVisible(true);
  firmware_action_ = AddAction(menu, "firmware_action", tr("&Firmware update..."), {},
                               tr("Erases and programs the firmware of the ECU on the selected "
                                  "port"));
  connect(firmware_action_, &QAction::triggered, &view_->StartPage(), &CTabStart::UpdateFirmware);
  menu->addSeparator();
  auto* const simulated = new CSimulatedMenu(context_, menu);
  menu->addMenu(simulated);
  connect(menu, &QMenu::aboutToShow, this, [this, simulated] {
    simulated->setEnabled(context_.ports.IsSimulatedSelected());
    // The selected port may have gone or come back.
    FollowControl();
  });
}

void CMainFrame::MakeHelpMenu() {
  QMenu* const menu = menuBar()->addMenu(tr("&Help"));
  menu->setObjectName("help_menu");
  menu->setToolTipsVisible(true);
  QAction* const guide = AddAction(menu, "guide_action", tr("&Guide"), QKeySequence("F1"),
                                   tr("The guide's chapter on the page that is open"));
  connect(guide, &QAction::triggered, this, &CMainFrame::ShowGuide);
  const QString name = ToQString(TemplateString(DocumentString::kWindowTitle));
  QAction* const about = AddAction(menu, "about_action", tr("&About %1...").arg(name), {}, {});
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
    connect(action, &QAction::triggered, this, [this, file] { OpenDocument(file); });
  }
  menu->setEnabled(number > 0);
}

bool CMainFrame::OpenDocument(const std::string& file) {
  const QFileInfo info(ToQString(file));
  if (!info.isFile() || !info.isReadable()) {
    context_.recent_files.Remove(file);
    context_.boxes.Inform(ToMessage(tr("%1 was not found.").arg(info.filePath())),
                          MessageIcon::kExclamation);
    return false;
  }
  const std::filesystem::path path = PathFromText(file);
  if ("." + info.suffix().toLower() == ToQString(kRecordingExtension)) {
    auto& page = view_->OpenPage<CTabDiagnostics>(tr("Oscilloscope"));
    const bool failed = page.Load(path) == RecordingLoad::kFailed;
    if (failed) context_.recent_files.Remove(file);
    return !failed;
  }
  view_->OpenPage<CTabFiles>(tr("Files")).ShowFile(path);
  NameDocument(file);
  return true;
}

void CMainFrame::NameDocument(const std::string& file) {
  context_.recent_files.Add(file);
  const std::filesystem::path name = PathFromText(file).filename();
  setWindowTitle(ToQString(WindowTitle(PathText(name))));
}

void CMainFrame::dragEnterEvent(QDragEnterEvent* event) {
  if (!DroppedFile(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void CMainFrame::dropEvent(QDropEvent* event) {
  const QString file = DroppedFile(event->mimeData());
  if (file.isEmpty()) return;
  event->acceptProposedAction();
  // After the drop has ended: opening may ask the person.
  context_.control.WhenIdle([this, file] { static_cast<void>(OpenDocument(file.toStdString())); });
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
  const bool link_up = state == State::kConnected && view_->LinkState() == CommStatus::kLinkUp;
  store_action_->setEnabled(idle && link_up);
  refresh_action_->setEnabled(idle && link_up);
  firmware_action_->setEnabled(idle && (state == State::kConnected || context_.ports.Selected()));
  // Later, from the event loop: this may run inside the procedure that is about to end.
  if (idle && close_wanted_) QTimer::singleShot(0, this, &QWidget::close);
}

void CMainFrame::ShowGuide() {
  if (guide_ == nullptr) {
    guide_ = std::make_unique<CGuideWindow>(!LanguageLibrary(context_.settings.Language()).empty());
  }
  guide_->OpenForPage(view_->CurrentPage());
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
  if (!MayDropRecording(models_->Scope(), context_.boxes)) {
    restart_wanted_ = false;
    event->ignore();
    return;
  }
  context_.control.Disconnect();
  if (guide_ != nullptr) guide_->close();
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
