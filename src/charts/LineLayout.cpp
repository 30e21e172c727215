#include <cmath>

#include "charts/Depth.h"

namespace charts {
namespace {

constexpr double kDotRadius = 4.5;
constexpr double kMarkRadius = 10;

// Runs of months that follow each other without a gap.
std::vector<std::vector<Point>> runsOf(const Drawing& drawing, std::size_t series) {
  std::vector<std::vector<Point>> runs;
  bool open = false;
  for (std::size_t month = 0; month < kMonthCount; ++month) {
    const auto point = drawing.pointOf(series, month);
    if (point && !open) runs.emplace_back();
    if (point) runs.back().push_back(*point);
    open = point.has_value();
  }
  return runs;
}

void addFlatLine(Drawing& drawing, std::size_t series) {
  Scene& scene = drawing.canvas.scene();
  const Color color = drawing.color(series);
  for (const auto& run : runsOf(drawing, series))
    if (run.size() > 1) scene.line(run, drawing.lineOf(series));
  addCoveredLine(drawing, series);
  for (std::size_t month = 0; month < kMonthCount; ++month)
    if (const auto point = drawing.pointOf(series, month))
      scene.fill(circle(*point, kDotRadius + drawing.rim() * drawing.coveredBy(series, month)),
                 color, Stroke{drawing.canvas.theme().inner, 1.5, false});
}

void addDeepLine(Drawing& drawing, std::size_t series) {
  Scene& scene = drawing.canvas.scene();
  const Plot& plot = drawing.plot;
  const Color color = drawing.color(series);
  const Layer layer = layerOf(series, drawing.model.series.size());
  auto runs = runsOf(drawing, series);
  if (plot.depth.x < 0) std::reverse(runs.begin(), runs.end());
  for (const auto& run : runs) {
    if (run.size() == 1) {
      scene.fill(circle(plot.at(run[0], layer.z0), kDotRadius), color);
      continue;
    }
    for (const std::size_t i : drawingOrder(plot, run.size() - 1)) {
      addRibbon(scene, plot, run[i], run[i + 1], layer, color);
      scene.line({plot.at(run[i], layer.z0), plot.at(run[i + 1], layer.z0)},
                 Stroke{shade(color, -0.25), 1.5, drawing.lineOf(series).dashed});
    }
  }
}

// With several lines the lowest value of a month has its label below, so that labels of lines that
// run close together stand on either side of them.
LabelSide sideOf(const Drawing& drawing, std::size_t month, double y) {
  bool lowest = drawing.model.series.size() > 1, highest = true;
  for (std::size_t s = 0; s < drawing.model.series.size(); ++s)
    if (const auto other = drawing.pointOf(s, month)) {
      lowest = lowest && other->y <= y;
      highest = highest && other->y >= y;
    }
  return lowest && !highest ? LabelSide::Below : LabelSide::Above;
}

void requestLabels(Drawing& drawing, std::size_t series) {
  const double z = drawing.plot.isFlat() ? 0 : layerOf(series, drawing.model.series.size()).z0;
  for (std::size_t month = 0; month < kMonthCount; ++month) {
    const auto point = drawing.pointOf(series, month);
    if (!point) continue;
    const Point place = drawing.plot.at(*point, z);
    drawing.mark(series, month, circle(place, kMarkRadius, 12));
    drawing.obstacles.push_back(Rect::around(place, {2 * kDotRadius, 2 * kDotRadius}));
    const double value = *drawing.model.series[series].values[month];
    LabelRequest label;
    label.side = value < 0 ? LabelSide::Below : sideOf(drawing, month, point->y);
    label.anchor = place;
    label.clearance = kDotRadius;
    label.text = drawing.labelText(series, month);
    label.weight = std::abs(value);
    if (label.side == LabelSide::Above && seesTop(drawing.plot))
      label.preferred = drawing.plot.at(*point, layerOf(series, drawing.model.series.size()).z1);
    drawing.labels.push_back(std::move(label));
  }
}

}  // namespace

void layoutLines(Drawing& drawing) {
  for (std::size_t i = drawing.model.series.size(); i-- > 0;) {
    if (drawing.plot.isFlat())
      addFlatLine(drawing, i);
    else
      addDeepLine(drawing, i);
    requestLabels(drawing, i);
  }
}

}  // namespace charts
