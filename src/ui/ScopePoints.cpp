#include "ui/ScopePoints.h"

#include <algorithm>
#include <cmath>

namespace zelorgas {

ScopePoints PointsOf(const std::deque<double>& samples, double period, double span, int columns) {
  const auto size = static_cast<qsizetype>(samples.size());
  const double per_column = span / period / std::max(columns, 1);
  ScopePoints points;
  const auto add = [&points, period](qsizetype index, double value) {
    points.seconds.append(static_cast<double>(index) * period);
    points.values.append(value);
  };
  if (per_column <= 2) {
    points.seconds.reserve(size);
    points.values.reserve(size);
    for (qsizetype i = 0; i < size; ++i) add(i, samples[static_cast<std::size_t>(i)]);
    return points;
  }
  for (double start = 0; start < static_cast<double>(size); start += per_column) {
    const auto first = samples.begin() + static_cast<std::ptrdiff_t>(start);
    const auto last = samples.begin() + static_cast<std::ptrdiff_t>(std::min(
                                            start + per_column, static_cast<double>(size)));
    if (first == last) continue;
    const auto [low, high] = std::minmax_element(first, last);
    const auto& [one, two] = std::minmax(low, high);
    add(one - samples.begin(), *one);
    if (one != two) add(two - samples.begin(), *two);
  }
  return points;
}

}  // namespace zelorgas
