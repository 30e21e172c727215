#include "reports/OverviewBuilder.h"

#include <gtest/gtest.h>

#include "reports/GridText.h"
#include "reports/YearResults.h"
#include "support/Golden.h"
#include "support/SampleYears.h"

namespace {

using base::Money;
using reports::Grid;
using reports::Meter;
using reports::OverviewInput;
using reports::Utility;

// The six texts of a row: label and amount of electricity, water and gas.
std::vector<std::string> rowTexts(const Grid& grid, int row) {
  std::vector<std::string> texts;
  for (const int column : {0, 1, 3, 4, 6, 7}) texts.push_back(grid.text(row, column));
  return texts;
}

using Texts = std::vector<std::string>;

TEST(Overview, ShowsTheBillOfTheFirstSampleYear) {
  const Grid grid = buildOverview(sample::overview2024());
  ASSERT_EQ(grid.rows(), 32);
  EXPECT_EQ(grid.text(0, 0), "Verbrauchs-Abrechnung  2026  /  Verbrauch2024");
  EXPECT_EQ(grid.mergedRange(0, 3), (reports::CellRange{0, 0, 0, 7}));
  EXPECT_EQ(grid.text(1, 7), "Jahresübersicht alle Beträge in Euro");
  EXPECT_EQ(rowTexts(grid, 2), Texts({"Strom", "Strom", "Wasser", "Wasser", "Gas", "Gas"}));
  EXPECT_EQ(grid.mergedRange(2, 4), (reports::CellRange{2, 3, 2, 4}));
  EXPECT_EQ(rowTexts(grid, 3), Texts({"Januar", "136,83", "Januar", "49,60", "Januar", "222,36"}));
  EXPECT_EQ(grid.text(14, 6), "Dezember");
  EXPECT_EQ(rowTexts(grid, 16),
            Texts({"Summe", "1.306,54", "Summe", "620,00", "Summe", "1.279,76"}));
  EXPECT_EQ(rowTexts(grid, 18),
            Texts({"Grundgebühr", "154,80", "Grundg. Wasser", "102,00", "Grundgebühr", "129,60"}));
  EXPECT_EQ(rowTexts(grid, 19), Texts({" ", " ", "Grundg. Abwasser", "0,00", " ", " "}));
  EXPECT_EQ(rowTexts(grid, 21),
            Texts({"Summe", "1.461,34", "Summe", "722,00", "Summe", "1.409,36"}));
  EXPECT_EQ(rowTexts(grid, 23), Texts({"19% MwSt Strom", "277,65", "7% MwSt Wasser", "25,52",
                                       "19% MwSt Gas", "267,78"}));
  EXPECT_EQ(rowTexts(grid, 24), Texts({" ", "", "0% MwSt Abwasser", "0,00", " ", ""}));
  EXPECT_EQ(rowTexts(grid, 26),
            Texts({"Summe", "1.738,99", "Summe", "747,52", "Summe", "1.677,14"}));
  EXPECT_EQ(rowTexts(grid, 28),
            Texts({"Abschläge", "1.800,00", "Abschläge", "756,00", "Abschläge", "1.560,00"}));
  EXPECT_EQ(rowTexts(grid, 30),
            Texts({"Saldo Strom", "-61,01", "Saldo Wasser", "-8,49", "Saldo Gas", "117,14"}));
  for (const int row : {15, 17, 20, 22, 25, 27, 29, 31})
    EXPECT_EQ(rowTexts(grid, row), Texts(6)) << row;
}

TEST(Overview, SecondSampleYearEndsInItsBalances) {
  const Grid grid = buildOverview(sample::overview2025());
  EXPECT_EQ(rowTexts(grid, 21),
            Texts({"Summe", "1.393,27", "Summe", "737,50", "Summe", "1.522,40"}));
  EXPECT_EQ(rowTexts(grid, 30),
            Texts({"Saldo Strom", "25,99", "Saldo Wasser", "-28,28", "Saldo Gas", "107,66"}));
}

TEST(Overview, FlatRateAddsTwoRowsAndChargesWhatGoesBeyond) {
  const Grid grid = buildOverview(sample::overviewFlatRate());
  ASSERT_EQ(grid.rows(), 34);
  EXPECT_EQ(rowTexts(grid, 17), Texts({"Pauschal 1500 kWh", "-433,50", "", "", "", ""}));
  // 1.231,27 for all months less 1.500 kWh at 28,90 cent.
  EXPECT_EQ(rowTexts(grid, 18), Texts({"Mehrverbrauch ist", "797,77", "", "", "", ""}));
  EXPECT_EQ(grid.text(20, 0), "Grundgebühr");
  EXPECT_EQ(grid.text(23, 1), "959,77");
  EXPECT_EQ(grid.text(32, 0), "Saldo Strom");
}

TEST(Overview, FlatRateWithoutFreeKwhChangesNothing) {
  OverviewInput input = sample::overview2025();
  input.flatRate.on = true;
  for (const std::optional<double> kwh : {std::optional(0.0), std::optional(-100.0), {}}) {
    input.flatRate.freeKwh = kwh;
    EXPECT_EQ(toPlainText(buildOverview(input)),
              toPlainText(buildOverview(sample::overview2025())));
  }
}

TEST(Overview, ExtraConsumptionMayBeNegative) {
  OverviewInput input = sample::overviewFlatRate();
  input.flatRate.freeKwh = 9000;
  const Grid grid = buildOverview(input);
  EXPECT_EQ(grid.text(18, 1), "-1.369,73");
  EXPECT_EQ(grid.text(23, 1), "-1.207,73");
}

TEST(Overview, MonthsAndYearTotalsAreShownAsTheyAre) {
  OverviewInput input = sample::overview2025();
  input.months[Utility::Electricity][5].amount = Money::roundHalfEven(1000);
  const Grid grid = buildOverview(input);
  EXPECT_EQ(grid.text(16, 1), "2.144,84");
  EXPECT_EQ(grid.text(21, 1), "1.393,27");
}

TEST(Overview, MissingValuesLeaveTheirCellsEmptyAndAddNothing) {
  OverviewInput input = sample::overview2025();
  input.months[Utility::Gas][2].amount.reset();
  input.baseFees[Meter::Gas].reset();
  input.vat[Meter::Gas] = {};
  input.advances[Utility::Gas].reset();
  input.amounts[Meter::Water].reset();
  const Grid grid = buildOverview(input);
  EXPECT_EQ(grid.text(5, 7), "");
  EXPECT_EQ(grid.text(18, 7), "");
  EXPECT_EQ(grid.text(23, 6), "% MwSt Gas");
  EXPECT_EQ(grid.text(23, 7), "");
  EXPECT_EQ(grid.text(28, 7), "");
  EXPECT_EQ(grid.text(30, 7), "1.388,00");
  EXPECT_EQ(grid.text(16, 4), "362,95");
}

TEST(Overview, RateReadsAsEnteredAndShortNamesLeaveTheTitleOpen) {
  OverviewInput input = sample::overview2025();
  input.vat[Meter::Water] = {"7,5", 7.5};
  input.yearFileName = "kwd";
  const Grid grid = buildOverview(input);
  EXPECT_EQ(grid.text(23, 3), "7,5% MwSt Wasser");
  EXPECT_EQ(grid.text(0, 0), "Verbrauchs-Abrechnung  2026  /  ");
}

TEST(Overview, IsLaidOutForItsWholeWidth) {
  const reports::TextWidth broad = [](std::string_view text, const reports::CellFont&) {
    return static_cast<int>(text.size()) * 300;
  };
  for (const auto& [measure, spacers] :
       {std::pair(reports::TextWidth(reports::plainTextWidth), true), std::pair(broad, false)}) {
    const Grid grid = buildOverview(sample::overview2024(), measure);
    for (const int column : {0, 3, 6}) EXPECT_EQ(grid.column(column).width, 1900);
    EXPECT_EQ(grid.column(2).width, grid.column(5).width);
    EXPECT_EQ(grid.column(2).width > 0, spacers);
    if (spacers) {
      EXPECT_NEAR(grid.totalWidth(), 9400, 1);
    }
  }
}

TEST(Overview, BandsAndTitlesLookAsAgreed) {
  const Grid grid = buildOverview(sample::overview2024());
  EXPECT_EQ(grid.row(0).height, 355);
  EXPECT_EQ(grid.row(1).height, 455);
  EXPECT_EQ(grid.row(2).height, 355);
  for (int column = 0; column < 8; ++column) {
    EXPECT_EQ(grid.cell(0, column).pointSize, 12);
    EXPECT_TRUE(grid.cell(2, column).bold);
    EXPECT_EQ(grid.cell(2, column).fore, 0x800000U);
    for (const int row : {16, 21, 26}) {
      EXPECT_EQ(grid.cell(row, column).back, 0xC0FFFFU);
      EXPECT_EQ(grid.cell(row, column).lineBelow, 0xFF0000U);
    }
    EXPECT_EQ(grid.cell(30, column).back, 0xE0E0E0U);
    EXPECT_EQ(grid.cell(30, column).lineAbove, 0x800000U);
    EXPECT_TRUE(grid.cell(30, column).bold);
  }
  EXPECT_TRUE(grid.cell(16, 0).bold);
  EXPECT_FALSE(grid.cell(16, 1).bold);
}

TEST(Overview, AsPlainText) {
  EXPECT_TRUE(
      matchesGolden("overview-2024.txt", toPlainText(buildOverview(sample::overview2024()))));
  EXPECT_TRUE(matchesGolden("overview-flatrate.txt",
                            toPlainText(buildOverview(sample::overviewFlatRate()))));
  EXPECT_TRUE(
      matchesGolden("overview-fresh.txt", toPlainText(buildOverview(sample::overviewFresh()))));
}

TEST(PlainSummary, SaysHowTheYearStandsAndWhatWouldHaveFitted) {
  EXPECT_EQ(reports::plainSummary(sample::overview2025()),
            Texts({"Strom: Nachzahlung 25,99 €; passender Abschlag wäre 138,17 € im Monat.",
                   "Wasser: Guthaben 28,28 €; passender Abschlag wäre 63,64 € im Monat.",
                   "Gas: Nachzahlung 107,66 €; passender Abschlag wäre 150,97 € im Monat."}));
  OverviewInput input = sample::overview2025();
  input.monthsCovered[Utility::Water] = 0;
  input.monthsCovered[Utility::Gas] = 6;
  input.advancesCovered[Utility::Gas] = Money::roundHalfEven(1000);
  const auto sentences = reports::plainSummary(input);
  EXPECT_EQ(sentences[1], "Wasser: noch keine Ablesungen.");
  // 1.388,00 and six twelfths of 134,40, with 19 %; the payments of the other months do not count.
  EXPECT_EQ(sentences[2],
            "Gas: bis Juni Nachzahlung 731,69 €; Kosten bisher 288,62 € im Monat (Stand: 6 von "
            "12 Monaten, Abschläge und Grundgebühr anteilig).");
}

TEST(YearResults, AreWhatTheCardsSay) {
  OverviewInput input = sample::overview2025();
  input.monthsCovered[Utility::Gas] = 0;
  const auto results = reports::yearResults(input);
  EXPECT_EQ(results[Utility::Electricity].headline, "Nachzahlung 25,99 Euro");
  EXPECT_EQ(results[Utility::Electricity].sum, "1.657,99 brutto − 1.632,00 Abschläge");
  EXPECT_EQ(results[Utility::Electricity].fitting, "Passender Abschlag: 138,17 Euro im Monat");
  EXPECT_EQ(results[Utility::Electricity].standing, "");
  EXPECT_EQ(results[Utility::Water].kind, reports::YearResult::Kind::Credit);
  EXPECT_EQ(results[Utility::Water].headline, "Guthaben 28,28 Euro");
  EXPECT_EQ(results[Utility::Gas].headline, "noch keine Ablesungen");
  EXPECT_EQ(results[Utility::Gas].sum, "");
  input.monthsCovered[Utility::Water] = 1;
  input.advancesCovered[Utility::Water] = Money::roundHalfEven(900);
  const reports::YearResult water = reports::yearResults(input)[Utility::Water];
  // 267,75 and a twelfth of 106,80 with 7 %, and 362,95.
  EXPECT_EQ(water.headline, "Bis Januar: Guthaben 241,03 Euro");
  EXPECT_EQ(water.sum, "658,97 brutto − 900,00 Abschläge");
  EXPECT_EQ(water.fittingAdvance->toDouble(), 658.9655);
  EXPECT_EQ(water.standing, "Stand: 1 von 12 Monaten, Abschläge und Grundgebühr anteilig");
  EXPECT_EQ(water.doubt, "");
  input.unread[Utility::Water] = {Meter::WasteWater};
  input.unread[Utility::Gas] = {Meter::Gas};
  const auto doubtful = reports::yearResults(input);
  EXPECT_EQ(doubtful[Utility::Water].doubt, "Abwasser ist noch nicht abgelesen.");
  EXPECT_EQ(doubtful[Utility::Gas].doubt, "") << "the headline says it";
  EXPECT_NE(reports::plainSummary(input)[1].find(" Abwasser ist noch nicht abgelesen."),
            std::string::npos);
  EXPECT_EQ(reports::plainSummary(input)[2], "Gas: noch keine Ablesungen.");
}

}  // namespace
