#include "analysis/AllYears.h"

#include "HouseholdFixture.h"
#include "reports/GridText.h"
#include "support/Golden.h"
#include "yearbook/YearRows.h"

using namespace analysis;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class AllYears : public HouseholdFixture {
 protected:
  static std::vector<std::string> names(const YearFolder& folder) {
    std::vector<std::string> names;
    for (const Year& year : folder.years) names.push_back(year.name);
    return names;
  }
  void setStartDate(const std::string& name, const std::string& date) {
    edit(name, [&](yearbook::YearRows& rows) {
      return rows.adoZStaende.setText(0, yearbook::zstaende::startDate, date);
    });
  }
};

}  // namespace

TEST_F(AllYears, OfTheSampleHouseholdAreItsBills) {
  const YearFolder read = folder();
  EXPECT_TRUE(matchesGolden("all-years.csv", reports::toCsv(csvTableOf(figuresOf(read)))));
  EXPECT_TRUE(matchesGolden("all-years.txt", reports::toPlainText(tableOf(figuresOf(read)))));
  const YearFigures last = figuresOf(read).back();
  EXPECT_EQ(base::formatMoney(last.balance), "105,37");
  EXPECT_EQ(base::formatMoney(last.gross), "4.233,37");
  EXPECT_EQ(last.until(), "");
}

TEST_F(AllYears, AnIncompleteYearIsComparedOverItsOwnMonths) {
  endAt("Verbrauch2025.kwd", 9);
  const YearFolder read = folder();
  const YearFigures last = figuresOf(read).back();
  EXPECT_EQ(last.until(), "bis September");
  const MeterFigures& gas = last.meters[Meter::Gas];
  EXPECT_EQ(gas.months, 9);
  EXPECT_EQ(gas.consumption, 11033 - 10114);
  EXPECT_NEAR(*gas.change, (11033.0 - 10114) / (9612 - 8764) - 1, 1e-12);
  EXPECT_NEAR(*gas.perDay, (11033.0 - 10114) / 273, 1e-12);
  // The year before has twelve months of its own.
  EXPECT_NEAR(*figuresOf(read).front().meters[Meter::Gas].perDay, 1350.0 / 366, 1e-12);
}

// The payments of the whole year have been entered, as one does in January.
TEST_F(AllYears, AYearUnderWayStandsAsOfItsLastReading) {
  const auto stand = [&] { return standOf(folder().years.back()); };
  EXPECT_EQ(stand(), "vollständig, Nachzahlung 105,37 Euro");
  endAt("Verbrauch2025.kwd", 10);
  EXPECT_EQ(stand(), "bis Oktober, Guthaben 119,73 Euro");
  endAt("Verbrauch2025.kwd", 1);
  EXPECT_EQ(stand(), "bis Januar, Nachzahlung 188,26 Euro");
}

// The year before ended early as well: what only one of them has is left out on both sides.
TEST_F(AllYears, ACompleteYearIsComparedOverTheMonthsOfTheOneBefore) {
  endAt("Verbrauch2024.kwd", 9);
  const YearFolder read = folder();
  EXPECT_NEAR(*figuresOf(read).back().meters[Meter::Gas].change,
              (11033.0 - 10114) / (9612 - 8764) - 1, 1e-12);
}

// Readings once a quarter: the months between count as read.
TEST_F(AllYears, MonthsEndWithTheLastOneThatWasRead) {
  edit("Verbrauch2025.kwd", [](yearbook::YearRows& rows) -> base::Result<void> {
    for (const int month : {3, 4}) {
      if (auto set = rows.adoGas.setNumber(month, yearbook::gas::reading, 0); !set) return set;
      if (auto set = rows.adoGas.setNumber(month, yearbook::gas::consumption, 0); !set) return set;
    }
    return {};
  });
  const YearFolder read = folder();
  EXPECT_TRUE(yearNamed(read, "Verbrauch2025").isComplete(Meter::Gas));
}

TEST_F(AllYears, CountMonthsThatHaveAConsumptionAlone) {
  edit("Verbrauch2025.kwd", [](yearbook::YearRows& rows) -> base::Result<void> {
    for (int i = 0; i < kMonths; ++i)
      if (auto set = rows.adoGas.setNumber(i, yearbook::gas::reading, 0); !set) return set;
    return {};
  });
  const YearFolder read = folder();
  EXPECT_TRUE(yearNamed(read, "Verbrauch2025").isComplete(Meter::Gas));
}

TEST_F(AllYears, GoByStartDateThenNameThenDateOfTheFile) {
  setStartDate("Verbrauch2025.kwd", "01.07.2023");
  setStartDate("Verbrauch2024.kwd", "");
  copy("Verbrauch2024.kwd", "Haushalt.kwd");
  const YearFolder read = folder();
  EXPECT_THAT(names(read), ElementsAre("Verbrauch2025", "Verbrauch2024", "Haushalt"));
  EXPECT_EQ(startText(read.years[0]), "ab 01.07.2023");
  EXPECT_EQ(read.years[0].label(), "2023/24");
  EXPECT_EQ(startText(read.years[1]), "Jahr aus dem Namen");
  EXPECT_EQ(read.years[1].label(), "2024");
  EXPECT_EQ(startText(read.years[2]), "Jahr aus dem Dateidatum");
}

TEST_F(AllYears, AreComparedWithTheYearBeforeOnly) {
  setStartDate("Verbrauch2024.kwd", "01.01.2023");
  YearFolder read = folder();
  EXPECT_EQ(read.yearBefore(read.years.back()), nullptr);
  EXPECT_FALSE(figuresOf(read).back().meters[Meter::Gas].change);
  copy("Verbrauch2024.kwd", "Kopie.kwd");
  setStartDate("Kopie.kwd", "15.01.2024");
  read = folder();
  EXPECT_EQ(read.yearBefore(read.years.back()), &read.years[1]);
}

TEST_F(AllYears, NameADamagedYearAndAnEmptyOneAndReadTheOthers) {
  disk.put("/daten/Verbrauch.kwd", support::emptyYear());
  disk.put("/daten/Kaputt.KWD", base::Bytes(100, 7));
  ASSERT_TRUE(disk.makeFolder("/daten/Ordner.kwd"));
  const YearFolder read = folder();
  EXPECT_EQ(read.years.size(), 2U);
  EXPECT_THAT(read.empty, ElementsAre("Verbrauch.kwd"));
  EXPECT_EQ(summaryOf(read), "2 Jahre, dazu 1 leeres (Verbrauch.kwd)");
  ASSERT_EQ(remarksOf(read).size(), 1U);
  EXPECT_THAT(remarksOf(read)[0], HasSubstr("Kaputt.KWD fehlt: "));
  EXPECT_FALSE(readFolder(disk, "/nirgends/"));
}

TEST_F(AllYears, ReadTheOpenYearFromItsWindowAndChangeNoFile) {
  const auto session =
      yearbook::YearSession::open(disk, pathOf("Verbrauch2025.kwd"), "/daten/", clock);
  ASSERT_TRUE(session);
  const auto before = disk.contents();
  EXPECT_EQ(folder().damaged.size(), 1U);  // somebody else has it
  const auto read = readFolder(disk, "/daten/", session->get());
  ASSERT_TRUE(read);
  EXPECT_EQ(read->years.size(), 2U);
  EXPECT_EQ(disk.contents(), before);
}

TEST_F(AllYears, BaseFeesStandWithTheFirstMeterOfTheirUtility) {
  edit("Verbrauch2025.kwd", [](yearbook::YearRows& rows) {
    return rows.adoZStaende.setMoney(0, yearbook::zstaende::baseFeeWasteWater,
                                     Money::roundHalfEven(50));
  });
  const YearFolder read = folder();
  const YearFigures last = figuresOf(read).back();
  EXPECT_EQ(base::formatMoney(last.meters[Meter::Water].net), "424,55");
  EXPECT_EQ(base::formatMoney(last.meters[Meter::Water].gross), "450,77");
  EXPECT_EQ(base::formatMoney(last.meters[Meter::WasteWater].gross), "362,95");
  EXPECT_EQ(base::formatMoney(*last.meters[Meter::Water].balance), "21,72");
  EXPECT_FALSE(last.meters[Meter::WasteWater].balance);
}

TEST(YearInName, IsTheFirstRunOfFourDigitsThatCanBeAYear) {
  const std::pair<const char*, std::optional<int>> cases[] = {
      {"Verbrauch2025", 2025}, {"2024 und 2025", 2024}, {"Nr 12345", {}}, {"Haus 0815 2019", 2019},
      {"Jahr 1899", {}},       {"Gas-2099", 2099},      {"", {}},         {"25", {}}};
  for (const auto& [name, year] : cases) EXPECT_EQ(yearInName(name), year) << name;
}
