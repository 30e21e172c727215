#include "charts/ChartLayout.h"

#include <cmath>

#include "charts/Depth.h"

namespace charts {
namespace {

constexpr Font kTitleFont{20, true};
constexpr Font kCaptionFont{13, false};
constexpr Font kAxisFont{12, false};
constexpr Font kLegendFont{13, false};
constexpr double kSwatch = 12;
constexpr double kSwatchGap = 7;
constexpr double kEntryGap = 20;
constexpr double kTickGap = 8;          // between axis and numbers
constexpr double kIntervalPixels = 30;  // wanted height of an interval

double marginOf(Size size) {
  return std::clamp(std::min(size.width, size.height) * 0.045, 6.0, 26.0);
}

bool isStacked(ChartType type) {
  return type == ChartType::StackedBar || type == ChartType::StackedArea;
}

std::string legendText(const ChartModel& model, const Series& series) {
  return model.secondUnit.empty() ? series.name : series.name + " (" + series.unit + ")";
}

struct LegendEntry {
  std::string text;
  Font font;
  Hue hue = Hue::Electricity;
  double width = 0;
};

std::vector<LegendEntry> legendOf(const Canvas& canvas, const ChartModel& model, double room) {
  std::vector<LegendEntry> entries;
  for (const Series& series : model.series) {
    Font font = kLegendFont;
    const std::string text =
        canvas.fit(legendText(model, series), font, room - kSwatch - kSwatchGap);
    entries.push_back(
        {text, font, series.hue, kSwatch + kSwatchGap + canvas.measure(text, font).width});
  }
  return entries;
}

double rowWidth(const std::vector<LegendEntry>& entries) {
  double width = 0;
  for (const LegendEntry& entry : entries) width += entry.width + (width > 0 ? kEntryGap : 0);
  return width;
}

void addEntry(Canvas& canvas, Point place, const LegendEntry& entry) {
  const auto swatch = Rect{place.x, place.y - kSwatch / 2, kSwatch, kSwatch}.corners();
  canvas.scene().fill(swatch, canvas.theme().color(entry.hue));
  canvas.pattern(swatch, entry.hue);
  canvas.textFrom({place.x + kSwatch + kSwatchGap, place.y}, entry.text, entry.font,
                  canvas.theme().text);
}

// Legend entries in rows from x on; returns the y below them.
double addLegendRows(Canvas& canvas, const std::vector<LegendEntry>& entries, double x, double y,
                     double width) {
  double at = x;
  for (const LegendEntry& entry : entries) {
    if (at > x && at + entry.width > x + width) {
      at = x;
      y += 20;
    }
    addEntry(canvas, {at, y + 10}, entry);
    at += entry.width + kEntryGap;
  }
  return y + 20;
}

// Title, caption and legend; returns what is left below them.
Rect addHeader(Canvas& canvas, const ChartModel& model, const ChartOptions& options, Rect sheet) {
  double y = sheet.y;
  const auto entries = options.legend && options.type != ChartType::Pie
                           ? legendOf(canvas, model, sheet.width)
                           : std::vector<LegendEntry>();
  const double legendWidth = rowWidth(entries);
  const bool beside =
      canvas.measure(model.title, kTitleFont).width + legendWidth + 48 < sheet.width;
  Font titleFont = kTitleFont;
  if (const std::string title = canvas.fit(model.title, titleFont, sheet.width); !title.empty()) {
    canvas.textFrom({sheet.x, y + 12}, title, titleFont, canvas.theme().text);
    y += 28;
  }
  if (!entries.empty() && beside)
    addLegendRows(canvas, entries, sheet.right() - legendWidth, sheet.y + 2, legendWidth + 1);
  Font captionFont = kCaptionFont;
  if (const std::string text = canvas.fit(model.caption, captionFont, sheet.width); !text.empty()) {
    canvas.textFrom({sheet.x, y + 8}, text, captionFont, canvas.theme().quietText);
    y += 20;
  }
  if (!entries.empty() && !beside) y = addLegendRows(canvas, entries, sheet.x, y + 4, sheet.width);
  y += 8;
  return {sheet.x, y, sheet.width, std::max(sheet.bottom() - y, 1.0)};
}

struct Range {
  double low = 0;
  double high = 0;
  void take(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
};

Range rangeOf(const ChartModel& model, bool stacked, bool second) {
  Range range;
  const StackedSpans spans = stackedSpans(model);
  for (std::size_t s = 0; s < model.series.size(); ++s) {
    if (model.series[s].secondAxis != second) continue;
    for (std::size_t month = 0; month < kMonthCount; ++month)
      range.take(stacked ? spans[s][month].to : model.series[s].values[month].value_or(0));
  }
  return range;
}

void makeAxes(Plot& plot, const ChartModel& model, bool stacked, double height) {
  const int intervals = std::clamp(static_cast<int>(height / kIntervalPixels), 2, 10);
  Range first = rangeOf(model, stacked, false);
  if (model.secondUnit.empty()) {
    const bool whole = model.unit == "%" && first.high > 99.9 && first.high < 100.1;
    plot.axis = whole ? makePercentAxis(first.low < 0) : makeAxis(first.low, first.high, intervals);
    return;
  }
  // Both scales share their zero: the first reaches as far below it as the second needs.
  const Range second = rangeOf(model, stacked, true);
  if (first.high <= 0 && second.high > 0) first.high = first.low < 0 ? -first.low : 1;
  if (second.low < 0 && second.high > 0)
    first.low = std::min(first.low, first.high * std::max(second.low / second.high, -1.0));
  else if (second.low < 0)
    first.low = std::min(first.low, -std::max(first.high, 1.0));
  plot.axis = makeAxis(first.low, first.high, intervals);
  plot.second = makeAlignedAxis(plot.axis, second.low, second.high);
}

double widestLabel(const Canvas& canvas, const Axis& axis) {
  double width = 0;
  for (const double tick : axis.ticks())
    width = std::max(width, canvas.measure(axis.label(tick), kAxisFont).width);
  return width;
}

std::string unitText(const Axis& axis, const std::string& unit) {
  return axis.scaleName.empty() ? unit : axis.scaleName + " " + unit;
}

// How month names stand below the plot.
struct MonthNames {
  int rotation = 0;
  std::size_t every = 1;
  double height = 0;
  double below = 0;  // the plot, for labels of negative values
};

MonthNames monthNames(const Canvas& canvas, const ChartModel& model, double slotWidth) {
  Size largest;
  for (const std::string& label : model.labels) {
    const Size size = canvas.boxOf(label, kAxisFont, 0);
    largest = {std::max(largest.width, size.width), std::max(largest.height, size.height)};
  }
  if (largest.width + 4 <= slotWidth) return {0, 1, largest.height};
  MonthNames names{90, 1, largest.width};
  while (largest.height > slotWidth * static_cast<double>(names.every) && names.every < 12)
    ++names.every;
  return names;
}

// Height of the tallest value label with its distance; 0 where none stands above its mark.
double labelHeight(const Drawing& drawing) {
  const auto& series = drawing.model.series;
  if (!drawing.options.labels || drawing.labelsOnFront) return 0;
  if (isStacked(drawing.options.type) && series.size() > 1) return 0;
  double tallest = 0;
  for (std::size_t s = 0; s < series.size(); ++s)
    for (std::size_t month = 0; month < kMonthCount; ++month)
      if (series[s].values[month])
        tallest =
            std::max(tallest, drawing.canvas
                                  .boxOf(drawing.labelText(s, month), labelFont(drawing.options),
                                         drawing.options.labelRotation)
                                  .height);
  return tallest + drawing.options.labelDistance;
}

// What the scale leaves free above the highest mark and below the lowest negative one, as shares
// of the plot.
struct Spare {
  double above = 1;
  double below = 1;
};

Spare spareOf(const Plot& plot, const ChartModel& model) {
  Spare spare;
  for (const Series& series : model.series)
    for (const auto& value : series.values) {
      if (!value) continue;
      const double share =
          (series.secondAxis && plot.second ? *plot.second : plot.axis).share(*value);
      spare.above = std::min(spare.above, std::max(1 - share, 0.0));
      if (*value < 0) spare.below = std::min(spare.below, std::max(share, 0.0));
    }
  return spare;
}

// Front plane and depth within the room that is left for both.
void placePlot(Plot& plot, const ChartOptions& options, Rect room) {
  room.width = std::max(room.width, 12.0);
  room.height = std::max(room.height, 4.0);
  if (options.threeD) plot.depth = depthOf(options.view, {room.width, room.height});
  plot.front = room;
  plot.front.width = std::max(room.width - std::fabs(plot.depth.x), 12.0);
  plot.front.height = std::max(room.height - std::fabs(plot.depth.y), 4.0);
  if (plot.depth.x < 0) plot.front.x -= plot.depth.x;
  if (plot.depth.y < 0) plot.front.y -= plot.depth.y;
}

double sharp(double coordinate) {
  return std::floor(coordinate) + 0.5;
}

void addWalls(Canvas& canvas, const Plot& plot) {
  Scene& scene = canvas.scene();
  const Color inner = canvas.theme().inner;
  const Rect& f = plot.front;
  const auto wall = [&](std::vector<Point> points, double darker) {
    const Color color = shade(inner, -darker);
    scene.fill(std::move(points), color, Stroke{color, 0.6, false});
  };
  if (plot.isFlat()) {
    scene.fill(f.corners(), inner);
    return;
  }
  wall({plot.at(f.x, f.y, 1), plot.at(f.right(), f.y, 1), plot.at(f.right(), f.bottom(), 1),
        plot.at(f.x, f.bottom(), 1)},
       0);
  if (plot.depth.x != 0) {
    const double x = plot.depth.x > 0 ? f.x : f.right();
    wall({plot.at(x, f.y, 0), plot.at(x, f.y, 1), plot.at(x, f.bottom(), 1),
          plot.at(x, f.bottom(), 0)},
         0.06);
  }
  if (plot.depth.y != 0) {
    const double y = plot.depth.y < 0 ? f.bottom() : f.y;
    wall({plot.at(f.x, y, 0), plot.at(f.x, y, 1), plot.at(f.right(), y, 1),
          plot.at(f.right(), y, 0)},
         0.11);
  }
}

void addGrid(Canvas& canvas, const Plot& plot) {
  const Rect& f = plot.front;
  for (const double tick : plot.axis.ticks()) {
    const bool zero = tick == 0;
    const double y = plot.y(tick, false);
    const Stroke stroke{zero ? canvas.theme().axis : canvas.theme().grid, zero ? 1.4 : 1, false};
    if (plot.isFlat()) {
      canvas.scene().line({{f.x, sharp(y)}, {f.right(), sharp(y)}}, stroke);
      continue;
    }
    std::vector<Point> points = {plot.at(f.x, y, 1), plot.at(f.right(), y, 1)};
    if (plot.depth.x > 0) points.insert(points.begin(), plot.at(f.x, y, 0));
    if (plot.depth.x < 0) points.push_back(plot.at(f.right(), y, 0));
    canvas.scene().line(std::move(points), stroke);
  }
}

void addZeroLine(Canvas& canvas, const Plot& plot) {
  const double y = sharp(plot.y(0, false));
  canvas.scene().line({{plot.front.x, y}, {plot.front.right(), y}},
                      Stroke{canvas.theme().axis, 1.4, false});
}

// The ticks that get a number: all, or every second, third ... from zero on where they lie closer
// than the numbers are high.
std::vector<double> numberedTicks(const Canvas& canvas, const Plot& plot, const Axis& axis) {
  const double spacing = plot.front.height / axis.intervals();
  const double height = canvas.measure("0", kAxisFont).height();
  const auto every = std::max(1L, std::lround(std::ceil(height / spacing)));
  std::vector<double> ticks = axis.ticks();
  std::erase_if(ticks, [&](double tick) { return std::lround(tick / axis.step) % every != 0; });
  return ticks;
}

void addAxisNumbers(Canvas& canvas, const Plot& plot, const ChartModel& model) {
  const Rect& f = plot.front;
  const Color color = canvas.theme().quietText;
  const double leftZ = plot.depth.x < 0 ? 1 : 0, rightZ = plot.depth.x > 0 ? 1 : 0;
  const Point toLeft{-kTickGap, 0}, toRight{kTickGap, 0};
  for (const double tick : numberedTicks(canvas, plot, plot.axis))
    canvas.textUpTo(plot.at(f.x, plot.y(tick, false), leftZ) + toLeft, plot.axis.label(tick),
                    kAxisFont, color);
  // The unit stands above the highest number and may reach over the plot.
  const std::string unit = unitText(plot.axis, model.unit);
  const Point top = plot.at(f.x, f.y, leftZ) + Point{-kTickGap, -18};
  const double shift =
      std::max(0.0, canvas.measure(unit, kAxisFont).width - widestLabel(canvas, plot.axis));
  canvas.textUpTo(top + Point{shift, 0}, unit, kAxisFont, color);
  if (!plot.second) return;
  for (const double tick : numberedTicks(canvas, plot, *plot.second))
    canvas.textFrom(plot.at(f.right(), plot.y(tick, true), rightZ) + toRight,
                    plot.second->label(tick), kAxisFont, color);
  const std::string secondUnit = unitText(*plot.second, model.secondUnit);
  const double back = std::max(
      0.0, canvas.measure(secondUnit, kAxisFont).width - widestLabel(canvas, *plot.second));
  canvas.textFrom(plot.at(f.right(), f.y, rightZ) + Point{kTickGap - back, -18}, secondUnit,
                  kAxisFont, color);
}

// Below the lowest edge of the plot: from below that is the far one.
void addMonths(Canvas& canvas, const Plot& plot, const ChartModel& model, const MonthNames& names) {
  const double aside = plot.depth.y > 0 ? plot.depth.x : 0;
  const double bottom = plot.front.bottom() + std::max(plot.depth.y, 0.0) + names.below;
  for (std::size_t month = 0; month < kMonthCount; month += names.every)
    canvas.textAround({plot.slotCenter(month) + aside, bottom + 6 + names.height / 2},
                      model.labels[month], kAxisFont, canvas.theme().quietText, names.rotation);
  if (model.axisTitle.empty()) return;
  Font font = kCaptionFont;
  const std::string title = canvas.fit(model.axisTitle, font, plot.front.width);
  canvas.textAround({plot.front.center().x, bottom + 16 + names.height + 6}, title, font,
                    canvas.theme().quietText);
}

// Returns how many labels found no room.
std::size_t drawOnAxes(Canvas& canvas, Rect room, const ChartModel& model,
                       const ChartOptions& options, bool labelsOnFront,
                       const std::vector<int>& order) {
  Plot plot;
  Drawing drawing{canvas, plot, model, options, order, {}, {}, labelsOnFront};
  const Rect whole = room;
  const double titleHeight = model.axisTitle.empty() ? 0 : 24;
  const double unitHeight = std::min(26.0, room.height * 0.2);
  room.y += unitHeight;
  room.height -= 22 + titleHeight + unitHeight;
  makeAxes(plot, model, isStacked(options.type), room.height);
  const Spare spare = spareOf(plot, model);
  const auto lacking = [&](double share, double besides) {
    return std::clamp(labelHeight(drawing) - besides - share * room.height, 0.0,
                      std::max(room.height * 0.4, 0.0));
  };
  const double above = lacking(spare.above, unitHeight), below = lacking(spare.below, 0);
  room.y += above;
  room.height -= above + below;
  const double left = widestLabel(canvas, plot.axis) + kTickGap;
  const double right = plot.second ? widestLabel(canvas, *plot.second) + kTickGap : 0;
  room.x += left;
  room.width -= left + right;
  MonthNames names = monthNames(canvas, model, std::max(room.width, 12.0) / kMonthCount);
  names.below = below;
  room.height -= std::max(0.0, names.height - 14);
  placePlot(plot, options, room);
  addWalls(canvas, plot);
  addGrid(canvas, plot);
  addAxisNumbers(canvas, plot, model);
  addMonths(canvas, plot, model, names);
  if (options.type == ChartType::Line)
    layoutLines(drawing);
  else if (options.type == ChartType::Bar || options.type == ChartType::StackedBar)
    layoutBars(drawing);
  else
    layoutAreas(drawing);
  // Areas and bars that meet at zero cover the line there.
  if (plot.isFlat() && isStacked(options.type)) addZeroLine(canvas, plot);
  if (!options.labels) return 0;
  const double bottom = plot.front.bottom() + std::max(plot.depth.y, 0.0) + below;
  return placeLabels(canvas, {whole.x, whole.y, whole.width, bottom - whole.y}, drawing.labels,
                     drawing.obstacles, options);
}

struct LabelAttempt {
  ChartOptions options;
  bool onFront = false;
};

// Ways to write the labels of bars, the best first: as wanted, turned, on the bars where they have
// a front, and all of that small.
std::vector<LabelAttempt> labelAttempts(const ChartOptions& options) {
  constexpr double kSmall = 7;
  std::vector<LabelAttempt> attempts = {{options}};
  const bool bars = options.type == ChartType::Bar || options.type == ChartType::StackedBar;
  if (!bars || !options.labels) return attempts;
  const bool fronts = options.threeD && options.type == ChartType::Bar;
  ChartOptions turned = options;
  if (options.labelRotation == 0) turned.labelRotation = 90;
  attempts.push_back({turned});
  if (fronts) attempts.push_back({options, true});
  if (fronts) attempts.push_back({turned, true});
  turned.labelSize = std::min(turned.labelSize, kSmall);
  attempts.push_back({turned});
  if (fronts) attempts.push_back({turned, true});
  return attempts;
}

// The first way in which no label is left out, else the one that leaves out the fewest.
void layoutOnAxes(Canvas& canvas, const Rect& room, const ChartModel& model,
                  const ChartOptions& options, const std::vector<int>& order) {
  const Scene header = canvas.scene();
  std::optional<std::size_t> fewest;
  Scene best;
  for (const LabelAttempt& attempt : labelAttempts(options)) {
    canvas.scene() = header;
    const std::size_t missing =
        drawOnAxes(canvas, room, model, attempt.options, attempt.onFront, order);
    if (fewest && missing >= *fewest) continue;
    fewest = missing;
    best = std::move(canvas.scene());
    if (missing == 0) break;
  }
  canvas.scene() = std::move(best);
}

}  // namespace

Scene layoutChart(const ChartModel& model, const ChartOptions& options, const Theme& theme,
                  Size size, const TextMeasure& measure) {
  Theme colors = options.outer ? theme.withOuter(*options.outer) : theme;
  if (options.inner) colors = colors.withInner(*options.inner);
  Scene scene;
  scene.width = size.width;
  scene.height = size.height;
  scene.background = colors.outer;
  Canvas canvas(scene, colors, measure, options.leastSize * 96 / 72);
  ChartModel shown = model;
  std::vector<int> order(model.series.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = static_cast<int>(i);
  if (options.reverse) {
    std::reverse(shown.series.begin(), shown.series.end());
    std::reverse(order.begin(), order.end());
  }
  const double margin = marginOf(size);
  const Rect sheet{margin, margin, std::max(size.width - 2 * margin, 1.0),
                   std::max(size.height - 2 * margin, 1.0)};
  const Rect room = addHeader(canvas, shown, options, sheet);
  if (shown.series.empty()) return scene;
  if (options.type == ChartType::Pie) {
    layoutPies(canvas, room, shown, options, order);
    return scene;
  }
  if (options.percent) shown = inPercent(shown, isStacked(options.type));
  layoutOnAxes(canvas, room, shown, options, order);
  return scene;
}

}  // namespace charts
