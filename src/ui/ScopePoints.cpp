#include "ui/ScopePoints.h"

#include <algorithm>
#include <cmath>

namespace zelorgas {

ScopePoints PointsOf(const std::deque<double>& samples, double period, double span, int columns) {
  // What lies beyond the span is not seen.
  const auto visible = static_cast<qsizetype>(span / period) + 1;
  const auto size = std::min(static_cast<qsizetype>(samples.size()), visible);
  const double per_column = span / period / std::max(columns, 1);
  ScopePoints points;
  const auto add = [&points, period](qsizetype index, double value) {
    points.seconds.append(static_cast<double>(index) * period);
    points.values.append(std::clamp(value, -kScopeFarthest, kScopeFarthest));
  };
  if (per_column <= 2) {
    points.seconds.reserve(size);
    points.values.reserve(size);
    for (qsizetype i = 0; i < size; ++i) add(i, samples[static_cast<std::size_t>(i)]);
    return points;
  }
  const auto last_column = static_cast<int>(static_cast<double>(size) / per_column);
  for (int column = 0; column <= last_column; ++column) {
    const double start = column * per_column;
    // The next column's start, so that no sample falls between the two by rounding.
    const double end = std::min((column + 1) * per_column, static_cast<double>(size));
    const auto first = samples.begin() + static_cast<std::ptrdiff_t>(start);
    const auto last = samples.begin() + static_cast<std::ptrdiff_t>(end);
    if (first >= last) continue;
    const auto [low, high] = std::minmax_element(first, last);
    const auto& [one, two] = std::minmax(low, high);
    add(one - samples.begin(), *one);
    if (one != two) add(two - samples.begin(), *two);
  }
  return points;
}

}  // namespace zelorgas
