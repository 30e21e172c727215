#include <cmath>
#include <deque>

#include "charts/Depth.h"

namespace charts {
namespace {

constexpr double kTint = 0.42;  // share of the series' colour in a flat area that others may cover

// A vertical cut through a band, in front plane places; top is not below bottom.
struct Cut {
  double x = 0;
  double top = 0;
  double bottom = 0;
  double thickness() const { return bottom - top; }
};

// What lies between two lines: the values of a series above zero, or those below.
struct Band {
  std::size_t series = 0;
  bool negative = false;
  std::vector<std::vector<Cut>> runs;  // without gaps
};

Cut cutAt(const Drawing& drawing, std::size_t series, double x, double from, double to) {
  const bool second = drawing.model.series[series].secondAxis;
  const double a = drawing.plot.y(from, second), b = drawing.plot.y(to, second);
  return {x, std::min(a, b), std::max(a, b)};
}

// The values of a series against zero, with the places where they pass through zero.
Band plainBand(const Drawing& drawing, std::size_t series, bool negative) {
  Band band{series, negative, {}};
  const auto part = [negative](double value) {
    return negative ? std::min(value, 0.0) : std::max(value, 0.0);
  };
  std::optional<double> previous;
  for (std::size_t month = 0; month < kMonthCount; ++month) {
    const auto value = drawing.model.series[series].values[month];
    const double x = drawing.plot.slotCenter(month);
    if (value && !previous) band.runs.emplace_back();
    if (value && previous && (*value < 0) != (*previous < 0) && *value != 0 && *previous != 0) {
      const double back = *value / (*value - *previous) * drawing.plot.slotWidth();
      band.runs.back().push_back(cutAt(drawing, series, x - back, 0, 0));
    }
    if (value) band.runs.back().push_back(cutAt(drawing, series, x, 0, part(*value)));
    previous = value;
  }
  return band;
}

Band stackedBand(const Drawing& drawing, const StackedSpans& spans, std::size_t series,
                 bool negative) {
  Band band{series, negative, {{}}};
  // Where the month's value has the other sign the band is nothing, at the edge of its stack.
  for (std::size_t month = 0; month < kMonthCount; ++month) {
    double from = 0;
    for (std::size_t s = 0; s < series; ++s)
      if (drawing.model.series[s].stack == drawing.model.series[series].stack &&
          (spans[s][month].to < spans[s][month].from) == negative)
        from = spans[s][month].to;
    const Span span = spans[series][month];
    const bool here = (span.to < span.from) == negative;
    band.runs[0].push_back(
        cutAt(drawing, series, drawing.plot.slotCenter(month), from, here ? span.to : from));
  }
  return band;
}

bool isNothing(const Band& band) {
  for (const auto& run : band.runs)
    for (const Cut& cut : run)
      if (cut.thickness() > 0) return false;
  return true;
}

// Bands that share a layer, from the lowest to the highest.
std::vector<Band> bandsOf(const Drawing& drawing, const std::vector<std::size_t>& members,
                          bool stacked) {
  const StackedSpans spans = stackedSpans(drawing.model);
  std::vector<Band> bands;
  const auto add = [&](std::size_t series, bool negative) {
    Band band = stacked ? stackedBand(drawing, spans, series, negative)
                        : plainBand(drawing, series, negative);
    if (!negative || !isNothing(band)) bands.push_back(std::move(band));
  };
  for (std::size_t i = members.size(); i-- > 0;) add(members[i], true);
  for (const std::size_t series : members) add(series, false);
  return bands;
}

std::vector<std::vector<std::size_t>> layersOf(const Drawing& drawing, bool stacked) {
  std::vector<std::vector<std::size_t>> layers;
  const auto& series = drawing.model.series;
  if (!stacked) {
    for (std::size_t s = 0; s < series.size(); ++s) layers.push_back({s});
    return layers;
  }
  for (const int stack : stacksOf(drawing.model)) {
    layers.emplace_back();
    for (std::size_t s = 0; s < series.size(); ++s)
      if (series[s].stack == stack) layers.back().push_back(s);
  }
  return layers;
}

std::vector<Point> edgeOf(const std::vector<Cut>& run, bool top) {
  std::vector<Point> edge;
  edge.reserve(run.size());
  for (const Cut& cut : run) edge.push_back({cut.x, top ? cut.top : cut.bottom});
  return edge;
}

std::vector<Point> outlineOf(const std::vector<Cut>& run) {
  std::vector<Point> outline = edgeOf(run, true);
  const std::vector<Point> bottom = edgeOf(run, false);
  outline.insert(outline.end(), bottom.rbegin(), bottom.rend());
  return outline;
}

void addFlatBands(Drawing& drawing, const std::vector<Band>& bands, bool solid) {
  Scene& scene = drawing.canvas.scene();
  const Color inner = drawing.canvas.theme().inner;
  for (const Band& band : bands)
    for (const auto& run : band.runs) {
      const std::vector<Point> outline = outlineOf(run);
      const Color color = drawing.color(band.series);
      scene.fill(outline, solid ? color : mix(inner, color, kTint),
                 solid ? std::optional(Stroke{inner, 1, false}) : std::nullopt);
      if (solid) drawing.canvas.pattern(outline, drawing.model.series[band.series].hue);
    }
}

void addFlatEdges(Drawing& drawing, const std::vector<Band>& bands) {
  for (const Band& band : bands)
    for (const auto& run : band.runs)
      if (run.size() > 1)
        drawing.canvas.scene().line(edgeOf(run, !band.negative), drawing.lineOf(band.series));
}

// The part of a solid between two cuts.
struct Prism {
  const Band* band = nullptr;
  Cut a;
  Cut b;
  bool first = false;
  bool last = false;
};

double facing(const Plot& plot, const Cut& a, const Cut& b) {
  return (b.top - a.top) * plot.depth.x - (b.x - a.x) * plot.depth.y;
}

// All faces but the front, which nothing of its own layer can hide.
void addPrism(const Drawing& drawing, const Prism& prism, Layer layer) {
  Scene& scene = drawing.canvas.scene();
  const Plot& plot = drawing.plot;
  const Color color = drawing.color(prism.band->series);
  const Cut &a = prism.a, &b = prism.b;
  const double bottomFacing = (b.bottom - a.bottom) * plot.depth.x - (b.x - a.x) * plot.depth.y;
  if (facing(plot, a, b) > 0) addRibbon(scene, plot, {a.x, a.top}, {b.x, b.top}, layer, color);
  if (bottomFacing < 0) addRibbon(scene, plot, {a.x, a.bottom}, {b.x, b.bottom}, layer, color);
  if (prism.last && seesRight(plot)) addEnd(scene, plot, b.x, b.top, b.bottom, layer, color);
  if (prism.first && !seesRight(plot)) addEnd(scene, plot, a.x, a.top, a.bottom, layer, color);
}

// The prisms between the same two months, so that what hides comes after what is hidden: of two
// that meet, the upper one hides the lower where the top of the lower is seen.
void addColumn(const Drawing& drawing, const std::vector<Prism>& column, Layer layer) {
  std::deque<const Prism*> order;
  for (std::size_t i = 0; i < column.size(); ++i) {
    const bool upperHides = i == 0 || facing(drawing.plot, column[i - 1].a, column[i - 1].b) >= 0;
    if (upperHides)
      order.push_back(&column[i]);
    else
      order.push_front(&column[i]);
  }
  for (const Prism* prism : order) addPrism(drawing, *prism, layer);
}

void addFronts(Drawing& drawing, const std::vector<Band>& bands, double z) {
  for (const Band& band : bands)
    for (const auto& run : band.runs) {
      std::vector<Point> front = outlineOf(run);
      addFront(drawing.canvas.scene(), drawing.plot, front, z, drawing.color(band.series));
      for (Point& point : front) point = drawing.plot.at(point, z);
      drawing.canvas.pattern(front, drawing.model.series[band.series].hue);
    }
}

// All bands of a layer have the same runs and cuts.
void addDeepBands(Drawing& drawing, const std::vector<Band>& bands, Layer layer) {
  if (bands.empty()) return;
  const std::size_t runCount = bands.front().runs.size();
  for (const std::size_t r : drawingOrder(drawing.plot, runCount)) {
    const std::size_t cuts = bands.front().runs[r].size();
    for (const std::size_t i : drawingOrder(drawing.plot, std::max<std::size_t>(cuts, 1) - 1)) {
      std::vector<Prism> column;
      column.reserve(bands.size());
      for (const Band& band : bands)
        column.push_back({&band, band.runs[r][i], band.runs[r][i + 1], i == 0, i + 2 == cuts});
      addColumn(drawing, column, layer);
    }
  }
  addFronts(drawing, bands, layer.z0);
}

// The front edges of all layers but the first, which nothing covers; the layers from the last to
// the first.
void addHiddenEdges(Drawing& drawing, const std::vector<std::vector<Band>>& layers) {
  for (std::size_t i = 0; i + 1 < layers.size(); ++i) {
    const double z = layerOf(layers.size() - 1 - i, layers.size()).z0;
    for (const Band& band : layers[i])
      for (const auto& run : band.runs) {
        std::vector<Point> edge = edgeOf(run, !band.negative);
        for (Point& point : edge) point = drawing.plot.at(point, z);
        if (edge.size() > 1)
          drawing.canvas.scene().line(std::move(edge), drawing.lineOf(band.series));
      }
  }
}

// What a layer covers of those behind it needs no label.
void dropHiddenLabels(Drawing& drawing, const std::vector<Band>& bands, double z) {
  for (const Band& band : bands)
    for (const auto& run : band.runs) {
      std::vector<Point> seen = outlineOf(run);
      for (Point& point : seen) point = drawing.plot.at(point, z);
      std::erase_if(drawing.labels,
                    [&seen](const LabelRequest& label) { return isInside(seen, label.anchor); });
    }
}

void addMark(Drawing& drawing, std::size_t series, std::size_t month, Span span, Layer layer,
             bool stacked) {
  const Plot& plot = drawing.plot;
  const double z = plot.isFlat() ? 0 : layer.z0;
  const Cut cut = cutAt(drawing, series, plot.slotCenter(month), span.from, span.to);
  const double half = plot.slotWidth() / 2;
  const Rect rect{cut.x - half, cut.top, 2 * half, std::max(cut.thickness(), 2.0)};
  std::vector<Point> outline;
  for (const Point& corner : rect.corners()) outline.push_back(plot.at(corner, z));
  drawing.mark(series, month, std::move(outline));
  const bool negative = span.to < span.from;
  LabelRequest label;
  label.text = drawing.labelText(series, month);
  label.weight = cut.thickness();
  // A little wider than its month is still plain to see whose it is.
  label.room = {2 * half * 1.4, cut.thickness()};
  label.side = stacked ? LabelSide::Inside : negative ? LabelSide::Below : LabelSide::Above;
  const double y = stacked ? (cut.top + cut.bottom) / 2 : negative ? cut.bottom : cut.top;
  label.anchor = plot.at(cut.x, y, z);
  if (label.side == LabelSide::Above && seesTop(plot))
    label.preferred = plot.at(cut.x, y, layer.z1);
  drawing.labels.push_back(std::move(label));
}

}  // namespace

void layoutAreas(Drawing& drawing) {
  const bool stacked = drawing.options.type == ChartType::StackedArea;
  const auto layers = layersOf(drawing, stacked);
  // Where there is one stack nothing lies behind it. What others may cover is tinted, and all edges
  // are drawn over it as lines.
  const bool solid = stacked && layers.size() == 1;
  const StackedSpans spans = stackedSpans(drawing.model);
  std::vector<std::vector<Band>> flat;
  for (std::size_t l = layers.size(); l-- > 0;) {
    std::vector<Band> bands = bandsOf(drawing, layers[l], stacked);
    const Layer layer = layerOf(l, layers.size());
    if (drawing.plot.isFlat())
      addFlatBands(drawing, bands, solid);
    else
      addDeepBands(drawing, bands, layer);
    if (solid || !drawing.plot.isFlat())
      dropHiddenLabels(drawing, bands, drawing.plot.isFlat() ? 0 : layer.z0);
    for (const std::size_t s : layers[l])
      for (std::size_t month = 0; month < kMonthCount; ++month)
        if (const auto value = drawing.model.series[s].values[month])
          addMark(drawing, s, month, stacked ? spans[s][month] : Span{0, *value}, layer,
                  stacked && layers[l].size() > 1);
    flat.push_back(std::move(bands));
  }
  if (!drawing.plot.isFlat()) {
    addHiddenEdges(drawing, flat);
    return;
  }
  if (solid) return;
  for (const auto& bands : flat) {
    addFlatEdges(drawing, bands);
    if (!stacked) addCoveredLine(drawing, bands.front().series);
  }
}

}  // namespace charts
