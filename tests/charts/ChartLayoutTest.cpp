#include "charts/ChartLayout.h"

#include <gtest/gtest.h>

#include <cmath>

#include "SampleChart.h"
#include "SceneText.h"
#include "support/Golden.h"

namespace {

using charts::ChartModel;
using charts::ChartOptions;
using charts::ChartType;
using charts::Rect;
using charts::Scene;
using charts::Selection;

Scene layout(const ChartModel& model, const ChartOptions& options, charts::Size size = {640, 400}) {
  return charts::layoutChart(model, options, charts::Theme::light(), size, sample::PlainMeasure());
}

ChartModel gasAndTrouble() {
  ChartModel model = sample::twoYears();
  model.series[0].values[3] = -120.5;
  model.series[0].values[7].reset();
  model.series[1].values[6].reset();
  return model;
}

ChartOptions options(ChartType type, bool threeD = false) {
  ChartOptions result;
  result.type = type;
  result.threeD = threeD;
  return result;
}

struct Case {
  const char* name;
  ChartModel model;
  ChartOptions options;
};

std::vector<Case> approvedCases() {
  const ChartModel electricity =
      charts::monthlyChart(sample::sampleYear(2025), Selection::Electricity);
  const ChartModel waters = charts::monthlyChart(sample::sampleYear(2025), Selection::BothWaters);
  const ChartModel all = charts::monthlyChart(sample::sampleYear(2025), Selection::None);
  const ChartModel zeros = charts::monthlyChart(sample::yearData("x.kwd", {}, 3), Selection::Gas);
  std::vector<Case> cases = {
      {"line", electricity, options(ChartType::Line)},
      {"line-zeros-march", zeros, options(ChartType::Line)},
      {"line-3d", sample::twoYears(), options(ChartType::Line, true)},
      {"bar-trouble", gasAndTrouble(), options(ChartType::Bar)},
      {"bar-overlap-outline", sample::twoYears(), options(ChartType::Bar)},
      {"bar-3d-trouble", gasAndTrouble(), options(ChartType::Bar, true)},
      {"stackedbar-percent", waters, options(ChartType::StackedBar)},
      {"area-trouble", gasAndTrouble(), options(ChartType::Area)},
      {"area-3d", sample::twoYears(), options(ChartType::Area, true)},
      {"pie", electricity, options(ChartType::Pie)},
      {"pie-3d-reverse", waters, options(ChartType::Pie, true)},
      {"stackedarea-3d-trouble", gasAndTrouble(), options(ChartType::StackedArea, true)},
      {"all-utilities", all, options(ChartType::StackedArea)},
  };
  cases[4].options.overlapBars = cases[4].options.outlineBars = true;
  cases[4].options.labelRotation = 90;
  cases[6].options.percent = true;
  cases[6].options.legend = false;
  cases[10].options.reverse = true;
  cases[10].options.labels = false;
  cases[10].options.outer = charts::Color::rgb(0x203040);
  return cases;
}

TEST(ChartLayout, DrawsTheApprovedScenes) {
  for (const Case& one : approvedCases())
    EXPECT_TRUE(matchesGolden(std::string("chart-") + one.name + ".txt",
                              sample::toText(layout(one.model, one.options))));
}

// Where a text lies on the sheet.
Rect boxOf(const charts::Text& text) {
  const auto extent = sample::PlainMeasure().measure(text.text, text.font);
  const double begin = text.align == charts::Align::Start    ? 0
                       : text.align == charts::Align::Middle ? -extent.width / 2
                                                             : -extent.width;
  if (text.rotation == 0)
    return {text.at.x + begin, text.at.y - extent.ascent, extent.width, extent.height()};
  if (text.rotation == 90)
    return {text.at.x - extent.ascent, text.at.y - begin - extent.width, extent.height(),
            extent.width};
  return {text.at.x - extent.descent, text.at.y + begin, extent.height(), extent.width};
}

std::vector<ChartModel> troublesomeModels() {
  ChartModel huge = sample::twoYears();
  huge.series[0].values[5] = 1.5e12;
  huge.series[1].values[1] = 1e300;
  ChartModel empty = sample::twoYears();
  for (auto& series : empty.series) series.values.fill(std::nullopt);
  ChartModel negative = charts::monthlyChart(sample::sampleYear(2025), Selection::None);
  for (auto& value : negative.series[0].values) value = -*value;
  ChartModel longNames = sample::twoYears();
  longNames.series[0].name = std::string(150, 'W');
  longNames.title = std::string(200, 'T');
  return {sample::twoYears(),
          gasAndTrouble(),
          huge,
          empty,
          negative,
          longNames,
          charts::monthlyChart(sample::sampleYear(2025), Selection::None),
          ChartModel()};
}

template <class Check>
void forEveryChart(const Check& check) {
  const std::vector<ChartModel> models = troublesomeModels();
  for (std::size_t m = 0; m < models.size(); ++m)
    for (int type = 0; type < charts::kChartTypeCount; ++type)
      for (const int angle : {-45, 0, 45, 99})
        for (const charts::Size size : {charts::Size{1000, 600}, {320, 240}, {90, 700}, {40, 30}})
          for (const int rotation : {0, 90, 270}) {
            ChartOptions o = options(static_cast<ChartType>(type), angle != 99);
            if (o.threeD) o.view = {100, angle, -angle};
            o.labelRotation = rotation;
            o.labelSize = rotation == 270 ? 24 : 9;
            o.percent = rotation == 90;
            SCOPED_TRACE("model " + std::to_string(m) + " type " + std::to_string(type) +
                         " angle " + std::to_string(angle) + " width " +
                         std::to_string(size.width) + " rotation " + std::to_string(rotation));
            check(layout(models[m], o, size), o);
          }
}

TEST(ChartLayout, KeepsEverythingFiniteAndAllTextsOnTheSheet) {
  forEveryChart([](const Scene& scene, const ChartOptions&) {
    const Rect sheet{-0.5, -0.5, scene.width + 1, scene.height + 1};
    for (const auto& item : scene.items) {
      if (const auto* shape = std::get_if<charts::Shape>(&item)) {
        for (const charts::Point& point : shape->points)
          ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
      } else if (scene.width >= 300) {
        const auto& text = std::get<charts::Text>(item);
        ASSERT_TRUE(sheet.contains(boxOf(text)))
            << text.text << " at " << text.at.x << "," << text.at.y;
      }
    }
  });
}

TEST(ChartLayout, NeverWritesOneTextOverAnother) {
  forEveryChart([](const Scene& scene, const ChartOptions&) {
    if (scene.width < 300) return;
    std::vector<const charts::Text*> texts;
    for (const auto& item : scene.items)
      if (const auto* text = std::get_if<charts::Text>(&item)) texts.push_back(text);
    for (std::size_t i = 0; i < texts.size(); ++i)
      for (std::size_t j = 0; j < i; ++j)
        ASSERT_FALSE(boxOf(*texts[i]).grown(-0.6).intersects(boxOf(*texts[j]).grown(-0.6)))
            << texts[i]->text << " over " << texts[j]->text;
  });
}

TEST(ChartLayout, MarksEveryValueWhateverTheOrder) {
  for (int type = 0; type < charts::kChartTypeCount; ++type)
    for (const bool reverse : {false, true}) {
      ChartOptions o = options(static_cast<ChartType>(type), true);
      o.reverse = reverse;
      const Scene scene = layout(sample::twoYears(), o);
      for (int series = 0; series < 2; ++series)
        for (int month = 0; month < 12; ++month)
          ASSERT_NE(scene.findMark(series, month), nullptr) << type;
    }
}

// Water and waste water read from one meter: both lines are seen although one lies on the other.
TEST(ChartLayout, ALineShowsBelowAnotherThatRunsAlongIt) {
  const ChartModel waters = charts::monthlyChart(sample::sampleYear(2025), Selection::BothWaters);
  ASSERT_EQ(waters.series[0].values, waters.series[1].values);
  const charts::Theme theme = charts::Theme::light();
  for (const ChartType type : {ChartType::Line, ChartType::Area}) {
    const Scene scene = layout(waters, options(type));
    std::array<double, 2> widest{};
    std::array<std::size_t, 2> lastDrawn{};
    for (std::size_t i = 0; i < scene.items.size(); ++i) {
      const auto* shape = std::get_if<charts::Shape>(&scene.items[i]);
      if (!shape || shape->closed || !shape->stroke) continue;
      for (std::size_t s = 0; s < 2; ++s)
        if (shape->stroke->color == theme.color(waters.series[s].hue)) {
          widest[s] = std::max(widest[s], shape->stroke->width);
          lastDrawn[s] = i;
        }
    }
    EXPECT_GE(widest[1], widest[0] + 3);
    EXPECT_GT(lastDrawn[0], lastDrawn[1]);
  }
}

TEST(ChartLayout, FindsTheBarUnderThePointer) {
  const Scene scene = layout(sample::twoYears(), options(ChartType::Bar));
  const charts::Mark* mark = scene.findMark(1, 4);
  const charts::Point middle = (mark->outline[0] + mark->outline[2]) * 0.5;
  EXPECT_EQ(scene.markAt(middle), mark);
  EXPECT_EQ(scene.markAt({1, 1}), nullptr);
}

// Without a turn or without depth a chart with depth is the flat one from the front.
TEST(ChartLayout, WithoutTurnLooksFlat) {
  for (const charts::View3D view : {charts::View3D{100, 0, 0}, {0, 45, 45}}) {
    ChartOptions o = options(ChartType::Bar, true);
    o.view = view;
    EXPECT_EQ(sample::toText(layout(sample::twoYears(), o)),
              sample::toText(layout(sample::twoYears(), options(ChartType::Bar))));
  }
}

}  // namespace
