// An attempt to make any chart ugly: made households that nobody has, at sizes and angles that
// nobody chooses. Whatever comes, the texts stay on the sheet and off each other, and no label cuts
// a bar: it stands beyond all of them or inside one.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "SampleChart.h"
#include "charts/Canvas.h"

using sample::boxOf;

namespace {

using charts::ChartModel;
using charts::ChartOptions;
using charts::ChartType;
using charts::Rect;
using charts::Scene;

class Maker {
 public:
  explicit Maker(unsigned seed) : random_(seed) {}

  int pick(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }
  bool sometimes(int one) { return pick(one) == 0; }

  charts::YearData year(const std::string& name) {
    constexpr std::array kScales = {0.0, 0.001, 0.37, 1.0, 24.0, 268.0, 12305.25, 4e9, 1e15};
    charts::YearData year = sample::yearData(name, {}, 1 + pick(12));
    for (const charts::Meter meter : yearbook::kMeters) {
      const double scale = kScales.at(static_cast<std::size_t>(pick(kScales.size())));
      const int kind = pick(5);
      for (int i = 0; i < charts::kMonthCount; ++i) {
        auto& value = year.meters[meter][i].value;
        value = scale * (1 + pick(1000) / 400.0);
        if (kind == 1) *value = std::round(*value);
        if (kind == 2 && i != 4) value = 0;
        if (kind == 3 && sometimes(3)) *value *= -1;
        if (kind == 4 && sometimes(3)) value.reset();
        if (sometimes(60)) value = scale * 3000;
      }
    }
    return year;
  }
  ChartModel model() {
    const charts::YearData open = year("Haushalt Musterfrau & Söhne 2025.kwd");
    if (sometimes(2)) return charts::monthlyChart(open, static_cast<charts::Selection>(pick(7)));
    return charts::comparisonChart(open, year("2024.kwd"), 1 + pick(5));
  }
  ChartOptions options() {
    ChartOptions options;
    options.type = static_cast<ChartType>(pick(charts::kChartTypeCount));
    options.threeD = sometimes(2);
    options.view = {pick(101), pick(91) - 45, pick(91) - 45};
    options.labelRotation = std::array{0, 90, 270}.at(static_cast<std::size_t>(pick(3)));
    options.labelSize = 6 + pick(19);
    options.labelDistance = pick(31);
    options.overlapBars = sometimes(4);
    options.percent = sometimes(4);
    options.reverse = sometimes(4);
    options.legend = !sometimes(4);
    return options;
  }
  charts::Size size() {
    return {static_cast<double>(320 + pick(3000)), static_cast<double>(220 + pick(1900))};
  }

 private:
  std::mt19937 random_;
};

std::vector<Rect> textBoxes(Scene& scene) {
  const sample::PlainMeasure measure{};
  const charts::Theme theme = charts::Theme::light();
  return charts::Canvas(scene, theme, measure).textBoxes();
}

std::string textOf(const Scene& scene, std::size_t index) {
  for (const auto& item : scene.items)
    if (const auto* text = std::get_if<charts::Text>(&item); text && index-- == 0)
      return text->text;
  return {};
}

std::string whatIs(const ChartModel& model, const ChartOptions& options, charts::Size size) {
  return model.title + ", " + std::to_string(model.series.size()) + " series, type " +
         std::to_string(static_cast<int>(options.type)) + (options.threeD ? " deep " : " flat ") +
         std::to_string(options.view.depth) + "/" + std::to_string(options.view.elevation) + "/" +
         std::to_string(options.view.rotation) + " at " + std::to_string(size.width) + " x " +
         std::to_string(size.height) + ", labels " + std::to_string(options.labelSize) +
         " turned " + std::to_string(options.labelRotation);
}

void expectReadable(Scene& scene) {
  const Rect sheet = Rect{0, 0, scene.width, scene.height}.grown(0.5);
  const std::vector<Rect> texts = textBoxes(scene);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    EXPECT_TRUE(sheet.contains(texts[i])) << "beyond the sheet: " << textOf(scene, i);
    // The room of a text has blank lines above and below it.
    for (std::size_t j = 0; j < i; ++j)
      EXPECT_FALSE(texts[i].grown(-1).intersects(texts[j].grown(-1)))
          << textOf(scene, i) << " over " << textOf(scene, j);
  }
  for (const auto& item : scene.items)
    if (const auto* shape = std::get_if<charts::Shape>(&item)) {
      for (const charts::Point& point : shape->points)
        EXPECT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
    }
}

std::string whereIs(const Rect& rect) {
  return std::to_string(rect.x) + ".." + std::to_string(rect.right()) + " / " +
         std::to_string(rect.y) + ".." + std::to_string(rect.bottom());
}

void expectNoBarCut(const Scene& scene) {
  std::vector<Rect> bars;
  for (const charts::Mark& mark : scene.marks) bars.push_back(boxOf(mark.outline).grown(-1));
  for (std::size_t i = 1; i < scene.items.size(); ++i) {
    const auto* shape = std::get_if<charts::Shape>(&scene.items[i - 1]);
    if (!shape || !std::holds_alternative<charts::Text>(scene.items[i]) ||
        shape->fill != charts::Theme::light().labelFill)
      continue;
    const Rect label = boxOf(shape->points);
    if (std::any_of(bars.begin(), bars.end(),
                    [&label](const Rect& bar) { return bar.grown(1).contains(label); }))
      continue;
    for (const Rect& bar : bars)
      EXPECT_FALSE(label.intersects(bar.grown(-0.5)))
          << std::get<charts::Text>(scene.items[i]).text << " at " << whereIs(label) << " on "
          << whereIs(bar);
  }
}

TEST(UglyChart, NothingMakesAChartUnreadable) {
  for (unsigned seed = 1; seed <= 1500; ++seed) {
    Maker maker(seed);
    const ChartModel model = maker.model();
    const ChartOptions options = maker.options();
    const charts::Size size = maker.size();
    SCOPED_TRACE("seed " + std::to_string(seed) + ": " + whatIs(model, options, size));
    Scene scene =
        charts::layoutChart(model, options, charts::Theme::light(), size, sample::PlainMeasure());
    expectReadable(scene);
    if (options.type == ChartType::Bar || options.type == ChartType::StackedBar)
      expectNoBarCut(scene);
  }
}

}  // namespace
