// The trace of petrol and gas injection times, and the stored one to compare with. User-interface
// thread.
#pragma once

#include <QWidget>
#include <array>
#include <cstddef>
#include <span>

#include "maps/GridTrace.h"
#include "ui/CPlot.h"

namespace zelorgas {

class CTraceGraph final : public QWidget {
  Q_OBJECT

 public:
  // `trace` outlives the graph.
  explicit CTraceGraph(const GridTrace& trace, QWidget* parent = nullptr);

  // What the trace holds now.
  void ShowTrace();

 private:
  struct Curve {
    std::size_t number;
    std::span<const double> (*points)(const GridTrace&);
  };

  void AddCurve(std::string_view name, const QColor& colour, bool stored,
                std::span<const double> (*points)(const GridTrace&));

  const GridTrace& trace_;
  CPlot* plot_;
  std::vector<Curve> curves_;
  double top_ms_;
};

}  // namespace zelorgas
