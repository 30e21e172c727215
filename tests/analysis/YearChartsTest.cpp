// The charts over several years for households and sizes that nobody has: whatever comes, lines and
// bars stay within the sheet and texts off each other.
#include <cmath>

#include "HouseholdFixture.h"
#include "analysis/Charts.h"
#include "charts/SampleChart.h"

using namespace analysis;

namespace {

class YearCharts : public HouseholdFixture {
 protected:
  using Change = double (*)(double value, int month);

  // The sample household for so many years, each month changed.
  YearFolder made(int count, Change change) {
    const YearFolder real = folder();
    YearFolder made;
    for (int i = 0; i < count; ++i) {
      Year year = real.years[static_cast<std::size_t>(i % 2)];
      year.start = std::chrono::year(2026 - count + i) / 1 / 1;
      for (const Meter meter : kMeters)
        for (int month = 0; month < kMonths; ++month) {
          auto& consumption = year.rows[meter][month].consumption;
          consumption = change(consumption.value_or(0), month);
        }
      made.years.push_back(std::move(year));
    }
    return made;
  }
  std::vector<charts::Scene> scenesOf(const YearFolder& folder, charts::Size size) {
    const Frame frame{size, theme, measure};
    const auto figures = figuresOf(folder);
    const int front = static_cast<int>(figures.size()) - 1;
    std::vector<int> all(figures.size());
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<int>(i);
    Year open = folder.years.back();
    for (auto& months : open.months) months = 7;
    const Forecast forecast = forecastOf(open, folder);
    return {yearCosts(frame, figures, front), yearBars(frame, figures, Meter::Gas, front),
            unitPrices(frame, figures, Meter::Gas, front),
            monthLines(frame, figures, Meter::Gas, front, all),
            forecastMonths(frame, forecast, Meter::Gas, &folder.years.front())};
  }
  void expectReadable(charts::Scene& scene) {
    const charts::Rect sheet{-1, -1, scene.width + 2, scene.height + 2};
    const auto boxes = charts::Canvas(scene, theme, measure).textBoxes();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      EXPECT_TRUE(sheet.contains(boxes[i])) << textAt(scene, i);
      for (std::size_t j = 0; j < i; ++j)
        EXPECT_FALSE(boxes[i].grown(-1.5).intersects(boxes[j].grown(-1.5)))
            << textAt(scene, i) << " over " << textAt(scene, j);
    }
    for (const auto& item : scene.items)
      if (const auto* shape = std::get_if<charts::Shape>(&item)) {
        for (const charts::Point& point : shape->points)
          ASSERT_TRUE(sheet.contains({point.x, point.y, 0, 0})) << point.x << "," << point.y;
      }
  }
  static std::string textAt(const charts::Scene& scene, std::size_t index) {
    for (const auto& item : scene.items)
      if (const auto* text = std::get_if<charts::Text>(&item); text && index-- == 0)
        return text->text;
    return {};
  }

  const charts::Theme theme = charts::Theme::light();
  const sample::PlainMeasure measure{};
};

constexpr std::array kChanges = {
    +[](double value, int) { return value; },
    +[](double value, int month) { return month % 4 == 1 ? -value : value; },
    +[](double, int) { return 0.0; },
    +[](double value, int) { return value * 1e7 + 0.25; },
    +[](double value, int month) { return month == 3 ? value : 0; },
};

}  // namespace

TEST_F(YearCharts, StayReadableWhateverTheHouseholdIs) {
  for (const int years : {1, 2, 12, 60})
    for (std::size_t change = 0; change < kChanges.size(); ++change) {
      const YearFolder folder = made(years, kChanges.at(change));
      for (const charts::Size size :
           {charts::Size{220, 150}, {300, 200}, {700, 300}, {1800, 900}, {300, 900}}) {
        auto scenes = scenesOf(folder, size);
        for (std::size_t i = 0; i < scenes.size(); ++i) {
          SCOPED_TRACE(std::to_string(years) + " years, change " + std::to_string(change) +
                       ", chart " + std::to_string(i) + " at " + std::to_string(size.width));
          expectReadable(scenes[i]);
        }
      }
    }
}

// A corrected reading: its month lies below zero, and so does its place in the chart.
TEST_F(YearCharts, NegativeMonthsLieBelowZero) {
  const auto lowest = [&](Change change) {
    const YearFolder folder = made(2, change);
    const charts::Scene scene = scenesOf(folder, {700, 300})[3];
    double zero = 0, low = 0, lastLine = 0;
    for (const auto& item : scene.items) {
      const auto* shape = std::get_if<charts::Shape>(&item);
      if (!shape) continue;
      if (!shape->closed && shape->stroke->color == theme.axis) zero = shape->points[0].y;
      if (!shape->closed &&
          (shape->stroke->color == theme.axis || shape->stroke->color == theme.grid))
        lastLine = std::max(lastLine, shape->points[0].y);
      if (shape->closed && shape->fill == theme.color(charts::Hue::Gas))
        for (const charts::Point& point : shape->points) low = std::max(low, point.y);
    }
    constexpr double kPoint = 4;
    EXPECT_LE(low, lastLine + kPoint) << "below the scale";
    return low - zero;
  };
  EXPECT_LT(lowest(kChanges[0]), 0);
  EXPECT_GT(lowest(kChanges[1]), 20);
}

TEST_F(YearCharts, TariffsWithoutAnOfferSayWhatIsMissing) {
  const YearFolder read = folder();
  const Year& year = read.years.back();
  const Comparison comparison =
      compareOffers(year, Energy::Gas, typedBasis(15000, std::nullopt), {});
  const Frame frame{{700, 300}, theme, measure};
  const auto says = [&](bool differences) {
    const charts::Scene scene = tariffLines(frame, comparison, -1, differences);
    for (std::size_t i = 0; !textAt(scene, i).empty(); ++i)
      if (textAt(scene, i) == "Noch kein Angebot eingetragen.") return true;
    return false;
  };
  EXPECT_TRUE(says(true));
  EXPECT_FALSE(says(false)) << "the present contract's costs are data";
}
