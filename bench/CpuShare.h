// What share of a core this process takes while its event loop runs as in the program: waiting for
// events, not looking for them again and again as a test does.
#pragma once

#include <sys/resource.h>

#include <QEventLoop>
#include <QTimer>
#include <chrono>

namespace zelorgas {

// The processor time so far, of all threads and of the system for them.
inline double CpuMs() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto ms = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
  };
  return ms(usage.ru_utime) + ms(usage.ru_stime);
}

struct CpuShare {
  double percent;  // of a core
  double seconds;  // that it was measured for
};

inline CpuShare MeasureCpuShare(std::chrono::milliseconds duration) {
  const auto start = std::chrono::steady_clock::now();
  const double before = CpuMs();
  QEventLoop loop;
  QTimer::singleShot(duration, &loop, &QEventLoop::quit);
  loop.exec();
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - start;
  return {(CpuMs() - before) / wall.count() / 10, wall.count()};
}

}  // namespace zelorgas
