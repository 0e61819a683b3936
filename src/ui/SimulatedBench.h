// The simulated ECU of the port list, on a line of this process, with what can be done to it from
// the Tools menu. It is made when it is first wanted, as most people start the program for a real
// one. Its port may be opened and used by any thread; the rest is for the user-interface thread.
#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Clock.h"
#include "platform/Message.h"
#include "platform/SerialDevice.h"
#include "sim/SimulatedEcu.h"
#include "sim/SimulatedLine.h"

namespace zelorgas {

// Firmware that no real ECU is ever offered.
inline constexpr std::string_view kDemoImage = "P042-simulated-ECU-only.ebi";

class SimulatedBench {
 public:
  // `clock` outlives the bench.
  explicit SimulatedBench(Clock& clock, SimulatedEcuOptions ecu = {},
                          SimulatedLineOptions line = {});

  // Opens the simulated ECU for the name that the port list gives it, and lets `others` open every
  // other. The bench outlives the opener.
  [[nodiscard]] SerialOpener Opener(SerialOpener others);

  // The plug between the line and the ECU: the adapter stays, the ECU falls silent. Back in, it
  // answers again from the next request on.
  void SetEcuUnplugged(bool unplugged);
  // The adapter: its port is gone, and opens again once it is back.
  void SetAdapterUnplugged(bool unplugged) { Line().SetPlugged(!unplugged); }
  void RestartEcu() { Ecu().Restart(); }
  void EnterBootloader() { Ecu().EnterBootloader(); }
  // Writes an image that this ECU starts, kDemoImage, into `folder`, which is made when there is
  // none, and gives its path. Nothing, with the reason in `problem`, when it could not be written.
  [[nodiscard]] static std::optional<std::filesystem::path> WriteDemoImage(
      const std::filesystem::path& folder, Message& problem);

  [[nodiscard]] SimulatedEcu& Ecu() { return Made().ecu; }
  [[nodiscard]] SimulatedLine& Line() { return Made().line; }

 private:
  struct Bench {
    SimulatedEcu ecu;
    SimulatedLine line;
    SerialOpener opener;
    Bench(Clock& clock, SimulatedEcuOptions ecu_options, SimulatedLineOptions line_options);
  };
  Bench& Made();

  Clock& clock_;
  SimulatedEcuOptions ecu_options_;
  SimulatedLineOptions line_options_;
  std::once_flag made_;
  std::unique_ptr<Bench> bench_;
};

}  // namespace zelorgas
