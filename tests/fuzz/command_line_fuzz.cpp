// Any words as a command line, one a line, with a simulated ECU on the port "sim": it ends, with
// one of the documented statuses. Words with a slash are left out, and the program runs in a folder
// of its own, so that no file of the machine is touched.
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "cli/RunCli.h"
#include "sim/SimulatedPort.h"
#include "support/MemorySettings.h"
#include "support/VirtualClock.h"

namespace {

using namespace zelorgas;

constexpr int kLastStatus = 3;
constexpr int kRunsBetweenCleanings = 500;

// Everything that the program finds by itself lies in one temporary folder.
class Playground {
 public:
  Playground() : folder_(std::filesystem::temp_directory_path() / Name()) {
    std::filesystem::create_directories(folder_);
    std::filesystem::current_path(folder_);
    for (const char* const name : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
      static_cast<void>(setenv(name, folder_.c_str(), 1));
    }
  }
  Playground(const Playground&) = delete;
  Playground& operator=(const Playground&) = delete;
  ~Playground() { std::filesystem::remove_all(folder_); }

  void Clean() const {
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) {
      std::filesystem::remove_all(entry.path());
    }
  }

 private:
  static std::string Name() { return "zelorgas-fuzz-" + std::to_string(std::random_device{}()); }
  std::filesystem::path folder_;
};

std::vector<std::string> Words(std::string_view text) {
  std::vector<std::string> words;
  std::istringstream in{std::string(text)};
  for (std::string word; std::getline(in, word);) words.push_back(word);
  return words;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Playground playground;
  static int runs = 0;
  const std::string text(data, data + size);
  if (text.find_first_of(std::string("/\\\0", 3)) != std::string::npos) return 0;
  if (++runs % kRunsBetweenCleanings == 0) playground.Clean();

  VirtualClock clock;
  // Most command lines end before there is a port to open.
  std::optional<SimulatedEcu> ecu;
  std::optional<SimulatedLine> line;
  const auto open_simulated = [&](const std::string& name) {
    if (!line) line.emplace(ecu.emplace(clock), clock);
    return SimulatedPort(*line, clock)(name);
  };
  MemorySettings settings;
  std::atomic<unsigned> interrupted{0};
  std::ostringstream out;
  std::ostringstream err;
  std::istringstream in("y\n");
  CliEnvironment environment{.out = out,
                             .err = err,
                             .in = in,
                             .in_is_terminal = size % 2 == 0,
                             .clock = clock,
                             .serial_ports = [](const std::string&) { return nullptr; },
                             .simulated_ecu = open_simulated,
                             .list_ports = [] { return std::vector<SerialPortInfo>{}; },
                             .settings = settings,
                             // What goes on until it is interrupted is interrupted at once.
                             .catch_interrupts = [&](unsigned) { interrupted = 1; },
                             .interrupted = interrupted};
  const int status = RunCli(Words(text), environment);
  if (status < 0 || status > kLastStatus) std::abort();
  return 0;
}
