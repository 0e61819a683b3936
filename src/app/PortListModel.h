// What the start page's port list shows: the serial ports of the machine and, last, the simulated
// ECU; and which of them is selected. Follows the port watcher's reports. Used by the
// user-interface thread.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/MessageBoxes.h"
#include "platform/Message.h"
#include "platform/PortList.h"
#include "platform/PortWatcher.h"

namespace zelorgas {

// The simulated ECU's name where a port's name is expected.
inline constexpr std::string_view kSimulatedPortName = "sim";

struct PortEntry {
  std::string name;  // for the link and the settings
  Message text;      // for the person
};

// What a report of the watcher has to say to the person.
struct PortNotice {
  Message text;
  MessageIcon icon = MessageIcon::kInformation;
};

class PortListModel {
 public:
  using Lister = std::function<std::vector<SerialPortInfo>()>;

  // Lists the ports. `selected`, the port used last, is selected once it is there; when it is empty
  // the first port of the machine is.
  PortListModel(Lister list, std::string_view selected);

  [[nodiscard]] const std::vector<PortEntry>& Entries() const { return entries_; }

  // Index of the selected entry; nothing while the selected port is unplugged.
  [[nodiscard]] std::optional<std::size_t> Selected() const;
  // False, and nothing changed, when there is no such entry.
  bool Select(std::size_t index);
  // A name that the list does not have is selected when it appears.
  void Select(std::string_view name) { selected_ = name; }
  // Also while it is unplugged.
  [[nodiscard]] const std::string& SelectedName() const { return selected_; }
  [[nodiscard]] bool IsSimulatedSelected() const { return selected_ == kSimulatedPortName; }

  // Takes a report of the watcher: reads the list again where it says so. Gives what is to be
  // shown. A change of the ports is shown only while no connection is open, and only when the list
  // differs: systems report one plug several times.
  [[nodiscard]] std::optional<PortNotice> OnWatchEvent(PortWatchEvent event, bool connected);

 private:
  void ReadList();

  const Lister list_;
  std::vector<PortEntry> entries_;  // never empty
  std::string selected_;            // name of an entry, or of a port that is not there; or empty
};

}  // namespace zelorgas
