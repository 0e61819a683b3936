// The processor time that this process has used so far, its threads' and the system's for it
// included.
#pragma once

#include <sys/resource.h>

namespace zelorgas {

inline double CpuMs() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto ms = [](const timeval& t) {
    return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
  };
  return ms(usage.ru_utime) + ms(usage.ru_stime);
}

}  // namespace zelorgas
