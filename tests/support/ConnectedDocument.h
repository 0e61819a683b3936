// A document whose link leads to a simulated ECU over a simulated line, all under the virtual
// clock, and a recorder for what the worker posts.
#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "app/ClpgecuDoc.h"
#include "sim/SimulatedPort.h"
#include "support/VirtualClock.h"

namespace zelorgas {

class StatusRecorder final : public StatusSink {
 public:
  void Post(CommStatus status) override {
    const std::lock_guard guard(lock_);
    posts_.push_back(status);
  }
  // What has been posted since the last call, as "1,1 0,0".
  std::string Take() {
    const std::lock_guard guard(lock_);
    std::string text;
    for (const CommStatus status : posts_) {
      if (!text.empty()) text += ' ';
      text += std::to_string(WParam(status)) + ',' + std::to_string(LParam(status));
    }
    posts_.clear();
    return text;
  }

 private:
  std::mutex lock_;
  std::vector<CommStatus> posts_;
};

struct ConnectedDocument {
  explicit ConnectedDocument(SimulatedEcuOptions options = {})
      : ecu(clock, options), document(SimulatedPort(line, clock), clock, status) {
    document.Image().software = {options.software_major, options.software_minor};
  }
  explicit ConnectedDocument(std::uint8_t software_minor)
      : ConnectedDocument(SimulatedEcuOptions{.software_minor = software_minor}) {}

  VirtualClock clock;
  SimulatedEcu ecu;
  SimulatedLine line{ecu, clock, {.paced = false}};
  StatusRecorder status;
  ClpgecuDoc document;
};

}  // namespace zelorgas
