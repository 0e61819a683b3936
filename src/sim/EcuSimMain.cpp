// zelorgas-ecusim: the simulated ECU as a process of its own.
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>

#include "sim/EcuSimOptions.h"
#include "sim/LineServer.h"

namespace {

using namespace zelorgas;

// Set before the signals are caught, and only read by their handler.
LineServer* serving = nullptr;

extern "C" void HandleInterrupt(int) {
  if (serving != nullptr) serving->Stop();
}

std::string Printable(std::span<const std::uint8_t> frame) {
  std::string text;
  for (const std::uint8_t byte : frame) {
    if (byte >= ' ' && byte < 0x7F) {
      text += static_cast<char>(byte);
    } else if (byte != '\r' && byte != '\n') {
      constexpr char kDigits[] = "0123456789ABCDEF";
      text += {'\\', 'x', kDigits[byte >> 4U], kDigits[byte & 0x0FU]};
    }
  }
  return text;
}

std::unique_ptr<LineServer> OpenServer(const EcuSimOptions& options, SimulatedLine& line,
                                       Clock& clock, std::string& error) {
  if (options.port.empty()) return OpenPtyServer(line, clock, error);
  std::unique_ptr<SerialDevice> device = SystemSerialPorts(clock)(options.port);
  LineSettings settings;
  settings.baud = options.line.baud;
  settings.data_bits = 7;
  settings.parity = Parity::kEven;
  PortTimeouts at_once;
  at_once.read_interval = PortTimeouts::kReturnAtOnce;
  if (!device || !device->Configure(settings) || !device->SetTimeouts(at_once)) {
    error = "cannot open " + options.port;
    return nullptr;
  }
  return ServeSerialDevice(line, clock, std::move(device), options.port);
}

// The symbolic link to the port; taken away again at the end.
class PortLink {
 public:
  PortLink(const std::string& link, const std::string& port) : link_(link) {
    if (link_.empty()) return;
    // A link that an earlier run left behind is ours to replace; anything else stays.
    std::error_code error;
    if (std::filesystem::is_symlink(link_, error)) std::filesystem::remove(link_, error);
    std::filesystem::create_symlink(port, link_, error);
    failed_ = static_cast<bool>(error);
  }
  PortLink(const PortLink&) = delete;
  PortLink& operator=(const PortLink&) = delete;
  ~PortLink() {
    std::error_code error;
    if (!link_.empty() && !failed_) std::filesystem::remove(link_, error);
  }
  [[nodiscard]] bool Failed() const { return failed_; }

 private:
  std::string link_;
  bool failed_ = false;
};

int Run(const EcuSimOptions& options) {
  const std::unique_ptr<Clock> clock = MakeSteadyClock();
  SimulatedEcu ecu(*clock, options.ecu);
  SimulatedLine line(ecu, *clock, options.line);
  line.WithFaults([&](LineFaults& faults) {
    for (const std::string& fault : options.faults) static_cast<void>(faults.Add(fault));
  });
  std::ofstream log;
  if (!options.log.empty()) {
    log.open(options.log);
    if (!log) {
      std::fprintf(stderr, "zelorgas-ecusim: cannot write %s\n", options.log.c_str());
      return 3;
    }
    line.SetReportSink([&](const SimulatedLine::RequestReport& report) {
      log << report.number << ' ' << Printable(report.request) << " -> " << Printable(report.answer)
          << (report.fault ? " (fault)" : "") << std::endl;
    });
  }
  std::string error;
  const std::unique_ptr<LineServer> server = OpenServer(options, line, *clock, error);
  if (!server) {
    std::fprintf(stderr, "zelorgas-ecusim: %s\n", error.c_str());
    return 1;
  }
  const PortLink link(options.link, server->Path());
  if (link.Failed()) {
    std::fprintf(stderr, "zelorgas-ecusim: cannot make the link %s\n", options.link.c_str());
    return 3;
  }
  serving = server.get();
  std::signal(SIGINT, HandleInterrupt);
  std::signal(SIGTERM, HandleInterrupt);
  std::printf("%s\n", server->Path().c_str());
  std::fflush(stdout);
  server->Serve();
  std::signal(SIGINT, SIG_DFL);
  std::signal(SIGTERM, SIG_DFL);
  std::printf("%llu requests, %llu faults, %zu writes\n",
              static_cast<unsigned long long>(line.RequestCount()),
              static_cast<unsigned long long>(line.FaultCount()), ecu.WriteCount());
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  EcuSimOptions options;
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (const std::string error = ParseEcuSimOptions(words, options); !error.empty()) {
    std::fprintf(stderr, "zelorgas-ecusim: %s\n\n%s", error.c_str(), EcuSimUsage().c_str());
    return 2;
  }
  if (options.help) {
    std::fputs(EcuSimUsage().c_str(), stdout);
    return 0;
  }
  return Run(options);
}
