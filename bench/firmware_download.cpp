// How close a firmware download comes to the time of its characters on the wire: 19200 baud, ten
// bit times a character. A page of 256 bytes, over the simulated line in this process and over a
// pty from a second process; a short image by the real clock; and a whole one of 64 KiB over the
// paced line in virtual time. Prints the ratios; fails above the goal.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "EcuSimProcess.h"
#include "Table.h"
#include "firmware/FirmwareDownload.h"
#include "firmware/LinkPreparation.h"
#include "sim/SimulatedPort.h"
#include "support/VirtualClock.h"

namespace {

using namespace zelorgas;

constexpr double kGoal = 1.05;
constexpr double kPageMs = 766 * 10.0 * 1000.0 / 19200.0;  // seven exchanges
constexpr double kFlashDelaysMs = 3 * 50;  // after flash mode on, and after two erases
constexpr std::uint32_t kStart = 0x4000;
constexpr std::size_t kPages = 8;

class NoStatus final : public StatusSink {
  void Post(CommStatus) override {}
};

class YesToAll final : public MessageBoxes {
 public:
  std::string last;
  void Inform(const Message& text, MessageIcon) override { last = text.English(); }
  bool Ask(const Message&) override { return true; }
  void Status(const Message&) override {}
};

// A line with an ECU at its end, as the document sees it.
struct Line {
  Line(SerialOpener opener, const std::string& name, Clock& line_clock)
      : clock(line_clock), document(std::move(opener), line_clock, status) {
    document.Link().SetPortName(name);
    if (!document.Link().Open(0, 0, 255)) throw std::runtime_error("cannot open " + name);
  }

  Clock& clock;
  NoStatus status;
  ClpgecuDoc document;
};

template <typename Work>
double TimeMs(Clock& clock, Work work) {
  const Clock::TimePoint start = clock.Now();
  work();
  return std::chrono::duration<double, std::milli>(clock.Now() - start).count();
}

bool Report(const char* what, double took_ms, double least_ms, double goal_ms) {
  return PrintRow(what, Quantity(took_ms, "ms"), Quantity(least_ms, "ms on the wire"),
                  took_ms / least_ms, goal_ms / least_ms);
}

bool MeasurePage(const char* what, Line& line) {
  mbFlasher flasher(&line.document.Link(), [&](auto time) { line.document.SleepSliced(time); });
  static_cast<void>(flasher.SetFlashMode(true));
  flasher.Erase(2);
  const std::vector<std::uint8_t> page(mbFlasher::kPageSize, 0x5A);
  std::vector<double> times;
  for (std::size_t i = 0; i < kPages; ++i) {
    times.push_back(TimeMs(line.clock, [&] {
      const auto address = static_cast<std::uint32_t>(kStart + i * mbFlasher::kPageSize);
      if (flasher.Write(page, address) != 0) throw std::runtime_error("a page was refused");
    }));
  }
  static_cast<void>(flasher.SetFlashMode(false));
  if (flasher.LinkFailure() != ModbusResult::kOk) throw std::runtime_error("lost answer");
  std::ranges::sort(times);
  return Report(what, times[kPages / 2], kPageMs, kGoal * kPageMs);
}

bool MeasureImage(const char* what, Line& line, std::size_t pages) {
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / "zelorgas-firmware-download.ebi";
  std::ofstream(file, std::ios::binary) << std::string(pages * mbFlasher::kPageSize, 'Z');
  YesToAll boxes;
  FirmwareDownload download(line.document, boxes);
  FirmwareDownload::Outcome outcome = FirmwareDownload::Outcome::kFailed;
  EcuIdentity ecu;
  if (!FindUpdateTarget(line.document, ecu).Ok()) throw std::runtime_error("no ECU");
  const double took = TimeMs(line.clock, [&] { outcome = download.Program(file, ecu); });
  std::filesystem::remove(file);
  if (outcome != FirmwareDownload::Outcome::kDone) throw std::runtime_error(boxes.last);
  const double wire = static_cast<double>(pages) * kPageMs;
  return Report(what, took, wire, kGoal * wire + kFlashDelaysMs);
}

// Both by the real clock.
bool MeasurePages(Clock& clock) {
  SimulatedEcu ecu(clock, {.in_bootloader = true});
  SimulatedLine simulated(ecu, clock);
  Line inside(SimulatedPort(simulated, clock), "sim", clock);
  const bool page = MeasurePage("firmware page, in process", inside);
  const EcuSimProcess process({"--bootloader"});
  Line outside(SystemSerialPorts(clock), process.Port(), clock);
  return MeasurePage("firmware page, over a pty", outside) && page;
}

bool MeasureImages(Clock& clock) {
  const EcuSimProcess process({});
  Line outside(SystemSerialPorts(clock), process.Port(), clock);
  const bool part = MeasureImage("firmware of 16 KiB, over a pty", outside, 64);
  VirtualClock fast;
  SimulatedEcu ecu(fast);
  SimulatedLine simulated(ecu, fast);
  Line inside(SimulatedPort(simulated, fast), "sim", fast);
  return MeasureImage("firmware of 64 KiB, in virtual time", inside, 256) && part;
}

}  // namespace

int main() {
  try {
    const std::unique_ptr<Clock> clock = MakeSteadyClock();
    const bool pages = MeasurePages(*clock);
    return MeasureImages(*clock) && pages ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "firmware_download: %s\n", error.what());
    return 2;
  }
}
