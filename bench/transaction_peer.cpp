// One transaction (a read of 32 holding registers) over an unpaced pty from a second process: ours,
// in ASCII with the echo read back and compared, against libmodbus's RTU client. The two take
// turns, so that the machine's moods hit both. Prints the medians and their ratio; fails above the
// goal.
#include <modbus.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <vector>

#include "EcuSimProcess.h"
#include "Table.h"
#include "link/ModbusSerialPort.h"

namespace {

using namespace zelorgas;

constexpr int kTurns = 3000;
constexpr int kWarmUpTurns = 200;
constexpr double kGoal = 1.5;
constexpr int kFirstRegister = 256;
constexpr int kRegisters = 32;

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

// Microseconds that `work` takes.
template <typename Work>
double Time(Clock& clock, Work work) {
  const Clock::TimePoint start = clock.Now();
  if (!work()) throw std::runtime_error("a transaction failed");
  return std::chrono::duration<double, std::micro>(clock.Now() - start).count();
}

int Run() {
  const EcuSimProcess echoing({"--no-pace"});
  const EcuSimProcess silent({"--no-pace", "--no-echo"});
  const std::unique_ptr<Clock> clock = MakeSteadyClock();

  ModbusSerialPort ours(SystemSerialPorts(*clock), *clock);
  ours.SetFraming(FramingMode::kAscii);
  ours.SetDataBits(7);
  ours.SetPortName(echoing.Port());
  if (!ours.Open(0, 19200, 2)) throw std::runtime_error("cannot open " + echoing.Port());

  const std::unique_ptr<modbus_t, decltype(&modbus_free)> peer(
      modbus_new_rtu(silent.Port().c_str(), 19200, 'N', 8, 1), modbus_free);
  if (!peer || modbus_set_slave(peer.get(), ECU_SLAVE_ADDRESS) != 0 ||
      modbus_connect(peer.get()) != 0) {
    throw std::runtime_error("libmodbus cannot open " + silent.Port());
  }

  std::vector<std::uint16_t> words;
  std::array<std::uint16_t, kRegisters> peer_words{};
  std::vector<double> ours_us;
  std::vector<double> peer_us;
  for (int turn = 0; turn < kWarmUpTurns + kTurns; ++turn) {
    const double mine = Time(*clock, [&] {
      return ours.ReadHoldingRegisters(ECU_SLAVE_ADDRESS, kFirstRegister, kRegisters, words) ==
             ModbusResult::kOk;
    });
    const double theirs = Time(*clock, [&] {
      return modbus_read_registers(peer.get(), kFirstRegister, kRegisters, peer_words.data()) ==
             kRegisters;
    });
    if (!std::ranges::equal(words, peer_words)) throw std::runtime_error("different registers");
    if (turn < kWarmUpTurns) continue;
    ours_us.push_back(mine);
    peer_us.push_back(theirs);
  }
  modbus_close(peer.get());
  const double mine = Median(ours_us);
  const double theirs = Median(peer_us);
  const bool reached = PrintRow("transaction over a pty", Quantity(mine, "us"),
                                Quantity(theirs, "us libmodbus RTU"), mine / theirs, kGoal);
  return reached ? 0 : 1;
}

}  // namespace

int main() {
  try {
    return Run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "transaction_peer: %s\n", error.what());
    return 2;
  }
}
