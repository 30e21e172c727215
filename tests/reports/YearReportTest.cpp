#include "reports/YearReport.h"

#include <gtest/gtest.h>

#include "SampleYear.h"
#include "reports/Exports.h"
#include "support/EmptyYear.h"
#include "support/Golden.h"
#include "support/MemoryFileSystem.h"

namespace {

using yearbook::Utility;

// Years typed through the program's own rules, not put together by the test.
class YearReport : public testing::Test {
 protected:
  std::unique_ptr<yearbook::YearSession> open(const std::string& name) {
    files_.put("/daten/" + name, support::emptyYear());
    auto year = yearbook::YearSession::open(files_, "/daten/" + name, "/daten/", clock_);
    EXPECT_TRUE(year);
    return std::move(*year);
  }

  support::MemoryFileSystem files_;
  base::FixedClock clock_{std::chrono::year(2026) / 11 / 14};
};

TEST_F(YearReport, SampleYearsGiveTheApprovedTables) {
  const auto first = open("Verbrauch2024.kwd");
  ASSERT_TRUE(sample::enter(*first, sample::year2024()));
  EXPECT_TRUE(matchesGolden("terminal-2024.txt", overviewText(reports::overviewInput(*first))));

  const auto second = open("Verbrauch2025.kwd");
  ASSERT_TRUE(sample::enter(*second, sample::year2025()));
  ASSERT_TRUE(exportHtml(files_, "/daten/a.html", reports::overviewInput(*second)));
  EXPECT_TRUE(matchesGolden("overview-2025.html", *files_.readText("/daten/a.html")));
  ASSERT_TRUE(exportCsv(files_, "/daten/a.csv", reports::detailInput(*second, clock_.today())));
  EXPECT_TRUE(matchesGolden("detail-2025.csv", *files_.readText("/daten/a.csv")));
}

TEST_F(YearReport, FreshYearHasNoReadings) {
  const auto input = reports::overviewInput(*open("Verbrauch.kwd"));
  EXPECT_EQ(input.currentYear, 2026);
  EXPECT_EQ(input.currentMonth, 11);
  EXPECT_EQ(input.monthsCovered[Utility::Electricity], 0);
  EXPECT_EQ(input.months[Utility::Electricity][11].month, "Dezember");
}

// A household with a well pays for waste water alone; rows of other programs may have no readings.
TEST_F(YearReport, TheReadingsOfEitherMeterCoverTheMonthsUpToTheLast) {
  const auto year = open("Verbrauch.kwd");
  ASSERT_TRUE(year->transact({}, [](yearbook::YearRows& rows) -> base::Result<void> {
    using namespace yearbook;
    if (auto set = rows.adoWasser.setNumber(0, wasser::wasteReading, 12); !set) return set;
    if (auto set = rows.adoWasser.setNumber(1, wasser::wasteConsumption, 3); !set) return set;
    for (int month : {0, 1, 2})
      if (auto set = rows.adoWasser.setMoney(month, *factsOf(Utility::Water).advance,
                                             base::Money::roundHalfEven(60 + month));
          !set)
        return set;
    return rows.adoStrom.setNumber(4, strom::nightReading, 9);
  }));
  const auto input = reports::overviewInput(*year);
  EXPECT_EQ(input.monthsCovered[Utility::Water], 2);
  EXPECT_EQ(input.monthsCovered[Utility::Electricity], 5);
  EXPECT_EQ(input.monthsCovered[Utility::Gas], 0);
  EXPECT_EQ(input.advancesCovered[Utility::Water].toDouble(), 60 + 61);
  EXPECT_EQ(input.advances[Utility::Water]->toDouble(), 60 + 61 + 62);
}

TEST_F(YearReport, ClearedUtilityShowsNoTotals) {
  const auto year = open("Verbrauch2024.kwd");
  ASSERT_TRUE(sample::enter(*year, sample::year2024()));
  ASSERT_TRUE(year->clear(Utility::Gas));
  const auto grid = buildOverview(reports::overviewInput(*year));
  EXPECT_EQ(grid.text(16, 7), "");
  EXPECT_EQ(grid.text(23, 6), "% MwSt Gas");
  EXPECT_EQ(grid.text(16, 4), "620,00");
}

}  // namespace
