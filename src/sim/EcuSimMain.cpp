// zelorgas-ecusim: the simulated ECU as a process of its own.
#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <utility>

#include "platform/StandardStreams.h"
#include "sim/EcuSimOptions.h"
#include "sim/LineServer.h"

namespace zelorgas {
namespace {

constexpr int kDone = 0;
constexpr int kNoPort = 1;
constexpr int kWrongCommandLine = 2;
constexpr int kFileTrouble = 3;

// The server that a signal stops; null: none.
std::atomic<LineServer*>& Serving() {
  static std::atomic<LineServer*> server{nullptr};
  return server;
}

extern "C" void HandleInterrupt(int) {
  if (LineServer* const server = Serving()) server->Stop();
}

// While it lives an interrupt stops `server`.
class InterruptStops {
 public:
  explicit InterruptStops(LineServer& server) {
    Serving() = &server;
    Catch(HandleInterrupt);
  }
  InterruptStops(const InterruptStops&) = delete;
  InterruptStops& operator=(const InterruptStops&) = delete;
  ~InterruptStops() {
    Catch(SIG_DFL);
    Serving() = nullptr;
  }

 private:
  static void Catch(void (*handler)(int)) {
    static_cast<void>(std::signal(SIGINT, handler));
    static_cast<void>(std::signal(SIGTERM, handler));
  }
};

// The symbolic link to the port; taken away again at the end.
class PortLink {
 public:
  PortLink(std::string link, std::string port) : link_(std::move(link)), port_(std::move(port)) {
    if (link_.empty()) return;
    // A link that an earlier run left behind is ours to replace; anything else stays.
    std::error_code error;
    if (std::filesystem::is_symlink(link_, error)) std::filesystem::remove(link_, error);
    std::filesystem::create_symlink(port_, link_, error);
    failed_ = static_cast<bool>(error);
  }
  PortLink(const PortLink&) = delete;
  PortLink& operator=(const PortLink&) = delete;
  ~PortLink() {
    std::error_code error;
    // By now it may be another simulator's.
    const bool ours = !link_.empty() && std::filesystem::read_symlink(link_, error) == port_;
    if (ours) std::filesystem::remove(link_, error);
  }
  [[nodiscard]] bool Failed() const { return failed_; }

 private:
  std::string link_;
  std::string port_;
  bool failed_ = false;
};

std::string Printable(std::span<const std::uint8_t> frame) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t byte : frame) {
    if (byte >= ' ' && byte < 0x7F) {
      text += static_cast<char>(byte);
    } else if (byte != '\r' && byte != '\n') {
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

// One line a request: number, milliseconds since the start, what came, what went, which fault.
SimulatedLine::ReportSink LogTo(std::ostream& log, Clock::TimePoint start) {
  return [&log, start](const SimulatedLine::RequestReport& report) {
    log << report.number << ' '
        << std::chrono::floor<std::chrono::milliseconds>(report.when - start).count() << " ms "
        << Printable(report.request) << " -> " << Printable(report.answer);
    if (report.fault) log << " (" << NameOfFault(report.fault->kind) << ')';
    log << std::endl;
  };
}

int Fail(int status, const std::string& message) {
  std::cerr << "zelorgas-ecusim: " << message << std::endl;
  return status;
}

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
    if (!log) return Fail(kFileTrouble, "cannot write " + options.log);
    line.SetReportSink(LogTo(log, clock->Now()));
  }
  std::string error;
  const std::unique_ptr<LineServer> server = OpenServer(options, line, *clock, error);
  if (!server) return Fail(kNoPort, error);
  {
    const InterruptStops interrupt(*server);
    const PortLink link(options.link, server->Path());
    if (link.Failed()) return Fail(kFileTrouble, "cannot make the link " + options.link);
    std::cout << server->Path() << std::endl;
    server->Serve();
  }
  std::cout << line.RequestCount() << " requests, " << line.FaultCount() << " faults, "
            << ecu.WriteCount() << " writes" << std::endl;
  if (!options.log.empty() && !log) {
    return Fail(kFileTrouble, "not all of the log could be written to " + options.log);
  }
  return kDone;
}

int Main(const std::vector<std::string>& words) {
  EcuSimOptions options;
  if (const std::string error = ParseEcuSimOptions(words, options); !error.empty()) {
    return Fail(kWrongCommandLine, error + "\n\n" + EcuSimUsage());
  }
  if (options.help) {
    std::cout << EcuSimUsage();
    return kDone;
  }
  return Run(options);
}

}  // namespace
}  // namespace zelorgas

int main(int argc, char** argv) {
  zelorgas::KeepStandardStreams();
  return zelorgas::Main(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
