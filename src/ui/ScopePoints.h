// Samples of the oscilloscope as points for a graph. Pure, safe from any thread.
#pragma once

#include <QVector>
#include <deque>

namespace zelorgas {

struct ScopePoints {
  QVector<double> seconds;  // rising
  QVector<double> values;
};

// A damaged file may hold any number: what lies farther from zero is drawn there.
inline constexpr double kScopeFarthest = 100'000;

// `samples` newest first, `period` seconds apart. When there are more than two for each of
// `columns` columns of the span, each column gives its smallest and its largest sample, so that no
// peak is lost and the graph has no more to draw than can be seen.
[[nodiscard]] ScopePoints PointsOf(const std::deque<double>& samples, double period, double span,
                                   int columns);

}  // namespace zelorgas
