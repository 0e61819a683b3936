#include "ui/SimulatedBench.h"

#include <memory>
#include <utility>

#include "app/PortListModel.h"
#include "sim/SimulatedPort.h"

namespace zelorgas {
namespace {

constexpr unsigned kForGoodMs = 0x7FFFFFFF;  // three weeks

}  // namespace

SimulatedBench::SimulatedBench(Clock& clock, SimulatedEcuOptions ecu, SimulatedLineOptions line)
    : ecu_(clock, std::move(ecu)), line_(ecu_, clock, line), opener_(SimulatedPort(line_, clock)) {}

SerialOpener SimulatedBench::Opener(SerialOpener others) {
  return [this, others = std::move(others)](const std::string& name) {
    return name == kSimulatedPortName ? opener_(name) : others(name);
  };
}

void SimulatedBench::SetEcuUnplugged(bool unplugged) {
  // A silence of no length ends the one before it.
  line_.WithFaults([](LineFaults& faults) { faults.Clear(); });
  line_.ArmFault({FaultKind::kSilent, unplugged ? kForGoodMs : 0});
}

}  // namespace zelorgas
