#include "reports/DetailTable.h"

#include <gtest/gtest.h>

#include "reports/GridText.h"
#include "support/Golden.h"
#include "support/SampleYears.h"

namespace {

using base::Money;
using reports::DetailInput;
using reports::Grid;
using reports::Meter;
using reports::MeterChoice;

constexpr MeterChoice kAll = {true, true, true, true, true};
constexpr MeterChoice only(Meter meter) {
  MeterChoice choice{};
  choice[meter] = true;
  return choice;
}

std::vector<std::string> rowTexts(const Grid& grid, int row) {
  std::vector<std::string> texts;
  texts.reserve(static_cast<std::size_t>(grid.columns()));
  for (int column = 0; column < grid.columns(); ++column) texts.push_back(grid.text(row, column));
  return texts;
}

int rowOf(const Grid& grid, const std::string& label) {
  for (int row = 0; row < grid.rows(); ++row)
    if (grid.text(row, 0) == label) return row;
  return -1;
}

using Texts = std::vector<std::string>;

TEST(DetailTable, WithNothingTickedOnlyTheTitlesRemain) {
  const Grid grid = buildDetailTable(sample::detail2025(), MeterChoice{});
  ASSERT_EQ(grid.rows(), 2);
  EXPECT_EQ(grid.text(0, 0), "Verbrauchs-Abrechnung  14 November, 2026");
  EXPECT_EQ(grid.text(1, 0), "Jahresübersicht alle Beträge in Euro");
}

TEST(DetailTable, DayElectricityHasMonthsSumsBaseFeeAndTotal) {
  const Grid grid = buildDetailTable(sample::detail2024(), only(Meter::Day));
  EXPECT_EQ(rowTexts(grid, 3),
            Texts({"Strom", "Verbrauch in kWh", "Cent Je Einheit", "Netto", "MwSt", "Brutto"}));
  EXPECT_EQ(rowTexts(grid, 4), Texts({"Januar", "299,00", "30,40", "90,90", "17,27", "108,17"}));
  EXPECT_EQ(rowTexts(grid, 16), Texts({"Summen ", "3.073,00", "", "921,94", "175,17", "1.097,11"}));
  EXPECT_EQ(rowTexts(grid, 17), Texts({"Grundgebühr", "", "", "154,80", "29,41", "184,21"}));
  EXPECT_EQ(rowTexts(grid, 18), Texts({"Summe Gesamt", "", "", "1.076,74", "204,58", "1.281,33"}));
  EXPECT_EQ(grid.rows(), 19);
}

TEST(DetailTable, NightTariffHasNeitherBaseFeeNorTotal) {
  const Grid grid = buildDetailTable(sample::detail2024(), only(Meter::Night));
  EXPECT_EQ(grid.text(grid.rows() - 1, 0), "Summen ");
  EXPECT_EQ(rowOf(grid, "Grundgebühr"), -1);
}

TEST(DetailTable, BlocksStandInTheirOrderWithTheirHeadings) {
  const Grid grid = buildDetailTable(sample::detail2025(), kAll);
  const int water = rowOf(grid, "Wasser");
  EXPECT_EQ(rowTexts(grid, water),
            Texts({"Wasser", "Verbrauch in m³", "Euro Je m³", "Netto", "MwSt", "Brutto"}));
  EXPECT_EQ(rowTexts(grid, rowOf(grid, "Gas")),
            Texts({"Gas", "Verbrauch in kWs", "Cent Je kWs", "Netto", "MwSt", "Brutto"}));
  EXPECT_LT(rowOf(grid, "Strom"), rowOf(grid, "Nachtstrom"));
  EXPECT_LT(rowOf(grid, "Nachtstrom"), water);
  EXPECT_LT(water, rowOf(grid, "Abwasser"));
  EXPECT_LT(rowOf(grid, "Abwasser"), rowOf(grid, "Gas"));
}

TEST(DetailTable, FlatRateTakesTheFreeKwhOffBeforeTheBaseFee) {
  DetailInput input = sample::detail2025();
  input.flatRate.on = true;
  input.flatRate.freeKwh = 1500;
  const Grid grid = buildDetailTable(input, kAll);
  const int row = rowOf(grid, "Pauschale");
  EXPECT_EQ(rowTexts(grid, row),
            Texts({"Pauschale", "-1.500,00", "", "-433,50", "-82,37", "-515,87"}));
  EXPECT_EQ(rowTexts(grid, row + 1),
            Texts({"Verbrauch", "1.493,00", "", "437,12", "83,05", "520,17"}));
  EXPECT_EQ(rowTexts(grid, row + 3), Texts({"Summe Gesamt", "", "", "599,12", "113,83", "712,95"}));
  input.flatRate.freeKwh = 0;
  EXPECT_EQ(rowOf(buildDetailTable(input, kAll), "Pauschale"), -1);
}

TEST(DetailTable, FreshYearShowsMonthsWithoutFigures) {
  const Grid grid = buildDetailTable(sample::detailFresh(), only(Meter::Gas));
  EXPECT_EQ(rowTexts(grid, 4), Texts({"Januar", "", "", "", "", ""}));
  EXPECT_EQ(rowTexts(grid, 18), Texts({"Summe Gesamt", "", "", "0,00", "0,00", "0,00"}));
}

TEST(GridText, DetailedMonthsAsApproved) {
  const Grid grid = buildDetailTable(sample::detail2025(), kAll);
  EXPECT_TRUE(matchesGolden("detail-2025.csv", toCsv(grid)));
  EXPECT_TRUE(matchesGolden("detail-2025.txt", toPlainText(grid)));
}

TEST(GridText, CsvKeepsEveryDecimalOfAColumnAndQuotesWhatASpreadsheetWouldTakeApart) {
  Grid grid(3, 4);
  grid.column(0).format = "#,##0.00";
  grid.cell(0, 0).value = Money::roundHalfEven(1234.5678);
  grid.cell(0, 1).value = 10483.5;
  grid.cell(0, 2).value = "a;\"b\"";
  grid.cell(0, 3).value = "=1+1";
  grid.cell(1, 0).value = Money::roundHalfEven(-3);
  grid.cell(1, 1).value = "Summe";
  grid.cell(1, 2).value = "Summe";
  grid.mergeEqualNeighbours(1);
  grid.cell(2, 1).value = 7.0;
  EXPECT_EQ(toCsv(grid),
            "\xEF\xBB\xBF"
            "1234,5678;10483,5;\"a;\"\"b\"\"\";\"'=1+1\"\r\n-3,0000;Summe;;\r\n;7,0;;\r\n");
}

TEST(GridText, ClipboardFormsShowWhatTheCellsShow) {
  Grid grid(2, 3);
  grid.column(1).hidden = true;
  grid.column(2).format = "#,##0.00";
  grid.column(2).alignment = reports::Alignment::RightCenter;
  grid.cell(0, 0).value = "Kopf & <Fuß>";
  grid.cell(0, 0).bold = true;
  grid.merge({0, 0, 0, 2});
  grid.cell(1, 0).value = "Zeile\teins";
  grid.cell(1, 1).value = "verborgen";
  grid.cell(1, 2).value = Money::roundHalfEven(1234.567);
  EXPECT_EQ(toTabSeparated(grid), "Kopf & <Fuß>\t\r\nZeile eins\t1.234,57\r\n");
  EXPECT_EQ(toClipboardHtml(grid),
            "<table>\n<tr><td colspan=\"2\"><b>Kopf &amp; &lt;Fuß&gt;</b></td></tr>\n"
            "<tr><td>Zeile\teins</td><td align=\"right\">1.234,57</td></tr>\n</table>\n");
}

}  // namespace
