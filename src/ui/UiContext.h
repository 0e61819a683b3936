// What the frame hands down to its pages and controls. All of it outlives the window;
// user-interface thread.
#pragma once

#include <functional>
#include <memory>

#include "app/ClpgecuDoc.h"
#include "app/LinkCounters.h"
#include "app/MessageBoxes.h"
#include "app/PortListModel.h"
#include "app/RecentFiles.h"
#include "app/Settings.h"
#include "platform/PortWatcher.h"
#include "platform/SettingsStore.h"
#include "ui/CEcuControl.h"
#include "ui/CFirmwareUpdate.h"
#include "ui/QtStatusSink.h"
#include "ui/SimulatedBench.h"

namespace zelorgas {

struct UiContext {
  using WatcherFactory =
      std::function<std::unique_ptr<PortWatcher>(std::function<void(PortWatchEvent)>)>;

  ClpgecuDoc& document;
  QtStatusSink& status;
  CFirmwareUpdate& firmware;
  CEcuControl& control;
  LinkCounters& counters;
  MessageBoxes& boxes;
  SettingsStore& store;
  Settings& settings;
  RecentFiles& recent_files;
  PortListModel& ports;
  SimulatedBench& simulated;
  WatcherFactory watch_ports;
  bool administrator = false;
};

}  // namespace zelorgas
