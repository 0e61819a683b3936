#include "ui/CTraceGraph.h"

#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "ui/Text.h"

namespace zelorgas {
namespace {

constexpr double kLowestTopMs = 10;
constexpr double kTopStepMs = 5;
// Seen against light and dark.
const QColor kPetrolColour(224, 110, 20);
const QColor kGasColour(30, 130, 220);

}  // namespace

CTraceGraph::CTraceGraph(const GridTrace& trace, QWidget* parent)
    : QWidget(parent), trace_(trace), top_ms_(kLowestTopMs) {
  plot_ = new CPlot("grid_trace", tr("Petrol and gas injection times"), this);
  plot_->SetAxisTitles(tr("Live updates"), tr("ms"));
  plot_->SetRange(0, TraceSeries::kPoints, 0, top_ms_);
  AddCurve(GridTrace::kPetrolPlot, kPetrolColour, false,
           [](const GridTrace& t) { return t.Petrol(); });
  AddCurve(GridTrace::kGasPlot, kGasColour, false, [](const GridTrace& t) { return t.Gas(); });
  AddCurve(GridTrace::kStoredPetrolPlot, kPetrolColour, true,
           [](const GridTrace& t) { return std::span<const double>(t.StoredPetrol()); });
  AddCurve(GridTrace::kStoredGasPlot, kGasColour, true,
           [](const GridTrace& t) { return std::span<const double>(t.StoredGas()); });
  plot_->ShowLegend();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->addWidget(plot_);
  setMinimumHeight(fontMetrics().height() * 8);
}

void CTraceGraph::AddCurve(std::string_view name, const QColor& colour, bool stored,
                           std::span<const double> (*points)(const GridTrace&)) {
  curves_.push_back({plot_->AddCurve(ToQString(name), colour, stored), points});
}

void CTraceGraph::ShowTrace() {
  double highest = 0;
  for (const Curve& curve : curves_) {
    const std::span<const double> points = curve.points(trace_);
    QVector<double> places(static_cast<qsizetype>(points.size()));
    for (qsizetype i = 0; i < places.size(); ++i) places[i] = static_cast<double>(i);
    plot_->SetPoints(curve.number, places, QVector<double>(points.begin(), points.end()));
    if (!points.empty()) highest = std::max(highest, std::ranges::max(points));
  }
  const double top = std::max(kLowestTopMs, std::ceil(highest / kTopStepMs) * kTopStepMs);
  if (top != top_ms_) plot_->SetRange(0, TraceSeries::kPoints, 0, top);
  top_ms_ = top;
  plot_->Redraw();
}

}  // namespace zelorgas
