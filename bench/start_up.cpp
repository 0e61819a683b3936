// How long the program takes from its start to a window that can be used, beside an empty Qt
// Widgets program (empty_window): each run is a process of its own, and the clock stops when the
// event loop is idle behind the first painted window. The two take turns; prints the ratio of the
// medians.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "FirstIdle.h"
#include "Table.h"
#include "ui/CZelorGasApp.h"

namespace {

constexpr double kGoal = 1.5;
constexpr int kRuns = 15;

int RunWindow(int argc, char** argv) {
  zelorgas::CZelorGasApp program(argc, argv);
  zelorgas::FirstIdle idle;
  QCoreApplication::instance()->installEventFilter(&idle);
  return program.Run();
}

// A process of this program with it opens the window instead of measuring.
constexpr const char* kOpenTheWindow = "ZELORGAS_START_UP";

double TimeMs(const std::string& program) {
  int pipe_ends[2];
  if (pipe(pipe_ends) != 0) throw std::runtime_error("no pipe");
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    dup2(pipe_ends[1], STDOUT_FILENO);
    close(pipe_ends[0]);
    close(pipe_ends[1]);
    setenv(kOpenTheWindow, "1", 1);
    execl(program.c_str(), program.c_str(), nullptr);
    std::_Exit(127);
  }
  close(pipe_ends[1]);
  char said = 0;
  const bool up = read(pipe_ends[0], &said, 1) == 1;
  const auto end = std::chrono::steady_clock::now();
  close(pipe_ends[0]);
  waitpid(child, nullptr, 0);
  if (!up) throw std::runtime_error("no window from " + program);
  return std::chrono::duration<double, std::milli>(end - start).count();
}

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

int Compare(const std::string& program) {
  const std::string beside =
      std::filesystem::path(program).replace_filename("empty_window").string();
  // Settings of its own: nobody's port and window place matter here.
  const std::string settings =
      (std::filesystem::temp_directory_path() / ("zelorgas-start-" + std::to_string(getpid())))
          .string();
  setenv("XDG_CONFIG_HOME", settings.c_str(), 1);
  if (getenv("DISPLAY") == nullptr) throw std::runtime_error("a window needs a display, DISPLAY");
  std::vector<double> empty;
  std::vector<double> window;
  for (int run = 0; run < kRuns; ++run) {
    empty.push_back(TimeMs(beside));
    window.push_back(TimeMs(program));
  }
  std::filesystem::remove_all(settings);
  const double ratio = Median(window) / Median(empty);
  const bool reached =
      zelorgas::PrintRow("start to a usable window", zelorgas::Quantity(Median(window), "ms"),
                         zelorgas::Quantity(Median(empty), "ms empty Qt program"), ratio, kGoal);
  return reached ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (getenv(kOpenTheWindow) != nullptr) return RunWindow(argc, argv);
  try {
    return Compare(argv[0]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "start_up: %s\n", error.what());
    return 2;
  }
}
