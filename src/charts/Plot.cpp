#include "charts/Plot.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/GermanNumber.h"

namespace charts {

Point depthOf(const View3D& view, Size room) {
  const double radians = std::numbers::pi / 180;
  const double length = 0.5 * std::min(room.width, room.height) * view.depth / View3D::kMaxDepth;
  return {length * std::sin(view.rotation * radians), -length * std::sin(view.elevation * radians)};
}

std::string Drawing::labelText(std::size_t series, std::size_t month) const {
  const double value = model.series[series].values[month].value_or(0);
  if (model.series[series].unit == "%") return base::formatNumber(value, 1) + " %";
  return valueText(value);
}

std::optional<Point> Drawing::pointOf(std::size_t series, std::size_t month) const {
  const Series& source = model.series[series];
  if (!source.values[month]) return std::nullopt;
  return Point{plot.slotCenter(month), plot.y(*source.values[month], source.secondAxis)};
}

int Drawing::coveredBy(std::size_t series, std::size_t month) const {
  constexpr double kSamePlace = 1;
  const auto own = pointOf(series, month);
  int count = 0;
  for (std::size_t s = 0; own && s < series; ++s)
    if (const auto other = pointOf(s, month); other && std::fabs(other->y - own->y) < kSamePlace)
      ++count;
  return count;
}

double Drawing::rim() const {
  constexpr double kWidest = 2.5;
  constexpr double kTogether = 2.9;
  const auto others = static_cast<double>(model.series.size()) - 1;
  return others > 0 ? std::min(kWidest, kTogether / others) : kWidest;
}

Stroke Drawing::lineOf(std::size_t series) const {
  const bool other = model.series[series].hue == Hue::OtherYear;
  return {color(series), other ? 1.8 : 2.6, other};
}

void addCoveredLine(Drawing& drawing, std::size_t series) {
  for (std::size_t month = 0; month + 1 < kMonthCount; ++month) {
    const int over =
        std::min(drawing.coveredBy(series, month), drawing.coveredBy(series, month + 1));
    if (over == 0) continue;
    drawing.canvas.scene().line(
        {*drawing.pointOf(series, month), *drawing.pointOf(series, month + 1)},
        Stroke{drawing.color(series), drawing.lineOf(0).width + 2 * drawing.rim() * over, false});
  }
}

StackedSpans stackedSpans(const ChartModel& model) {
  StackedSpans spans(model.series.size());
  for (std::size_t month = 0; month < kMonthCount; ++month) {
    std::array<double, 2> top{}, bottom{};
    for (std::size_t s = 0; s < model.series.size(); ++s) {
      const double value = model.series[s].values[month].value_or(0);
      const auto stack = static_cast<std::size_t>(model.series[s].stack);
      double& edge = value < 0 ? bottom.at(stack) : top.at(stack);
      spans[s][month] = {edge, edge + value};
      edge += value;
    }
  }
  return spans;
}

std::vector<int> stacksOf(const ChartModel& model) {
  std::vector<int> stacks;
  for (const Series& series : model.series)
    if (std::find(stacks.begin(), stacks.end(), series.stack) == stacks.end())
      stacks.push_back(series.stack);
  return stacks;
}

}  // namespace charts
