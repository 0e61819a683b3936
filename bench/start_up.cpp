// How long the program takes from its start to a window that can be used, beside an empty Qt
// Widgets program (a main window with one menu title and nothing else): each run is a process of
// its own, and the clock stops when the event loop is idle behind the first painted window. The two
// take turns; prints the ratio of the medians.
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QMenuBar>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "Table.h"
#include "ui/CZelorGasApp.h"

namespace {

constexpr double kGoal = 1.5;
constexpr int kRuns = 15;

// Says so on standard output once a window has been painted and nothing else is waiting, and ends
// the program.
class FirstIdle final : public QObject {
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (!seen_ && event->type() == QEvent::Paint && widget != nullptr && widget->isVisible()) {
      seen_ = true;
      QTimer::singleShot(0, this, [] {
        if (write(STDOUT_FILENO, "!", 1) == 1) std::_Exit(EXIT_SUCCESS);
        std::_Exit(EXIT_FAILURE);
      });
    }
    return false;
  }
  bool seen_ = false;
};

int RunEmpty(int argc, char** argv) {
  const QApplication qt(argc, argv);
  FirstIdle idle;
  QCoreApplication::instance()->installEventFilter(&idle);
  QMainWindow window;
  window.menuBar()->addMenu("&File");
  window.show();
  return QApplication::exec();
}

int RunWindow(int argc, char** argv) {
  zelorgas::CZelorGasApp program(argc, argv);
  FirstIdle idle;
  QCoreApplication::instance()->installEventFilter(&idle);
  return program.Run();
}

double TimeMs(const char* program, const char* kind) {
  int pipe_ends[2];
  if (pipe(pipe_ends) != 0) throw std::runtime_error("no pipe");
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) {
    dup2(pipe_ends[1], STDOUT_FILENO);
    close(pipe_ends[0]);
    close(pipe_ends[1]);
    setenv("ZELORGAS_START_UP", kind, 1);
    execl(program, program, nullptr);
    std::_Exit(127);
  }
  close(pipe_ends[1]);
  char said = 0;
  const bool up = read(pipe_ends[0], &said, 1) == 1;
  const auto end = std::chrono::steady_clock::now();
  close(pipe_ends[0]);
  waitpid(child, nullptr, 0);
  if (!up) throw std::runtime_error(std::string("no window from ") + kind);
  return std::chrono::duration<double, std::milli>(end - start).count();
}

double Median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

int Compare(const char* program) {
  // Settings of its own: nobody's port and window place matter here.
  const std::string settings = (std::filesystem::temp_directory_path() / "zelorgas-start").string();
  setenv("XDG_CONFIG_HOME", settings.c_str(), 1);
  if (getenv("DISPLAY") == nullptr) setenv("QT_QPA_PLATFORM", "offscreen", 1);
  std::vector<double> empty;
  std::vector<double> window;
  for (int run = 0; run < kRuns; ++run) {
    empty.push_back(TimeMs(program, "empty"));
    window.push_back(TimeMs(program, "window"));
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
  const char* const kind = getenv("ZELORGAS_START_UP");
  if (kind != nullptr && std::strcmp(kind, "empty") == 0) return RunEmpty(argc, argv);
  if (kind != nullptr) return RunWindow(argc, argv);
  try {
    return Compare(argv[0]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "start_up: %s\n", error.what());
    return 2;
  }
}
