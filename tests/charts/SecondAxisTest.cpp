#include <gtest/gtest.h>

#include <cmath>

#include "SampleChart.h"

// Two units on one sheet: kWh on the left scale, m³ on the right one. A corrected reading makes a
// month negative, on either of them.
namespace {

using charts::ChartModel;
using charts::ChartType;
using charts::Rect;
using charts::Scene;

struct Values {
  double low = 0, high = 0;
};

// Both scales have their lowest value in February and their highest in May; March is 0.
ChartModel twoUnits(Values first, Values second) {
  ChartModel model;
  model.title = "Verbrauch";
  model.unit = "kWh";
  model.secondUnit = "m³";
  model.labels.fill("Jan");
  const auto series = [](const char* name, charts::Hue hue, const char* unit, Values values) {
    charts::Series made{name, hue, {}, unit};
    made.values.fill(values.high / 2);
    made.values[1] = values.low;
    made.values[2] = 0;
    made.values[4] = values.high;
    return made;
  };
  model.series = {series("Strom", charts::Hue::Electricity, "kWh", first),
                  series("Wasser", charts::Hue::Water, "m³", second)};
  model.series[1].secondAxis = true;
  model.series[1].stack = 1;
  return model;
}

Scene layout(const ChartModel& model, ChartType type) {
  charts::ChartOptions options;
  options.type = type;
  options.labels = false;
  return charts::layoutChart(model, options, charts::Theme::light(), {900, 600},
                             sample::PlainMeasure());
}

Rect boxOf(const std::vector<charts::Point>& outline) {
  Rect box{outline[0].x, outline[0].y, 0, 0};
  for (const charts::Point& point : outline) {
    const double right = std::max(box.right(), point.x), bottom = std::max(box.bottom(), point.y);
    box.x = std::min(box.x, point.x);
    box.y = std::min(box.y, point.y);
    box.width = right - box.x;
    box.height = bottom - box.y;
  }
  return box;
}

Rect barOf(const Scene& scene, int series, int month) {
  return boxOf(scene.findMark(series, month)->outline).grown(-1);  // a mark reaches around its bar
}

// The plot is the first area with the ground's colour.
Rect plotOf(const Scene& scene) {
  for (const auto& item : scene.items)
    if (const auto* shape = std::get_if<charts::Shape>(&item);
        shape && shape->fill == charts::Theme::light().inner)
      return boxOf(shape->points);
  return {};
}

const std::vector<std::pair<Values, Values>> kSigns = {
    {{0, 300}, {0, 12}},    {{0, 300}, {-4, 12}},    {{0, 300}, {-12, 3}}, {{0, 300}, {-12, 0}},
    {{-80, 300}, {0, 12}},  {{-80, 300}, {-11, 12}}, {{-300, 0}, {0, 12}}, {{-300, 0}, {-12, 0}},
    {{-300, 0}, {-12, 90}}, {{0, 0}, {-12, 0}},      {{0, 0}, {-12, 3}},   {{-5, 2}, {-4000, 1}},
    {{0, 300}, {-900, 1}},  {{0, 0.5}, {-0.02, 1}}};

// Bars stand on their zero, which is one line for both units, and end within the plot.
TEST(SecondAxis, NegativeValuesHangFromTheCommonZero) {
  for (const auto& [first, second] : kSigns) {
    SCOPED_TRACE(std::to_string(first.low) + ".." + std::to_string(first.high) + " beside " +
                 std::to_string(second.low) + ".." + std::to_string(second.high));
    const Scene scene = layout(twoUnits(first, second), ChartType::Bar);
    const Rect plot = plotOf(scene).grown(0.5);
    const double zero = barOf(scene, 0, 2).y;
    EXPECT_NEAR(barOf(scene, 1, 2).y, zero, 0.5);
    for (const int series : {0, 1}) {
      const Values values = series == 0 ? first : second;
      const Rect low = barOf(scene, series, 1), high = barOf(scene, series, 4);
      EXPECT_TRUE(plot.contains(low) && plot.contains(high)) << series;
      EXPECT_NEAR(low.y, zero, 0.5) << series;
      EXPECT_NEAR(high.bottom(), zero, 0.5) << series;
      // One scale for what is above and below.
      EXPECT_NEAR(low.height * values.high, high.height * -values.low,
                  0.01 * std::max(values.high, -values.low) * plot.height)
          << series;
      if (values.low < 0) {
        EXPECT_GT(low.height + high.height, plot.height * 0.05) << series;
      }
    }
  }
}

TEST(SecondAxis, HasItsOwnNumbersBelowZero) {
  const Scene scene = layout(twoUnits({0, 300}, {-4, 12}), ChartType::Bar);
  const Rect plot = plotOf(scene);
  std::vector<std::string> left, right;
  for (const auto& item : scene.items)
    if (const auto* text = std::get_if<charts::Text>(&item)) {
      if (text->at.x < plot.x) left.push_back(text->text);
      if (text->at.x > plot.right() && text->align == charts::Align::Start)
        right.push_back(text->text);
    }
  EXPECT_EQ(std::count(left.begin(), left.end(), "-100"), 1);
  EXPECT_EQ(std::count(right.begin(), right.end(), "-4"), 1);
  EXPECT_EQ(std::count(right.begin(), right.end(), "0"), 1);
}

TEST(SecondAxis, EveryTypeKeepsBothUnitsWithinThePlot) {
  for (const auto& [first, second] : kSigns)
    for (const ChartType type :
         {ChartType::Line, ChartType::StackedBar, ChartType::Area, ChartType::StackedArea}) {
      const Scene scene = layout(twoUnits(first, second), type);
      const Rect plot = plotOf(scene).grown(11);  // what one points at reaches over
      for (const charts::Mark& mark : scene.marks)
        ASSERT_TRUE(plot.contains(boxOf(mark.outline)))
            << "type " << static_cast<int>(type) << " series " << mark.series << " month "
            << mark.point << " of " << second.low << ".." << second.high;
    }
}

}  // namespace
