// One row of the table that bench/run prints, in Markdown: what was measured, beside what, the
// figure that is judged (a ratio, a share, a gap), and the most that it may be.
#pragma once

#include <cstdio>
#include <string>

namespace zelorgas {

inline std::string Quantity(double value, const char* unit, int decimals = 1) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f %s", decimals, value, unit);
  return text;
}

// Returns whether the goal is reached.
inline bool PrintRow(const std::string& what, const std::string& measured,
                     const std::string& beside, double figure, double goal) {
  const bool reached = figure <= goal;
  std::printf("| %-46s | %-24s | %-28s | %7.4g | %4g | %s |\n", what.c_str(), measured.c_str(),
              beside.c_str(), figure, goal, reached ? "reached" : "MISSED");
  std::fflush(stdout);
  return reached;
}

}  // namespace zelorgas
