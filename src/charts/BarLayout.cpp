#include <cmath>

#include "charts/Depth.h"

namespace charts {
namespace {

constexpr double kBand = 0.80;        // of a month's width that its bars take
constexpr double kSingleBand = 0.62;  // where there is one column
constexpr Layer kBarLayer{0.14, 0.86};

// One column of a month: a series by itself, or a stack of them.
struct Column {
  std::vector<std::size_t> series;
};

std::vector<Column> columnsOf(const Drawing& drawing, bool stacked) {
  std::vector<Column> columns;
  const auto& series = drawing.model.series;
  if (!stacked) {
    for (std::size_t s = 0; s < series.size(); ++s) columns.push_back({{s}});
    return columns;
  }
  for (const int stack : stacksOf(drawing.model)) {
    Column column;
    for (std::size_t s = 0; s < series.size(); ++s)
      if (series[s].stack == stack) column.series.push_back(s);
    columns.push_back(column);
  }
  return columns;
}

// Left edge within the month and width.
struct Place {
  double left = 0;
  double width = 0;
};

Place columnPlace(const Drawing& drawing, std::size_t column, std::size_t count) {
  const double band = drawing.plot.slotWidth() * (count == 1 ? kSingleBand : kBand);
  const bool overlap = drawing.options.overlapBars && drawing.plot.isFlat();
  const double step = overlap ? 0.5 : 1;
  const double width = band / (1 + step * static_cast<double>(count - 1));
  const double left =
      (drawing.plot.slotWidth() - band) / 2 + static_cast<double>(column) * step * width;
  const double gap = overlap || count == 1 || width < 8 ? 0 : 1;
  return {left + gap, width - 2 * gap};
}

struct Bar {
  std::size_t series = 0;
  std::size_t month = 0;
  Rect rect;
  bool negative = false;
};

Bar makeBar(const Drawing& drawing, std::size_t series, std::size_t month, Span span, Place place) {
  const Plot& plot = drawing.plot;
  const bool second = drawing.model.series[series].secondAxis;
  const double from = plot.y(span.from, second), to = plot.y(span.to, second);
  const double x = plot.slotCenter(month) - plot.slotWidth() / 2 + place.left;
  return {series,
          month,
          {x, std::min(from, to), place.width, std::fabs(from - to)},
          span.to < span.from};
}

// The bars of a month's column in the order in which they are drawn.
std::vector<Bar> barsOf(const Drawing& drawing, const Column& column, std::size_t month,
                        const StackedSpans& spans, bool stacked, Place place) {
  std::vector<Bar> bars;
  for (const std::size_t s : column.series) {
    const auto value = drawing.model.series[s].values[month];
    if (!value) continue;
    bars.push_back(makeBar(drawing, s, month, stacked ? spans[s][month] : Span{0, *value}, place));
  }
  const bool upwards = drawing.plot.isFlat() || seesTop(drawing.plot);
  std::stable_sort(bars.begin(), bars.end(), [upwards](const Bar& a, const Bar& b) {
    return upwards ? a.rect.bottom() > b.rect.bottom() : a.rect.bottom() < b.rect.bottom();
  });
  return bars;
}

void addBar(Drawing& drawing, const Bar& bar, bool stacked) {
  Scene& scene = drawing.canvas.scene();
  const Color color = drawing.color(bar.series);
  if (!drawing.plot.isFlat()) {
    addBox(scene, drawing.plot, bar.rect, kBarLayer, color);
    return;
  }
  if (bar.rect.height == 0) return;
  std::optional<Stroke> outline;
  if (drawing.options.outlineBars)
    outline = Stroke{drawing.canvas.theme().text, 1, false};
  else if (stacked || drawing.options.overlapBars)
    outline = Stroke{drawing.canvas.theme().inner, 1, false};
  scene.fill(bar.rect.corners(), color, outline);
}

// The room that a box takes on the sheet.
void addHull(Drawing& drawing, const Rect& front) {
  const Point near = drawing.plot.at({front.x, front.y}, kBarLayer.z0);
  const Point far = drawing.plot.at({front.x, front.y}, kBarLayer.z1);
  drawing.obstacles.push_back({std::min(near.x, far.x), std::min(near.y, far.y),
                               front.width + std::fabs(far.x - near.x),
                               front.height + std::fabs(far.y - near.y)});
}

void addLabel(Drawing& drawing, const Bar& bar, bool stacked) {
  const Plot& plot = drawing.plot;
  const double z = plot.isFlat() ? 0 : kBarLayer.z0;
  std::vector<Point> outline;
  for (const Point& corner : bar.rect.grown(stacked ? 0 : 1).corners())
    outline.push_back(plot.at(corner, z));
  drawing.mark(bar.series, bar.month, std::move(outline));
  if (!plot.isFlat())
    addHull(drawing, bar.rect);
  else if (!drawing.options.overlapBars)
    drawing.obstacles.push_back(bar.rect);
  const double middle = bar.rect.center().x;
  LabelRequest label;
  label.text = drawing.labelText(bar.series, bar.month);
  label.weight = bar.rect.height;
  label.series = static_cast<int>(bar.series);
  label.outside = plot.isFlat() && !stacked;
  if (stacked) {
    label.side = LabelSide::Inside;
    label.anchor = plot.at(middle, bar.rect.center().y, z);
    label.room = {bar.rect.width, bar.rect.height};
  } else if (bar.negative) {
    label.side = LabelSide::Below;
    label.anchor = plot.at(middle, bar.rect.bottom(), z);
  } else {
    label.anchor = plot.at(middle, bar.rect.y, z);
    if (seesTop(plot)) label.preferred = plot.at(middle, bar.rect.y, kBarLayer.z1);
  }
  drawing.labels.push_back(std::move(label));
}

}  // namespace

void layoutBars(Drawing& drawing) {
  const bool stacked = drawing.options.type == ChartType::StackedBar;
  const StackedSpans spans = stackedSpans(drawing.model);
  const std::vector<Column> columns = columnsOf(drawing, stacked);
  for (const std::size_t month : drawingOrder(drawing.plot, kMonthCount))
    for (const std::size_t c : drawingOrder(drawing.plot, columns.size())) {
      const Place place = columnPlace(drawing, c, columns.size());
      for (const Bar& bar : barsOf(drawing, columns[c], month, spans, stacked, place)) {
        addBar(drawing, bar, stacked);
        addLabel(drawing, bar, columns[c].series.size() > 1);
      }
    }
}

}  // namespace charts
