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

// Left edge within the month and width. Where columns lie over each other, half of one is seen, on
// this side; the one in front is seen whole, and stands alone on the right.
struct Place {
  double left = 0;
  double width = 0;
  bool covered = false;
  bool covers = false;
};

Place columnPlace(const Drawing& drawing, std::size_t column, std::size_t count) {
  const double band = drawing.plot.slotWidth() * (count == 1 ? kSingleBand : kBand);
  const bool overlap = drawing.options.overlapBars && drawing.plot.isFlat();
  const double step = overlap ? 0.5 : 1;
  const double width = band / (1 + step * static_cast<double>(count - 1));
  const double left =
      (drawing.plot.slotWidth() - band) / 2 + static_cast<double>(column) * step * width;
  const double gap = overlap || count == 1 || width < 8 ? 0 : 1;
  const bool last = column + 1 == count;
  return {left + gap, width - 2 * gap, overlap && !last, overlap && last && count > 1};
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

std::vector<Point> frontOf(const Plot& plot, const Rect& rect) {
  std::vector<Point> front = rect.corners();
  for (Point& corner : front) corner = plot.at(corner, kBarLayer.z0);
  return front;
}

void addBar(Drawing& drawing, const Bar& bar, bool stacked) {
  Scene& scene = drawing.canvas.scene();
  const Color color = drawing.color(bar.series);
  const Hue hue = drawing.model.series[bar.series].hue;
  if (!drawing.plot.isFlat()) {
    addBox(scene, drawing.plot, bar.rect, kBarLayer, color);
    drawing.canvas.pattern(frontOf(drawing.plot, bar.rect), hue);
    return;
  }
  if (bar.rect.height == 0) return;
  std::optional<Stroke> outline;
  if (drawing.options.outlineBars)
    outline = Stroke{drawing.canvas.theme().text, 1, false};
  else if (stacked || drawing.options.overlapBars)
    outline = Stroke{drawing.canvas.theme().inner, 1, false};
  scene.fill(bar.rect.corners(), color, outline);
  drawing.canvas.pattern(bar.rect.corners(), hue);
}

// What a box covers of the sheet: it moved from its front to its back in steps of half its width.
void addBox(std::vector<Rect>& obstacles, const Plot& plot, const Rect& front) {
  const double way = std::fabs(plot.depth.x) * (kBarLayer.z1 - kBarLayer.z0);
  const int steps = std::clamp(static_cast<int>(way / std::max(front.width / 2, 1.0)), 1, 12);
  for (int i = 0; i <= steps; ++i) {
    const double z = kBarLayer.z0 + (kBarLayer.z1 - kBarLayer.z0) * i / steps;
    const Point corner = plot.at(front.x, front.y, z);
    obstacles.push_back({corner.x, corner.y, front.width, front.height});
  }
}

// Beyond the end of its bar, seen from above (below) at the far edge.
LabelRequest labelBeyond(const Plot& plot, const Bar& bar, const Place& place) {
  const double part = place.covered ? 0.25 : place.covers ? 0.75 : 0.5;
  const double middle = bar.rect.x + part * bar.rect.width;
  LabelRequest label;
  const bool far = bar.negative ? plot.depth.y > 0 : seesTop(plot);
  const double z = plot.isFlat() ? 0 : far ? kBarLayer.z1 : kBarLayer.z0;
  label.side = bar.negative ? LabelSide::Below : LabelSide::Above;
  label.anchor = plot.at(middle, bar.negative ? bar.rect.bottom() : bar.rect.y, z);
  label.alike = true;
  return label;
}

// On the front of its bar: in the middle of a stack's part, else at the end of the bar.
LabelRequest labelInside(const Drawing& drawing, const Bar& bar, const Place& place,
                         double labelHeight, bool alike) {
  constexpr double kEdge = 4;  // of the bar that is seen beside the label
  const double width = bar.rect.width * (place.covered ? 0.5 : 1);
  const double middle = bar.rect.x + width / 2;
  const double fromEnd = kEdge + labelHeight / 2;
  double y = bar.rect.center().y;
  if (alike) y = bar.negative ? bar.rect.bottom() - fromEnd : bar.rect.y + fromEnd;
  LabelRequest label;
  label.side = LabelSide::Inside;
  label.anchor = drawing.plot.at(middle, y, drawing.plot.isFlat() ? 0 : kBarLayer.z0);
  label.room = {width - kEdge, bar.rect.height - (alike ? 2 * kEdge : 0)};
  label.alike = alike;
  return label;
}

void addLabel(Drawing& drawing, const Bar& bar, const Place& place, bool stacked) {
  const Plot& plot = drawing.plot;
  const double z = plot.isFlat() ? 0 : kBarLayer.z0;
  std::vector<Point> outline;
  for (const Point& corner : bar.rect.grown(stacked ? 0 : 1).corners())
    outline.push_back(plot.at(corner, z));
  drawing.mark(bar.series, bar.month, std::move(outline));
  if (plot.isFlat())
    drawing.obstacles.push_back(bar.rect);
  else
    addBox(drawing.obstacles, plot, bar.rect);
  const bool inside = stacked || drawing.labelsOnFront;
  if (inside && bar.rect.height == 0) return;
  const std::string text = drawing.labelText(bar.series, bar.month);
  const double height =
      drawing.canvas.boxOf(text, labelFont(drawing.options), drawing.options.labelRotation).height;
  LabelRequest label =
      inside ? labelInside(drawing, bar, place, height, !stacked) : labelBeyond(plot, bar, place);
  label.text = text;
  label.weight = bar.rect.height;
  label.series = static_cast<int>(bar.series);
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
        addLabel(drawing, bar, place, columns[c].series.size() > 1);
      }
    }
}

}  // namespace charts
