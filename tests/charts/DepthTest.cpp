#include "charts/Depth.h"

#include <gtest/gtest.h>

#include <cmath>

#include "SampleChart.h"

// What is seen of the solids is compared with rays: the nearest solid on the way of the eye must be
// the one whose face was drawn last at that place.
namespace {

using charts::ChartModel;
using charts::ChartOptions;
using charts::ChartType;
using charts::Color;
using charts::Plot;
using charts::Point;

constexpr int kSteps = 80;

struct Solid {
  std::size_t series = 0;
  std::vector<Point> front;
  double z0 = 0;
  double z1 = 1;
};

struct View {
  ChartType type;
  int depth, elevation, rotation;
  bool trouble;
};

ChartModel modelOf(const View& view) {
  ChartModel model = sample::twoYears();
  model.series[0].hue = charts::Hue::Electricity;
  model.series[1].hue = charts::Hue::Water;
  const std::array<double, 12> steep = {10, 300, 20, 250, 5, 120, 320, 40, 60, 280, 30, 200};
  for (std::size_t i = 0; i < 12; ++i) model.series[1].values[i] = steep[i];
  if (view.trouble) {
    model.series[0].values[2] = -90;
    model.series[1].values[5] = -140;
    if (view.type == ChartType::Bar || view.type == ChartType::Area)
      model.series[0].values[8].reset();
  }
  return model;
}

Plot plotOf(const View& view) {
  Plot plot;
  plot.front = {120, 160, 600, 360};
  plot.depth = charts::depthOf({view.depth, view.elevation, view.rotation}, {700, 460});
  plot.axis = charts::makeAxis(-300, 700, 10);
  return plot;
}

// Red and blue stay what they are in light and in shade.
charts::Theme twoColors() {
  charts::Theme theme = charts::Theme::light();
  theme.series[static_cast<std::size_t>(charts::Hue::Electricity)] = Color::rgb(0xc02020);
  theme.series[static_cast<std::size_t>(charts::Hue::Water)] = Color::rgb(0x2020c0);
  return theme;
}

// Two areas stand one behind the other; one stands in each half of the depth otherwise.
std::vector<Solid> areaSolids(const Plot& plot, const ChartModel& model) {
  std::vector<Solid> solids;
  for (std::size_t s = 0; s < 2; ++s) {
    const charts::Layer layer = charts::layerOf(s, 2);
    for (std::size_t i = 0; i + 1 < 12; ++i) {
      const auto a = model.series[s].values[i], b = model.series[s].values[i + 1];
      if (!a || !b) continue;
      const Point left{plot.slotCenter(i), plot.y(*a, false)};
      const Point right{plot.slotCenter(i + 1), plot.y(*b, false)};
      solids.push_back({s,
                        {left, right, {right.x, plot.y(0, false)}, {left.x, plot.y(0, false)}},
                        layer.z0,
                        layer.z1});
    }
  }
  return solids;
}

std::vector<Solid> stackedAreaSolids(const Plot& plot, const ChartModel& model) {
  std::vector<Solid> solids;
  const charts::Layer layer = charts::layerOf(0, 1);
  for (std::size_t i = 0; i + 1 < 12; ++i) {
    const double a = *model.series[0].values[i], b = *model.series[0].values[i + 1];
    const double c = a + *model.series[1].values[i], d = b + *model.series[1].values[i + 1];
    const auto at = [&](std::size_t month, double value) {
      return Point{plot.slotCenter(month), plot.y(value, false)};
    };
    solids.push_back({0, {at(i, a), at(i + 1, b), at(i + 1, 0), at(i, 0)}, layer.z0, layer.z1});
    solids.push_back({1, {at(i, c), at(i + 1, d), at(i + 1, b), at(i, a)}, layer.z0, layer.z1});
  }
  return solids;
}

// Bars as the marks say, which are their front faces.
std::vector<Solid> barSolids(const Plot& plot, const charts::Scene& scene, bool stacked) {
  std::vector<Solid> solids;
  for (const charts::Mark& mark : scene.marks) {
    Solid solid{static_cast<std::size_t>(mark.series), {}, 0.14, 0.86};
    charts::Rect rect{mark.outline[0].x, mark.outline[0].y, mark.outline[2].x - mark.outline[0].x,
                      mark.outline[2].y - mark.outline[0].y};
    if (!stacked) rect = rect.grown(-1);
    for (const Point& corner : rect.corners())
      solid.front.push_back(corner - plot.depth * solid.z0);
    solids.push_back(std::move(solid));
  }
  return solids;
}

// Series of the nearest solid at a place on the sheet, -1 for none.
int nearest(const Plot& plot, const std::vector<Solid>& solids, Point place) {
  double best = 2;
  int series = -1;
  for (const Solid& solid : solids)
    for (int i = 0; i <= kSteps; ++i) {
      const double z = solid.z0 + (solid.z1 - solid.z0) * i / kSteps;
      if (z >= best) break;
      if (!charts::isInside(solid.front, place - plot.depth * z)) continue;
      best = z;
      series = static_cast<int>(solid.series);
    }
  return series;
}

int drawn(const charts::Scene& scene, Point place) {
  for (auto item = scene.items.rbegin(); item != scene.items.rend(); ++item) {
    const auto* shape = std::get_if<charts::Shape>(&*item);
    if (!shape || !shape->fill || !charts::isInside(shape->points, place)) continue;
    return shape->fill->red > shape->fill->blue ? 0 : 1;
  }
  return -1;
}

class SeenSolids : public testing::TestWithParam<View> {};

TEST_P(SeenSolids, AreTheNearestOnes) {
  const View view = GetParam();
  const Plot plot = plotOf(view);
  const ChartModel model = modelOf(view);
  charts::Scene scene;
  const charts::Theme theme = twoColors();
  const sample::PlainMeasure measure;
  charts::Canvas canvas(scene, theme, measure);
  ChartOptions options;
  options.type = view.type;
  charts::Drawing drawing{canvas, plot, model, options, {0, 1}, {}, {}};
  const bool bars = view.type == ChartType::Bar || view.type == ChartType::StackedBar;
  bars ? charts::layoutBars(drawing) : charts::layoutAreas(drawing);
  const auto solids = bars ? barSolids(plot, scene, view.type == ChartType::StackedBar)
                      : view.type == ChartType::Area ? areaSolids(plot, model)
                                                     : stackedAreaSolids(plot, model);
  int compared = 0, wrong = 0;
  for (int row = 0; row < 60; ++row)
    for (int column = 0; column < 110; ++column) {
      const double x = 10.7 + column * 8, y = 40.3 + row * 11;
      const int expected = nearest(plot, solids, {x, y});
      if (expected < 0) continue;
      ++compared;
      const int seen = drawn(scene, {x, y});
      // Edges are nobody's.
      const auto same = [&](double dx, double dy) {
        return nearest(plot, solids, {x + dx, y + dy}) == expected;
      };
      if (seen == expected || !same(2.5, 0) || !same(-2.5, 0) || !same(0, 2.5) || !same(0, -2.5))
        continue;
      if (++wrong < 4)
        ADD_FAILURE() << "at " << x << "," << y << ": seen " << seen << " instead of " << expected;
    }
  EXPECT_GT(compared, 100);
  EXPECT_EQ(wrong, 0) << "of " << compared;
}

std::vector<View> views() {
  std::vector<View> all;
  for (const ChartType type :
       {ChartType::Bar, ChartType::StackedBar, ChartType::Area, ChartType::StackedArea})
    for (const auto& [elevation, rotation] :
         {std::pair(45, 45), {45, -45}, {-45, 45}, {-45, -45}, {45, 0}, {0, 45}, {8, 40}})
      for (const bool trouble : {false, true}) {
        if (trouble && type == ChartType::StackedArea) continue;
        all.push_back({type, elevation == 8 ? 40 : 100, elevation, rotation, trouble});
      }
  return all;
}

INSTANTIATE_TEST_SUITE_P(Depth, SeenSolids, testing::ValuesIn(views()));

}  // namespace
