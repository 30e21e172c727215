#include "analysis/Forecast.h"

#include <fstream>
#include <sstream>

#include "Backtest.h"
#include "HouseholdFixture.h"
#include "reports/GridText.h"
#include "support/Golden.h"
#include "yearbook/YearRows.h"

using namespace analysis;
using testing::HasSubstr;

namespace {

constexpr auto kJanuary2025 = std::chrono::year(2025) / std::chrono::January;
constexpr auto kJanuary2024 = std::chrono::year(2024) / std::chrono::January;

Course courseWith(std::chrono::year_month first, std::initializer_list<double> months) {
  Course course{first, {}};
  std::copy(months.begin(), months.end(), course.months.begin());
  return course;
}

Course evenly(std::chrono::year_month first, double month) {
  Course course{first, {}};
  course.months.fill(month);
  return course;
}

class ForecastOfTheSample : public HouseholdFixture {};

}  // namespace

// A year from July on: its months are those of the table, turned.
TEST(Outlook, WithoutEarlierYearsFollowsTheTableOfItsMeter) {
  const auto gas = outlookOf(Meter::Gas, courseWith(kJanuary2025, {170, 150}), 2, {});
  EXPECT_NEAR(gas->year, 999.9, 1e-9);
  EXPECT_NEAR(gas->months[9], 80, 1e-9);
  const auto fromJuly =
      outlookOf(Meter::Gas, courseWith(kJanuary2025 + std::chrono::months(6), {13.3}), 1, {});
  EXPECT_NEAR(fromJuly->months[6], 170, 1e-9);
  const auto water = outlookOf(Meter::Water, courseWith(kJanuary2024, {31}), 1, {});
  EXPECT_NEAR(water->months[1], 29, 1e-9);
  EXPECT_NEAR(water->year, 366, 1e-9);
  const auto power = outlookOf(Meter::Day, courseWith(kJanuary2025, {100}), 1, {});
  EXPECT_NEAR(power->months[6] / 100, 0.62886, 1e-5);  // July beside January
  EXPECT_FALSE(outlookOf(Meter::Day, Course{kJanuary2025, {}}, 0, {}));
}

TEST(Outlook, MixesSeasonAndLevelByTheStatedWeights) {
  const Weights& weights = weightsOf(Meter::Water);
  Course july = evenly(kJanuary2024, 0);
  july.months[6] = 120;
  const auto outlook = outlookOf(Meter::Water, courseWith(kJanuary2025, {31}), 1, {july});
  const double own = 1 / (1 + weights.ownYears);
  EXPECT_NEAR(outlook->ownSeason, own, 1e-12);
  const double january = (1 - own) * 31 / 365;
  const double soFar = january / (january + weights.soFar);
  EXPECT_NEAR(outlook->soFar, soFar, 1e-12);
  const double level = soFar * 31 / january + (1 - soFar) * 120;
  EXPECT_NEAR(outlook->months[6], (own + (1 - own) * 31 / 365) * level, 1e-9);
}

TEST(Outlook, TrustsTheLatestYearMost) {
  const std::vector<Course> falling = {evenly(kJanuary2024, 20), evenly(kJanuary2024, 10)};
  const std::vector<Course> rising = {falling[1], falling[0]};
  const Course none = evenly(kJanuary2025, 0);
  EXPECT_LT(outlookOf(Meter::Water, none, 0, falling)->year, 160);
  EXPECT_GT(outlookOf(Meter::Water, none, 0, rising)->year, 200);
}

TEST(Outlook, NarrowsWithEveryMonthAndEndsAtWhatWasRead) {
  const std::vector<Course> earlier = {evenly(kJanuary2024, 10)};
  const Course year = evenly(kJanuary2025, 11);
  double width = 1e9;
  for (int read = 0; read <= kMonths; ++read) {
    const auto outlook = outlookOf(Meter::Water, year, read, earlier);
    EXPECT_LE(outlook->low, outlook->year);
    EXPECT_GE(outlook->low, 11.0 * read);
    EXPECT_LT(outlook->high - outlook->low, width) << read;
    width = outlook->high - outlook->low;
  }
  EXPECT_EQ(width, 0);
  EXPECT_EQ(outlookOf(Meter::Water, year, kMonths, earlier)->year, 132);
}

// A household whose years differ much has a wider range than one whose years are alike.
TEST(Outlook, TakesItsRangeFromTheSpreadOfTheOwnYears) {
  const auto width = [](double other) {
    const auto outlook = outlookOf(Meter::Gas, evenly(kJanuary2025, 0), 0,
                                   {evenly(kJanuary2024, other), evenly(kJanuary2024, 100),
                                    evenly(kJanuary2024, other), evenly(kJanuary2024, 100)});
    return (outlook->high - outlook->low) / outlook->year;
  };
  EXPECT_GT(width(180), 1.5 * width(100));
}

TEST_F(ForecastOfTheSample, OfAReadYearIsItsBill) {
  const YearFolder read = folder();
  const Forecast forecast = forecastOf(read.years.back(), read);
  EXPECT_EQ(base::formatMoney(forecast.gross), "4.233,37");
  EXPECT_EQ(base::formatMoney(forecast.balance), "105,37");
  EXPECT_FALSE(forecast.utilities[Utility::Gas]->payment);
}

TEST_F(ForecastOfTheSample, IsPrintedAndWrittenAsApproved) {
  const YearFolder read = folder();
  const Forecast forecast = forecastOf(read.years.back(), read, 9);
  EXPECT_TRUE(matchesGolden("forecast-2025-09.txt", textOf(forecast)));
  EXPECT_TRUE(matchesGolden("forecast-2025-09.csv", reports::toCsv(csvTableOf(forecast))));
}

TEST_F(ForecastOfTheSample, AsOfAMonthKnowsNothingOfLaterOnes) {
  const YearFolder whole = folder();
  const std::string expected = textOf(forecastOf(whole.years.back(), whole, 9));
  endAt("Verbrauch2025.kwd", 9);
  const YearFolder ended = folder();
  EXPECT_EQ(textOf(forecastOf(ended.years.back(), ended)), expected);
  EXPECT_EQ(textOf(forecastOf(ended.years.back(), ended, 12)), expected);
  // The year before knows none before it, and no later one either.
  const auto first = forecastOf(ended.years.front(), ended, 3);
  EXPECT_TRUE(first.meters[Meter::Gas]->ownYears.empty());
}

TEST_F(ForecastOfTheSample, PricesAndPaymentsHoldAsEnteredElseAsTheLast) {
  endAt("Verbrauch2025.kwd", 9);
  const auto set = [&](double october, double price) {
    edit("Verbrauch2025.kwd", [=](yearbook::YearRows& rows) -> base::Result<void> {
      for (int i = 9; i < 12; ++i) {
        const Money advance = Money::roundHalfEven(i == 9 ? october : 0);
        if (auto put = rows.adoGas.setMoney(i, yearbook::gas::advance, advance); !put) return put;
        if (auto put = rows.adoGas.setNumber(i, yearbook::gas::price, i == 9 ? price : 0); !put)
          return put;
      }
      return {};
    });
  };
  set(0, 0);
  const YearFolder asLast = folder();
  const auto last = forecastOf(asLast.years.back(), asLast);
  EXPECT_EQ(base::formatMoney(last.utilities[Utility::Gas]->advances), "1.704,00");
  set(200, 20);
  const YearFolder entered = folder();
  const auto now = forecastOf(entered.years.back(), entered);
  EXPECT_EQ(base::formatMoney(now.utilities[Utility::Gas]->advances), "1.878,00");
  const Outlook& gas = now.meters[Meter::Gas]->outlook;
  const double rest = gas.months[9] + gas.months[10] + gas.months[11];
  EXPECT_NEAR((now.meters[Meter::Gas]->net - last.meters[Meter::Gas]->net).toDouble(),
              rest * 10.523 * (20 - 9.25) / 100, 0.001);
  // Nine payments of 142 euro have been made; three are left.
  const UtilityForecast& utility = *now.utilities[Utility::Gas];
  EXPECT_NEAR(utility.payment->toDouble(), (utility.gross.toDouble() - 9 * 142) / 3, 1e-4);
  EXPECT_EQ(utility.from, "Oktober");
}

TEST_F(ForecastOfTheSample, RestsOnCompleteYearsOnly) {
  endAt("Verbrauch2024.kwd", 9);
  const YearFolder read = folder();
  const auto forecast = forecastOf(read.years.back(), read, 3);
  EXPECT_TRUE(forecast.meters[Meter::Gas]->ownYears.empty());
}

TEST_F(ForecastOfTheSample, HasTheBaseFeeAlsoWhereOnlyTheNightTariffIsUsed) {
  edit("Verbrauch2025.kwd", [](yearbook::YearRows& rows) -> base::Result<void> {
    for (int i = 0; i < kMonths; ++i)
      for (const auto* field : {&yearbook::strom::dayReading, &yearbook::strom::dayConsumption,
                                &yearbook::strom::dayAmount})
        if (auto set = rows.adoStrom.setNumber(i, *field, 0); !set) return set;
    return {};
  });
  ASSERT_TRUE(disk.remove(pathOf("Verbrauch2024.kwd")));
  const YearFolder read = folder();
  const auto forecast = forecastOf(read.years.back(), read);
  EXPECT_EQ(base::formatMoney(forecast.meters[Meter::Day]->net), "162,00");
  EXPECT_EQ(base::formatMoney(forecast.utilities[Utility::Electricity]->gross), "621,95");
}

TEST_F(ForecastOfTheSample, OfAnEmptyYearWithoutOthersSaysSo) {
  const auto empty = support::MemoryFileSystem({{"/leer/Neu.kwd", support::emptyYear()}});
  auto disk2 = empty;
  const auto year = readYear(disk2, "/leer/Neu.kwd", false);
  ASSERT_TRUE(year);
  const auto forecast = forecastOf(*year, {});
  EXPECT_EQ(textOf(forecast), "Noch keine Ablesung und kein früheres Jahr\n");
  EXPECT_TRUE(basisOf(forecast).empty());
}

// Households that the weights were not found on.
class LookingBack : public testing::TestWithParam<std::uint32_t> {};

TEST_P(LookingBack, OursIsNearerThanEachOtherWayAndNeverFarFromTheBest) {
  using made::Way;
  const auto errors = made::backtest(made::makeHouseholds(30, GetParam()));
  for (const Meter meter : kMeters) {
    const made::MeterErrors& meters = errors[meter];
    for (const Way way : {Way::EvenDays, Way::LastYear, Way::Table})
      EXPECT_LT(meters.mean(Way::Forecast), meters.mean(way)) << factsOf(meter).name;
    for (int month = 0; month < kMonths; ++month) {
      double best = meters.at(Way::EvenDays, month);
      for (const Way way : {Way::LastYear, Way::Table})
        best = std::min(best, meters.at(way, month));
      EXPECT_LE(meters.at(Way::Forecast, month), 1.1 * best) << factsOf(meter).name << month + 1;
    }
    EXPECT_NEAR(meters.covered, 0.8, 0.1) << factsOf(meter).name;
  }
}
INSTANTIATE_TEST_SUITE_P(OnOtherHouseholds, LookingBack, testing::Range(101U, 109U));

TEST(LookingBackTable, InTheDocumentsIsWhatComesOut) {
  std::ifstream file(std::string(KALVIRA_TEST_SOURCES) + "/../docs/prognose.md", std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  EXPECT_THAT(text.str(), HasSubstr(made::asTable(made::backtest(made::makeHouseholds(30, 101)))));
}
