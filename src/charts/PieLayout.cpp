#include <cmath>
#include <numbers>

#include "base/GermanDate.h"
#include "base/GermanNumber.h"
#include "charts/Plot.h"

namespace charts {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kArcStep = kPi / 60;
constexpr double kShadeStep = kPi / 24;
constexpr double kLeader = 16;   // from the rim to a label, sideways
constexpr double kClear = 1.05;  // of the radius that labels keep away
constexpr double kMinRadius = 12;
constexpr double kNameHeight = 26;  // below a pie
constexpr double kLeftOutHeight = 18;
constexpr double kLeastForLeftOut = 110;  // height of a pie with its name
constexpr double kLabelPadding = 2;

// A disc that is tilted back: an ellipse with a rim below (or, seen from below, above) it.
struct Disc {
  Point center;
  double radius = 0;
  double squash = 1;     // height of the ellipse by its width
  double thickness = 0;  // of the rim, downwards; negative upwards
  double turn = 0;       // radians, clockwise

  // Angle clockwise from the top, on a circle around the disc's rim.
  Point at(double angle, double radiusFactor = 1) const {
    const double r = radius * radiusFactor;
    return {center.x + r * std::sin(angle + turn), center.y - r * squash * std::cos(angle + turn)};
  }
};

struct Slice {
  std::size_t month = 0;
  double from = 0;
  double to = 0;
  double value = 0;
  double share = 0;  // of what the pie shows
  Color color;
  double middle() const { return (from + to) / 2; }
};

struct SliceLabel {
  std::size_t slice = 0;
  std::string text;
  Size size;
  bool right = true;
  double y = 0;  // middle
};

Color monthColor(const Theme& theme, const ChartModel& model, std::size_t month) {
  const int number = base::monthNumber(model.months[month]);
  return theme.months[number > 0 ? static_cast<std::size_t>(number - 1) : month];
}

std::vector<Slice> slicesOf(const Theme& theme, const ChartModel& model, const Series& series) {
  double sum = 0;
  for (const auto& value : series.values) sum += std::max(value.value_or(0), 0.0);
  std::vector<Slice> slices;
  if (!(sum > 0) || !std::isfinite(sum)) return slices;
  double angle = 0;
  for (std::size_t month = 0; month < kMonthCount; ++month) {
    const double value = std::max(series.values[month].value_or(0), 0.0);
    if (value <= 0) continue;
    const double next = angle + value / sum * 2 * kPi;
    slices.push_back({month, angle, next, value, value / sum, monthColor(theme, model, month)});
    angle = next;
  }
  return slices;
}

std::vector<Point> arc(const Disc& disc, double from, double to) {
  const int steps = std::max(1, static_cast<int>(std::ceil((to - from) / kArcStep)));
  std::vector<Point> points;
  for (int i = 0; i <= steps; ++i) points.push_back(disc.at(from + (to - from) * i / steps));
  return points;
}

// The parts of a slice's rim that are seen, as angles: what lies on the near half of the disc.
std::vector<std::pair<double, double>> seenRim(const Disc& disc, const Slice& slice) {
  std::vector<std::pair<double, double>> parts;
  const double nearest = disc.thickness > 0 ? kPi : 0;  // the angle that faces the reader
  for (int lap = -1; lap <= 2; ++lap) {
    const double middle = nearest - disc.turn + lap * 2 * kPi;
    const double from = std::max(slice.from, middle - kPi / 2);
    const double to = std::min(slice.to, middle + kPi / 2);
    if (from < to) parts.emplace_back(from, to);
  }
  return parts;
}

// The seen half of the rim, in strips that darken away from the light. Each slice has a ground in
// its own shade first, so that no seam shows between the strips.
void addRim(Scene& scene, const Disc& disc, const std::vector<Slice>& slices) {
  if (disc.thickness == 0) return;
  const Point down{0, disc.thickness};
  const auto shadeAt = [&disc](const Slice& slice, double angle) {
    return shade(slice.color, -0.24 - 0.14 * std::sin(angle + disc.turn));
  };
  for (const Slice& slice : slices)
    for (const auto& [from, to] : seenRim(disc, slice)) {
      // It reaches under the face, which leaves no seam there either.
      constexpr double kUnderFace = 0.95;
      std::vector<Point> ground = {disc.at(from)};
      for (const Point& point : arc(disc, from, to)) ground.push_back(point + down);
      ground.push_back(disc.at(to));
      const int inner = std::max(1, static_cast<int>((to - from) / kShadeStep));
      for (int i = inner; i >= 0; --i)
        ground.push_back(disc.at(from + (to - from) * i / inner, kUnderFace));
      scene.fill(std::move(ground), shadeAt(slice, (from + to) / 2));
      const int steps = std::max(1, static_cast<int>(std::ceil((to - from) / kShadeStep)));
      for (int i = 0; steps > 1 && i < steps; ++i) {
        const double a = from + (to - from) * i / steps, b = from + (to - from) * (i + 1) / steps;
        scene.fill({disc.at(a), disc.at(b), disc.at(b) + down, disc.at(a) + down},
                   shadeAt(slice, (a + b) / 2));
      }
    }
}

void addFaces(Canvas& canvas, const Disc& disc, const std::vector<Slice>& slices, int series) {
  for (const Slice& slice : slices) {
    std::vector<Point> outline = arc(disc, slice.from, slice.to);
    if (slices.size() > 1) outline.push_back(disc.center);
    canvas.scene().marks.push_back({outline, series, static_cast<int>(slice.month)});
    canvas.scene().fill(std::move(outline), slice.color);
  }
  if (slices.size() == 1) return;
  for (const Slice& slice : slices)
    canvas.scene().line({disc.center, disc.at(slice.from)}, Stroke{canvas.theme().outer, 1, false});
}

std::string sliceText(const ChartModel& model, const Slice& slice, const ChartOptions& options) {
  const std::string& month = model.labels[slice.month];
  if (!options.labels) return month;
  return month + "  " +
         (options.percent ? base::formatNumber(100 * slice.share, 1) + " %"
                          : valueText(slice.value));
}

// Moves labels of one side apart, keeping their order and staying within top and bottom.
void spread(std::vector<SliceLabel*>& labels, double top, double bottom) {
  std::sort(labels.begin(), labels.end(),
            [](const SliceLabel* a, const SliceLabel* b) { return a->y < b->y; });
  double limit = top;
  for (SliceLabel* label : labels) {
    label->y = std::max(label->y, limit + label->size.height / 2);
    limit = label->y + label->size.height / 2 + 2;
  }
  limit = bottom;
  for (auto it = labels.rbegin(); it != labels.rend(); ++it) {
    (*it)->y = std::min((*it)->y, limit - (*it)->size.height / 2);
    limit = (*it)->y - (*it)->size.height / 2 - 2;
  }
}

// Half the width that the disc and its rim take at the height of a label.
double halfWidthAt(const Disc& disc, const SliceLabel& label) {
  const double half = disc.radius * disc.squash;
  const double top = disc.center.y + std::min(disc.thickness, 0.0);
  const double bottom = disc.center.y + std::max(disc.thickness, 0.0);
  const double beyond = std::max({top - label.y, label.y - bottom, 0.0}) - label.size.height / 2;
  const double share = std::clamp(beyond / (half * kClear), 0.0, 1.0);
  return disc.radius * kClear * std::sqrt(1 - share * share);
}

Font sliceFont(const ChartOptions& options) {
  return options.labels ? labelFont(options) : Font{12, false};
}

std::vector<SliceLabel> labelsOf(const Canvas& canvas, const ChartModel& model,
                                 const std::vector<Slice>& slices, const ChartOptions& options) {
  std::vector<SliceLabel> labels;
  for (std::size_t i = 0; i < slices.size(); ++i) {
    SliceLabel label{i, sliceText(model, slices[i], options), {}, true, 0};
    const Size size = canvas.boxOf(label.text, sliceFont(options), 0);
    label.size = {size.width + 2 * kLabelPadding, size.height};
    labels.push_back(std::move(label));
  }
  return labels;
}

// The largest disc that leaves room for its labels on both sides.
Disc discIn(const Rect& room, double labelWidth, const ChartOptions& options) {
  Disc disc;
  double rim = 0;
  if (options.threeD) {
    const double elevation = options.view.elevation * kPi / 180;
    disc.squash = std::cos(elevation);
    disc.turn = options.view.rotation * kPi / 180;
    rim = 1.1 * options.view.depth / View3D::kMaxDepth * std::sin(elevation);
  }
  const double sideways = (room.width / 2 - labelWidth - kLeader - 4) / kClear;
  const double upwards = (room.height - 36) / (2 * disc.squash + std::fabs(rim));
  disc.radius = std::max(kMinRadius, std::min(sideways, upwards));
  disc.thickness = rim * disc.radius;
  disc.center = room.center() - Point{0, disc.thickness / 2};
  return disc;
}

// What has no slice: "ohne Apr -120,5; Aug -40", where that is too long "ohne 2 Monate unter 0".
struct LeftOut {
  std::string months;
  std::string count;
};

LeftOut monthsLeftOut(const ChartModel& model, const Series& series) {
  LeftOut text;
  int count = 0;
  for (std::size_t month = 0; month < kMonthCount; ++month)
    if (const double value = series.values[month].value_or(0); value < 0) {
      text.months += (count++ == 0 ? "ohne " : "; ") + model.labels[month] + " " + valueText(value);
      text.count =
          "ohne " + std::to_string(count) + (count == 1 ? " Monat" : " Monate") + " unter 0";
    }
  return text;
}

// A pie of one series before it is drawn. All pies of a chart get the radius of the smallest.
struct Pie {
  Rect room;
  std::vector<Slice> slices;
  std::vector<SliceLabel> labels;  // empty where there is no room for them
  Disc disc;
  LeftOut leftOut;  // the months that it does not show
};

void resize(Pie& pie, double radius) {
  pie.disc.thickness *= radius / pie.disc.radius;
  pie.disc.radius = radius;
  pie.disc.center = pie.room.center() - Point{0, pie.disc.thickness / 2};
}

Pie makePie(const Canvas& canvas, const Rect& room, const ChartModel& model,
            const ChartOptions& options, std::size_t index) {
  Pie pie{room, slicesOf(canvas.theme(), model, model.series[index]), {}, {}, {}};
  pie.labels = labelsOf(canvas, model, pie.slices, options);
  double widest = 0;
  for (const SliceLabel& label : pie.labels) widest = std::max(widest, label.size.width);
  if (widest + kLeader + 2 * kMinRadius >= room.width / 2) {
    pie.labels.clear();
    widest = 0;
  }
  pie.disc = discIn(room, widest, options);
  return pie;
}

// As many labels of a side as there is height for; the smallest slices go without.
std::vector<SliceLabel*> chooseSide(Pie& pie, bool right) {
  std::vector<SliceLabel*> side;
  for (SliceLabel& label : pie.labels)
    if (label.right == right) side.push_back(&label);
  const auto needed = [&side] {
    double sum = 0;
    for (const SliceLabel* label : side) sum += label->size.height + 2;
    return sum;
  };
  while (!side.empty() && needed() > pie.room.height)
    side.erase(std::min_element(side.begin(), side.end(), [&pie](const auto* a, const auto* b) {
      return pie.slices[a->slice].value < pie.slices[b->slice].value;
    }));
  return side;
}

void drawLabel(Canvas& canvas, const Pie& pie, const SliceLabel& label,
               const ChartOptions& options) {
  const Disc& disc = pie.disc;
  const double direction = label.right ? 1 : -1;
  const double x = disc.center.x + direction * (halfWidthAt(disc, label) + kLeader);
  Point rim = disc.at(pie.slices[label.slice].middle());
  // Where the rim is seen the line begins at its lower edge.
  if ((rim.y - disc.center.y) * disc.thickness > 0) rim.y += disc.thickness;
  canvas.scene().line({rim, {x - direction * 7, label.y}, {x - direction * 2, label.y}},
                      Stroke{canvas.theme().axis, 1, false});
  const Point center{x + direction * label.size.width / 2, label.y};
  if (options.labels)
    canvas.scene().fill(Rect::around(center, label.size).corners(), canvas.theme().labelFill);
  canvas.textAround(center, label.text, sliceFont(options),
                    options.labels ? canvas.theme().labelText : canvas.theme().quietText);
}

// Returns the lower end of the disc and its labels.
double drawPie(Canvas& canvas, Pie& pie, const ChartOptions& options, int originalIndex) {
  if (pie.slices.empty()) {
    const Point center = pie.room.center();
    canvas.scene().fill(circle(center, pie.disc.radius * 0.8, 96), canvas.theme().inner,
                        Stroke{canvas.theme().grid, 1.5, true});
    canvas.textAround(center, "keine Werte", {13, false}, canvas.theme().quietText);
    return center.y + pie.disc.radius * 0.8;
  }
  const Disc& disc = pie.disc;
  addRim(canvas.scene(), disc, pie.slices);
  addFaces(canvas, disc, pie.slices, originalIndex);
  double lowest = disc.center.y + disc.radius * disc.squash + std::max(disc.thickness, 0.0);
  for (SliceLabel& label : pie.labels) {
    const Point place = disc.at(pie.slices[label.slice].middle(), 1.08);
    label.right = place.x >= disc.center.x;
    label.y = place.y;
    if ((place.y - disc.center.y) * disc.thickness > 0) label.y += disc.thickness;
  }
  for (const bool right : {true, false}) {
    auto side = chooseSide(pie, right);
    spread(side, pie.room.y, pie.room.bottom());
    for (const SliceLabel* label : side) {
      drawLabel(canvas, pie, *label, options);
      lowest = std::max(lowest, label->y + label->size.height / 2 - 4);
    }
  }
  return lowest;
}

// Name and sum below a pie, and the months that it does not show.
void addPieName(Canvas& canvas, const Rect& line, const Series& series, const LeftOut& leftOut) {
  double sum = 0;
  for (const auto& value : series.values) sum += value.value_or(0);
  Font font{13, true};
  const std::string text =
      canvas.fit(series.name + "  " + valueText(sum) + " " + series.unit, font, line.width);
  canvas.textAround(line.center(), text, font, canvas.theme().text);
  Font small{12, false};
  const bool fits = canvas.measure(leftOut.months, small).width <= line.width;
  const std::string missing = canvas.fit(fits ? leftOut.months : leftOut.count, small, line.width);
  if (!missing.empty())
    canvas.textAround(line.center() + Point{0, kLeftOutHeight}, missing, small,
                      canvas.theme().quietText);
}

// The pies in that many columns, all of one size.
std::vector<Pie> piesIn(const Canvas& canvas, const Rect& room, const ChartModel& model,
                        const ChartOptions& options, std::size_t columns) {
  const std::size_t count = model.series.size();
  const std::size_t rows = (count + columns - 1) / columns;
  const double width = room.width / static_cast<double>(columns);
  const double height = room.height / static_cast<double>(rows);
  const bool roomForLeftOut = height > kLeastForLeftOut;
  const bool someLeftOut = std::any_of(
      model.series.begin(), model.series.end(),
      [&model](const Series& series) { return !monthsLeftOut(model, series).count.empty(); });
  std::vector<Pie> pies;
  double radius = 1e9;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = i / columns;
    Rect cell{room.x + static_cast<double>(i % columns) * width,
              room.y + static_cast<double>(row) * height, width, height};
    cell = cell.grown(-6);
    if (options.legend)
      cell.height -= kNameHeight + (someLeftOut && roomForLeftOut ? kLeftOutHeight : 0);
    pies.push_back(makePie(canvas, cell, model, options, i));
    if (roomForLeftOut) pies.back().leftOut = monthsLeftOut(model, model.series[i]);
    radius = std::min(radius, pies.back().disc.radius);
  }
  for (Pie& pie : pies) resize(pie, radius);
  return pies;
}

}  // namespace

void layoutPies(Canvas& canvas, const Rect& room, const ChartModel& model,
                const ChartOptions& options, const std::vector<int>& order) {
  // Side by side, unless they become much larger one above the other; labels are worth half the
  // size.
  constexpr double kMuchLarger = 1.25;
  constexpr double kWithoutLabels = 0.5;
  const auto worth = [](const std::vector<Pie>& pies) {
    const bool labelled = std::all_of(pies.begin(), pies.end(), [](const Pie& pie) {
      return pie.slices.empty() || !pie.labels.empty();
    });
    return pies[0].disc.radius * (labelled ? 1 : kWithoutLabels);
  };
  const std::size_t count = model.series.size();
  std::size_t columns = count;
  std::vector<Pie> pies = piesIn(canvas, room, model, options, columns);
  for (std::size_t fewer = count; fewer-- > 1;) {
    std::vector<Pie> other = piesIn(canvas, room, model, options, fewer);
    if (worth(other) <= kMuchLarger * worth(pies)) continue;
    pies = std::move(other);
    columns = fewer;
  }
  for (std::size_t first = 0; first < count; first += columns) {
    const std::size_t end = std::min(first + columns, count);
    double lowest = 0;
    for (std::size_t i = first; i < end; ++i)
      lowest = std::max(lowest, drawPie(canvas, pies[i], options, order[i]));
    for (std::size_t i = first; options.legend && i < end; ++i) {
      const Rect& cell = pies[i].room;
      const double y = std::min(lowest + kNameHeight, cell.bottom());
      addPieName(canvas, {cell.x, y, cell.width, kNameHeight}, model.series[i], pies[i].leftOut);
    }
  }
}

}  // namespace charts
