// The real main window on the offscreen platform, in front of the simulated ECU, with message boxes
// that answer by themselves and a port list that the test moves.
#pragma once

#include <QApplication>
#include <QWidget>
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
#include "ui/WindowUser.h"

namespace zelorgas {

class UiBench final : public WindowUser {
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

  [[nodiscard]] std::string Live(const char* tile) const {
    return Find<CValueTile>(tile).Value().toStdString();
  }
  bool Connect() {
    Click("connect_button");
    return WaitForState(kConnected) &&
           WaitFor([&] { return Live("live_engine_speed") != kDashes; });
  }

  static constexpr const char* kDashes = "------";

 private:
  [[nodiscard]] QWidget& Window() const override { return *frame; }

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
