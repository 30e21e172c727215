#include "charts/YearComparison.h"

#include <gtest/gtest.h>

#include "SampleChart.h"

namespace {

using charts::ChartModel;

TEST(YearComparison, PutsTheSameCalendarMonthSideBySide) {
  sample::Consumptions marchYear{}, januaryYear{};
  marchYear[0] = {303, 304, 305, 306, 307, 308, 309, 310, 311, 312, 301, 302};
  januaryYear[0] = {201, 202, 203};
  const ChartModel model = charts::comparisonChart(sample::yearData("a.kwd", marchYear, 3),
                                                   sample::yearData("b.kwd", januaryYear), 1);
  EXPECT_EQ(model.labels[2], "Mär");
  EXPECT_EQ(model.series[0].values[2], 303);
  EXPECT_EQ(model.series[1].values[2], 203);
  EXPECT_EQ(model.series[0].values[0], 301);
  EXPECT_EQ(model.axisTitle, "Monat Januar bis Dezember");
}

TEST(YearComparison, LeavesOutWhatIsNoMonth) {
  auto year = sample::sampleYear(2025);
  auto& rows = year.meters[charts::Meter::Day];
  rows[1].month = "februar";
  rows[4].month = "Januar";
  const auto values = charts::byCalendarMonth(rows);
  EXPECT_FALSE(values[1]);
  EXPECT_FALSE(values[4]);
  EXPECT_EQ(values[0], 231) << "the later row of two";
}

TEST(YearComparison, NamesEachSeriesAfterItsDatabase) {
  const struct {
    int index;
    const char *name, *unit, *title;
    double december;
  } rows[] = {{1, "Strom / Verbrauch2024", "kWh", "Verbrauch Strom", 313},
              {2, "Gas / Verbrauch2024", "m³", "Verbrauch Gas", 219},
              {3, "Wasser / Verbrauch2024", "m³", "Verbrauch Wasser", 10},
              {4, "Abwasser / Verbrauch2024", "m³", "Verbrauch Abwasser", 10},
              {5, "Strom / Verbrauch2024", "kWh", "Verbrauch Nachtstrom", 179}};
  for (const auto& row : rows) {
    const auto model =
        charts::comparisonChart(sample::sampleYear(2025), sample::sampleYear(2024), row.index);
    EXPECT_EQ(model.series.at(1).name, row.name);
    EXPECT_EQ(model.unit, row.unit);
    EXPECT_EQ(model.title, row.title);
    EXPECT_EQ(model.series[1].values[11], row.december);
  }
}

TEST(YearComparison, WithoutAnotherYearShowsTheOpenOne) {
  EXPECT_EQ(charts::comparisonChart(sample::sampleYear(2025), std::nullopt, 3).series.size(), 1u);
}

}  // namespace
