// How long it takes until a choice from a catalogue is in the ECU, with the polling running: the
// handshake, and its writes on the paced line (19200 baud, ten bit times a character). Prints what
// comes on top of the handshake against the bare wire time, the median and the longest of every
// entry that can be chosen; fails when the median is above the goal.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <vector>

#include "Table.h"
#include "app/LinkSession.h"
#include "injectors/ConfigurationModel.h"
#include "sim/SimulatedPort.h"

namespace {

using namespace zelorgas;

constexpr double kGoal = 1.1;
constexpr double kCharacterMs = 10.0 * 1000.0 / 19200.0;
constexpr int kCharactersOfWrite = 2 * 17;  // a write of one register, and its answer
constexpr int kRounds = 3;

class NoSink final : public StatusSink {
  void Post(CommStatus) override {}
};

class NoBoxes final : public MessageBoxes {
  void Inform(const Message&, MessageIcon) override {}
  bool Ask(const Message&) override { return false; }
  void Status(const Message&) override {}
};

class Bench {
 public:
  Bench() {
    document_.Image().software = {0, 39};
    if (!document_.StartWorker()) throw std::runtime_error("no worker");
  }

  // The time of one choice past the handshake, over that of its characters.
  double Ratio(ChoiceList list, std::size_t entry) {
    const auto writes = WritesOf(list, entry, {document_.Snapshot().FirmwareIdentification()});
    const Clock::TimePoint start = clock_->Now();
    const auto outcome = model_.Select(list, static_cast<int>(entry));
    const Clock::Duration took = clock_->Now() - start;
    const auto is_in_the_ecu = [this](const RegisterWrite& write) {
      return ecu_.Register(write.reg) == write.value;
    };
    if (outcome != ConfigurationModel::Outcome::kWritten ||
        !std::ranges::all_of(writes, is_in_the_ecu)) {
      throw std::runtime_error("a choice is not in the ECU");
    }
    const double writing =
        std::chrono::duration<double, std::milli>(took - LinkSession::kGracePeriod).count();
    return writing / (static_cast<double>(writes.size()) * kCharactersOfWrite * kCharacterMs);
  }

 private:
  std::unique_ptr<Clock> clock_ = MakeSteadyClock();
  SimulatedEcu ecu_{*clock_};
  SimulatedLine line_{ecu_, *clock_};
  NoSink status_;
  NoBoxes boxes_;
  ClpgecuDoc document_{SimulatedPort(line_, *clock_), *clock_, status_};
  ConfigurationModel model_{document_, boxes_};
};

bool Measure(Bench& bench, ChoiceList list, const char* name) {
  std::vector<double> ratios;
  for (int round = 0; round < kRounds; ++round) {
    for (std::size_t entry = 0; entry < EntryNames(list).size(); ++entry) {
      if (!WritesOf(list, entry, {}).empty()) ratios.push_back(bench.Ratio(list, entry));
    }
  }
  std::ranges::sort(ratios);
  const double median = ratios[ratios.size() / 2];
  return PrintRow(std::string("choice of ") + name,
                  "longest " + Quantity(ratios.back(), "of it", 4), "its writes on the wire",
                  median, kGoal);
}

int Run() {
  constexpr std::array kNames{"an injector",       "a coolant sensor",  "a gas thermometer",
                              "a pressure sensor", "a manifold sensor", "a lambda range"};
  Bench bench;
  bool reached = true;
  for (std::size_t i = 0; i < kChoiceLists.size(); ++i) {
    reached = Measure(bench, kChoiceLists[i], kNames[i]) && reached;
  }
  return reached ? 0 : 1;
}

}  // namespace

int main() {
  try {
    return Run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "catalogue_choice: %s\n", error.what());
    return 2;
  }
}
