#include "charts/ChartModel.h"

#include <gmock/gmock.h>

#include "SampleChart.h"

namespace {

using charts::ChartModel;
using charts::Selection;
using testing::HasSubstr;

struct Expected {
  const char* mode;
  int index;
  std::vector<const char*> series;
  const char* title;
  const char* unit;
  const char* caption;
  double january;
};

class EachSelection : public testing::TestWithParam<Expected> {};

TEST_P(EachSelection, HasItsTextsAndValues) {
  const Expected& row = GetParam();
  const Selection selection = charts::selectionOf(row.mode);
  EXPECT_EQ(static_cast<int>(selection), row.index);
  const ChartModel model = charts::monthlyChart(sample::sampleYear(2025), selection);
  EXPECT_EQ(model.title, row.title);
  EXPECT_EQ(model.unit, row.unit);
  EXPECT_EQ(model.caption, row.caption);
  EXPECT_EQ(model.labels[2], "Mär");
  ASSERT_EQ(model.series.size(), row.series.size());
  for (std::size_t i = 0; i < row.series.size(); ++i)
    EXPECT_EQ(model.series[i].name, row.series[i]);
  EXPECT_EQ(model.series[0].values[0], row.january);
}

INSTANTIATE_TEST_SUITE_P(
    ChartModel, EachSelection,
    testing::Values(
        Expected{"strom", 1, {"Strom"}, "Verbrauch Strom", "kWh", "Startmonat ist Januar", 291},
        Expected{"gas", 2, {"Gas"}, "Verbrauch Gas", "m³", "Startmonat ist  Januar", 240},
        Expected{"wasser", 3, {"Wasser"}, "Verbrauch Wasser", "m³", "Startmonat ist  Januar", 10},
        Expected{
            "abwasser", 4, {"Abwasser"}, "Verbrauch Abwasser", "m³", "Startmonat ist  Januar", 10},
        Expected{"ww",
                 5,
                 {"Wasser", "Abwasser"},
                 "Verbrauch Wasser und Abwasser",
                 "m³",
                 "Startmonat ist  Januar",
                 10},
        Expected{"nachtstrom",
                 6,
                 {"Strom"},
                 "Verbrauch Nachtstrom",
                 "kWh",
                 "Startmonat ist  Januar",
                 180}),
    [](const auto& row) { return std::string(row.param.mode); });

TEST(ChartModel, OpensWithTwoBlanksBeforeTheMonthInEveryMode) {
  const auto year = sample::yearData("x.kwd", {}, 3);
  for (const char* mode : {"alle", "strom", "ww", "nachtstrom"})
    EXPECT_EQ(charts::openingCaption(year, charts::selectionOf(mode)), "Startmonat ist  März");
}

TEST(ChartModel, FollowsTheStartMonth) {
  sample::Consumptions values{};
  values[0][0] = 77;
  const ChartModel model =
      charts::monthlyChart(sample::yearData("x.kwd", values, 3), Selection::Electricity);
  EXPECT_EQ(model.labels[0], "Mär");
  EXPECT_EQ(model.series[0].values[0], 77);
  EXPECT_EQ(model.caption, "Startmonat ist März");
}

TEST(ChartModel, OfAllUtilitiesPutsTheSameMonthsTogether) {
  auto year = sample::sampleYear(2025);
  year.meters[charts::Meter::Gas] =
      sample::yearData("", {{{}, {}, {}, {}, {5, 6, 7}}}, 12).meters[charts::Meter::Gas];
  const ChartModel model = charts::monthlyChart(year, charts::selectionOf("alle"));
  ASSERT_EQ(model.series.size(), 4u);
  EXPECT_EQ(model.series[0].name, "Strom");
  EXPECT_TRUE(model.series[0].secondAxis);
  EXPECT_EQ(model.secondUnit, "kWh");
  EXPECT_EQ(model.series[1].values[11], 5) << "gas begins in December";
  EXPECT_EQ(model.series[1].values[0], 6);
}

TEST(ChartModel, InPercentAddsUpToAHundred) {
  const ChartModel ofYear = charts::inPercent(sample::twoYears(), false);
  double sum = 0;
  for (const auto& value : ofYear.series[1].values) sum += *value;
  EXPECT_NEAR(sum, 100, 1e-9);
  const ChartModel ofMonth = charts::inPercent(sample::twoYears(), true);
  EXPECT_NEAR(*ofMonth.series[0].values[4] + *ofMonth.series[1].values[4], 100, 1e-9);
  const ChartModel zeros =
      charts::inPercent(charts::monthlyChart(sample::yearData("", {}), Selection::Gas), false);
  EXPECT_EQ(zeros.series[0].values[0], 0);
}

TEST(ChartModel, WritesValuesShortAndGerman) {
  const std::pair<double, const char*> cases[] = {
      {291, "291"},           {12.5, "12,5"},  {1234.567, "1.234,57"}, {-120.5, "-120,5"}, {0, "0"},
      {1250000, "1,25 Mio."}, {3e9, "3 Mrd."}, {1e300, "1E300"},       {0.1f, "0,1"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(charts::valueText(value), text);
}

TEST(ChartModel, TellsAValueInWords) {
  auto model = sample::twoYears();
  EXPECT_EQ(charts::markText(model, 1, 2),
            "Strom / Verbrauch2024, März: 268 kWh (8,7 % des Jahres)");
  model.series[1].values[2].reset();
  EXPECT_THAT(charts::markText(model, 1, 2), HasSubstr("März: kein Wert"));
  EXPECT_THAT(charts::describe(model, "Balken"),
              HasSubstr("Verbrauch Strom, Darstellung Balken. Strom / Verbrauch2025 in kWh: Januar "
                        "291, Februar 255"));
}

}  // namespace
