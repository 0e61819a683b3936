#include "ui/CZelorGasApp.h"

#include <QIcon>
#include <QProcess>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "app/CommandLine.h"
#include "app/StartUp.h"
#include "config/StoragePaths.h"
#include "platform/PortList.h"
#include "ui/CFirmwareUpdate.h"
#include "ui/CMainFrame.h"
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

// One picture for each place that shows it: title bar, task bar, task switcher.
QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    icon.addFile(QString(":/icons/zelorgas-%1.png").arg(size));
  }
  return icon;
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
}

int CZelorGasApp::Run() {
  QtMessageBoxes boxes;
  if (system_.Failure() != StartFailure::kNone) {
    boxes.Inform(StartFailureText(system_.Failure()), MessageIcon::kError);
    return kStartFailed;
  }
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

  const CommandLine command_line = ParseCommandLine(ToStrings(arguments_));
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
    QProcess::startDetached(QCoreApplication::applicationFilePath(), arguments_);
  }
  return exit_status;
}

}  // namespace zelorgas
