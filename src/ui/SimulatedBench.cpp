#include "ui/SimulatedBench.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "app/PortListModel.h"
#include "platform/FileSystem.h"
#include "sim/SimulatedPort.h"

namespace zelorgas {
namespace {

constexpr unsigned kForGoodMs = 0x7FFFFFFF;     // three weeks
constexpr std::size_t kDemoImageSize = 24'000;  // less than a minute on the line
constexpr std::uint32_t kDemoSeed = 2024;

}  // namespace

SimulatedBench::Bench::Bench(Clock& clock, SimulatedEcuOptions ecu_options,
                             SimulatedLineOptions line_options)
    : ecu(clock, std::move(ecu_options)),
      line(ecu, clock, line_options),
      opener(SimulatedPort(line, clock)) {}

SimulatedBench::SimulatedBench(Clock& clock, SimulatedEcuOptions ecu, SimulatedLineOptions line)
    : clock_(clock), ecu_options_(std::move(ecu)), line_options_(line) {}

SimulatedBench::Bench& SimulatedBench::Made() {
  std::call_once(made_,
                 [this] { bench_ = std::make_unique<Bench>(clock_, ecu_options_, line_options_); });
  return *bench_;
}

SerialOpener SimulatedBench::Opener(SerialOpener others) {
  return [this, others = std::move(others)](const std::string& name) {
    return name == kSimulatedPortName ? Made().opener(name) : others(name);
  };
}

std::optional<std::filesystem::path> SimulatedBench::WriteDemoImage(
    const std::filesystem::path& folder, Message& problem) {
  if (!CreateFolders(folder, problem)) return std::nullopt;
  const std::vector<std::uint8_t> image = Bootloader::MakeImage(kDemoImageSize, kDemoSeed);
  const std::filesystem::path file = folder / kDemoImage;
  if (!WriteWholeFile(file, std::string(image.begin(), image.end()), problem)) return std::nullopt;
  return file;
}

void SimulatedBench::SetEcuUnplugged(bool unplugged) {
  // A silence of no length ends the one before it.
  Line().WithFaults([](LineFaults& faults) { faults.Clear(); });
  Line().ArmFault({FaultKind::kSilent, unplugged ? kForGoodMs : 0});
}

}  // namespace zelorgas
