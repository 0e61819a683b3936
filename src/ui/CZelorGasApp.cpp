#include "ui/CZelorGasApp.h"

#include <QDir>
#include <QIcon>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "app/CommandLine.h"
#include "app/StartUp.h"
#include "config/StoragePaths.h"
#include "platform/FileSystem.h"
#include "platform/PortList.h"
#include "ui/CFirmwareUpdate.h"
#include "ui/CMainFrame.h"
#include "ui/Colours.h"
#include "ui/LanguageTexts.h"
#include "ui/QtMessageBoxes.h"
#include "ui/Text.h"
#include "ui/UiContext.h"

namespace zelorgas {
namespace {

constexpr int kStartFailed = 1;
constexpr qreal kReadablePointSize = 11;  // at arm's length

std::vector<std::string> ToStrings(const QStringList& texts) {
  std::vector<std::string> strings;
  for (const QString& text : texts) strings.push_back(text.toStdString());
  return strings;
}

void EnlargeFont() {
  QFont font = QApplication::font();
  if (font.pointSizeF() >= kReadablePointSize) return;
  font.setPointSizeF(kReadablePointSize);
  QApplication::setFont(font);
}

// Some desktops give dark fields the placeholder of light ones.
void MakePlaceholdersReadable() {
  constexpr int kHalf = 128;
  const QPalette palette = QApplication::palette();
  const auto dark = [&palette](QPalette::ColorRole role) {
    return TextOn(palette.color(role)) == Qt::white;
  };
  if (dark(QPalette::PlaceholderText) != dark(QPalette::Base)) return;
  QColor colour = palette.color(QPalette::Text);
  colour.setAlpha(kHalf);
  // All else goes on following the system.
  QPalette mended;
  mended.setColor(QPalette::PlaceholderText, colour);
  QApplication::setPalette(mended);
}

// One picture for each place that shows it: title bar, task bar, task switcher.
QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    // With its size told, a picture is not read before it is shown.
    icon.addFile(QString(":/icons/zelorgas-%1.png").arg(size), {size, size});
  }
  return icon;
}

// A desktop has no folder of its own to start the program in: storage and firmware images then lie
// in "ZelorGAS" among the person's documents, and not all over their home or beside the file that
// is opened. Where that cannot be made, the program works in the folder that it was started in.
void WorkAmongDocuments(std::string& file) {
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(PathFromText(file), error);
  if (!file.empty() && !error) file = PathText(path);
  const QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation) + "/" +
                    QCoreApplication::applicationName());
  if (folder.mkpath("firmware")) static_cast<void>(QDir::setCurrent(folder.path()));
}

// The same style everywhere follows the palette in light and dark; an argument overrides it.
int& WithStyle(int& argc) {
  QApplication::setStyle("Fusion");
  return argc;
}

}  // namespace

CZelorGasApp::CZelorGasApp(int& argc, char** argv)
    : qt_(WithStyle(argc), argv), arguments_(QCoreApplication::arguments().mid(1)) {
  QCoreApplication::setApplicationName(ToQString(TemplateString(DocumentString::kWindowTitle)));
  QApplication::setWindowIcon(ProgramIcon());
  // By this name a desktop finds the menu's entry of a window.
  QGuiApplication::setDesktopFileName("zelorgas");
  EnlargeFont();
  MakePlaceholdersReadable();
}

int CZelorGasApp::Run() {
  QtMessageBoxes boxes;
  if (system_.Failure() != StartFailure::kNone) {
    boxes.Inform(StartFailureText(system_.Failure()), MessageIcon::kError);
    return kStartFailed;
  }
  CommandLine command_line = ParseCommandLine(ToStrings(arguments_));
  const QString started_in = QDir::currentPath();
  if (command_line.documents) WorkAmongDocuments(command_line.file);
  const std::unique_ptr<SettingsStore> store = OpenSettingsStore(kSettingsCompany);
  Settings settings(*store);
  LanguageTexts language;
  if (const auto library = LanguageLibrary(settings.Language()); !library.empty()) {
    // Without the library the built-in texts stay.
    static_cast<void>(language.Load(library));
  }
  UseLocaleOfUser();
  RecentFiles recent_files(*store);

  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  QtStatusSink status;
  SimulatedBench simulated(*clock);
  ClpgecuDoc document(simulated.Opener(SystemSerialPorts(*clock)), *clock, status);
  LinkCounters counters(*clock);
  CFirmwareUpdate firmware(document, boxes, *store, WorkingFolder());
  CEcuControl control(document, boxes, *store, firmware, counters);
  PortListModel ports(ListSerialPorts, settings.Port());

  if (!command_line.problem.empty()) {
    boxes.Inform(command_line.problem, MessageIcon::kError);
    return kStartFailed;
  }
  UiContext context{document,  status,           firmware,          control,      counters,
                    boxes,     *store,           settings,          recent_files, ports,
                    simulated, WatchSerialPorts, command_line.admin};
  CMainFrame frame(context);
  boxes.SetParentWindow(&frame);
  firmware.SetParentWindow(&frame);
  QObject::connect(&boxes, &QtMessageBoxes::StatusText, &frame, &CMainFrame::ShowMessage);
  if (!command_line.file.empty() && !frame.OpenDocument(command_line.file)) return kStartFailed;
  frame.show();
  if (command_line.demo) QTimer::singleShot(0, &frame, &CMainFrame::StartDemo);
  const int exit_status = QApplication::exec();
  if (frame.RestartWanted()) {
    QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments_, started_in);
  }
  return exit_status;
}

}  // namespace zelorgas
