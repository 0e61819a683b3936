// The real main window on the offscreen platform, in front of the simulated ECU, with message boxes
// that answer by themselves and a port list that the test moves.
#pragma once

#include <QApplication>
#include <QTest>
#include <QWidget>
#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "support/MemorySettings.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryFolder.h"
#include "ui/CFirmwareUpdate.h"
#include "ui/CMainFrame.h"
#include "ui/UiContext.h"

namespace zelorgas {

class UiBench {
 public:
  explicit UiBench(Clock& clock, std::string_view stored_port = kSimulatedPortName,
                   SimulatedLineOptions line = {.paced = false})
      : simulated(clock, {}, line),
        document(simulated.Opener([](const std::string&) { return nullptr; }), clock, status),
        counters(clock),
        control(document, boxes, store, firmware, counters),
        ports([this] { return machine_ports; }, stored_port),
        context{document,
                status,
                firmware,
                control,
                counters,
                boxes,
                store,
                settings,
                recent_files,
                ports,
                simulated,
                [this](std::function<void(PortWatchEvent)> notify) {
                  report_ports = std::move(notify);
                  return std::make_unique<NoThread>();
                }},
        frame(std::make_unique<CMainFrame>(context)) {
    firmware.SetParentWindow(frame.get());
    frame->show();
  }

  // The widget or action of that name; the test ends without it.
  template <typename T>
  [[nodiscard]] T& Find(const char* name) const {
    T* const found = frame->findChild<T*>(name);
    if (found == nullptr) qFatal("there is no %s", name);
    return *found;
  }
  [[nodiscard]] std::string Text(const char* label) const {
    return Find<QLabel>(label).text().toStdString();
  }
  [[nodiscard]] std::string Live(const char* tile) const {
    return Find<CValueTile>(tile).Value().toStdString();
  }
  void Click(const char* button) const {
    QTest::mouseClick(&Find<QWidget>(button), Qt::LeftButton);
  }
  void OpenTab(const QString& title) const {
    auto& tabs = Find<QTabWidget>("tabs");
    for (int tab = 0; tab < tabs.count(); ++tab) {
      if (tabs.tabText(tab) == title) tabs.setCurrentIndex(tab);
    }
    // A page that has just been made is shown by an event.
    QCoreApplication::processEvents();
  }
  // Runs the event loop until `condition` holds; false when it does not come to that.
  static bool WaitFor(const std::function<bool()>& condition) {
    return QTest::qWaitFor(condition, 60000);
  }
  [[nodiscard]] bool WaitForState(const char* text) const {
    return WaitFor([&] { return Text("communication_state") == text; });
  }
  bool Connect() {
    Click("connect_button");
    return WaitForState(kConnected) &&
           WaitFor([&] { return Live("live_engine_speed") != kDashes; });
  }

  static constexpr const char* kConnected = "Communication : Connection OK!";
  static constexpr const char* kConnecting = "Communication : Connecting...";
  static constexpr const char* kNotConnected = "Communication : Not connected!";
  static constexpr const char* kDashes = "------";

 private:
  class NoThread final : public PortWatcher {
    [[nodiscard]] bool Ended() const override { return false; }
  };

 public:
  std::vector<SerialPortInfo> machine_ports;
  std::function<void(PortWatchEvent)> report_ports;
  QtStatusSink status;
  ScriptedBoxes boxes;
  MemorySettings store;
  Settings settings{store};
  RecentFiles recent_files{store};
  SimulatedBench simulated;
  ClpgecuDoc document;
  TemporaryFolder folder;
  CFirmwareUpdate firmware{document, boxes, store, folder.Path()};
  LinkCounters counters;
  CEcuControl control;
  PortListModel ports;
  UiContext context;
  std::unique_ptr<CMainFrame> frame;
};

}  // namespace zelorgas
