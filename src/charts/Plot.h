#pragma once

#include <optional>
#include <vector>

#include "charts/Axis.h"
#include "charts/Canvas.h"
#include "charts/ChartModel.h"
#include "charts/ChartOptions.h"
#include "charts/Labels.h"

namespace charts {

// Where the values of a chart with axes lie on the sheet. The front plane (z = 0) is seen straight
// on; the back plane (z = 1) is the same rectangle moved by depth, which is nothing in a flat
// chart.
struct Plot {
  Rect front;
  Point depth;
  Axis axis;
  std::optional<Axis> second;

  bool isFlat() const { return depth == Point(); }
  double slotWidth() const { return front.width / kMonthCount; }
  double slotCenter(std::size_t month) const {
    return front.x + (static_cast<double>(month) + 0.5) * slotWidth();
  }
  double y(double value, bool onSecond) const {
    const Axis& scale = onSecond && second ? *second : axis;
    return front.bottom() - scale.share(value) * front.height;
  }
  Point at(double x, double y, double z) const { return {x + z * depth.x, y + z * depth.y}; }
  Point at(Point place, double z) const { return at(place.x, place.y, z); }
};

// Direction and length of the depth for a plot in that much room. The scene's whole plot takes
// room.width and room.height, so the front plane is smaller by the depth.
Point depthOf(const View3D& view, Size room);

// What the layouts of the chart types share while they draw.
struct Drawing {
  Canvas& canvas;
  const Plot& plot;
  const ChartModel& model;
  const ChartOptions& options;
  std::vector<int> order;  // place in this model -> index of the series in the caller's model
  std::vector<LabelRequest> labels;
  std::vector<Rect> obstacles;  // marks that labels should leave free
  bool labelsOnFront = false;   // labels of bars with depth stand on them instead of beyond them

  Color color(std::size_t series) const { return canvas.theme().color(model.series[series].hue); }
  void mark(std::size_t series, std::size_t month, std::vector<Point> outline) {
    canvas.scene().marks.push_back({std::move(outline), order[series], static_cast<int>(month)});
  }
  std::string labelText(std::size_t series, std::size_t month) const;
  // Where a line has its value; nullopt where it has none.
  std::optional<Point> pointOf(std::size_t series, std::size_t month) const;
  // How many of the series that are drawn over this one have their value in the same place.
  int coveredBy(std::size_t series, std::size_t month) const;
  // Each series that lies over a line or a point lets this much of it look out on every side; many
  // of them must not reach the names of the months when all are zero.
  double rim() const;
  // The line of a series; that of the other year is told apart without its colour as well.
  Stroke lineOf(std::size_t series) const;
};

// The stretches of a series' line that others lie over, wide enough to be seen beside them: water
// and waste water of one meter run along the same line.
void addCoveredLine(Drawing& drawing, std::size_t series);

// Begin and end of every value when the values of a stack stand on each other, positive ones
// upwards from zero, negative ones downwards. A missing value has no height.
struct Span {
  double from = 0;
  double to = 0;
};
using StackedSpans = std::vector<std::array<Span, kMonthCount>>;  // by series
StackedSpans stackedSpans(const ChartModel& model);
// The stacks that occur, in the order of the series.
std::vector<int> stacksOf(const ChartModel& model);

void layoutLines(Drawing& drawing);
void layoutBars(Drawing& drawing);
void layoutAreas(Drawing& drawing);
void layoutPies(Canvas& canvas, const Rect& room, const ChartModel& model,
                const ChartOptions& options, const std::vector<int>& order);

}  // namespace charts
