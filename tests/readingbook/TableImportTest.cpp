#include "readingbook/TableImport.h"

#include <gmock/gmock.h>

using namespace readingbook;  // NOLINT(google-build-using-namespace)

namespace {

Date day(const char* text) {
  return *base::parseDate(text);
}

TableReadings read(std::string_view bytes, std::string_view name = "Ablesungen.csv") {
  const auto rows = readTable(bytes);
  return readingsOf(rows, guessColumns(rows, name));
}

// "2: Gas 31.01.2025 10354", and the problems.
std::vector<std::string> shown(const TableReadings& readings) {
  std::vector<std::string> lines;
  for (const TableEntry& row : readings.entries) {
    std::string line = std::to_string(row.line) + ": " + std::string(factsOf(row.meter).name) +
                       ' ' + formatReading(row.entry.reading);
    if (row.entry.newStart) line += " neu " + formatReading(*row.entry.newStart);
    if (!row.entry.remark.empty()) line += " (" + row.entry.remark + ')';
    lines.push_back(line);
  }
  for (const TableProblem& problem : readings.problems)
    lines.push_back(std::to_string(problem.line) + "! " + problem.reason);
  return lines;
}
using Lines = std::vector<std::string>;

TEST(TableImport, AnySeparatorEncodingAndDate) {
  const Lines expected = {"2: Strom 44.600 (früh)", "2: Gas 10.354,5 (früh)", "3: Strom 44.855"};
  EXPECT_EQ(shown(read("\xEF\xBB\xBF"
                       "Datum;Strom;Gas;Anmerkung\r\n31.01.2025;44.600;10.354,5;fr\xC3\xBCh\r\n"
                       "28.02.25;44855;;\r\n")),
            expected);
  EXPECT_EQ(shown(read("datum\tGAS\tAnmerkung\tstrom\n2025-01-31\t10354.5\tfr\xFCh\t44600\n\n"
                       "2025-02-28 18:30\t\t\t44855")),
            (Lines{"2: Strom 44.600 (früh)", "2: Gas 10.354,5 (früh)", "4: Strom 44.855"}));
  EXPECT_EQ(shown(read("Datum,Strom,Gas,Anmerkung\n31.1.2025,44600,\"10354,5\",\"fr\xC3\xBCh\"\n"
                       "28.2.2025,\"44.855\"\n")),
            expected);
}

TEST(TableImport, RowsComeInTheOrderOfTheirDays) {
  const auto readings = read("Datum;Gas\n28.02.2025;2\n31.01.2025;1\n");
  ASSERT_EQ(readings.entries.size(), 2U);
  EXPECT_EQ(readings.entries[0].entry.date, day("31.01.2025"));
  EXPECT_EQ(readings.entries[0].line, 3);
}

TEST(TableImport, WithoutHeadingsTheColumnsAreGuessed) {
  EXPECT_EQ(shown(read("31.01.2025;12;ja\n28.02.2025;13;nein\n", "Gaszähler.csv")),
            (Lines{"1: Gas 12", "2: Gas 13"}));
  EXPECT_EQ(shown(read("Tag;Stand m3\n31.01.2025;12\n", "/x/Abwasser 2025.csv")),
            (Lines{"2: Abwasser 12"}));
  EXPECT_EQ(shown(read("Datum;Stand\n31.01.2025;12\n", "nachtstrom.csv")),
            (Lines{"2: Nachtstrom 12"}));
  EXPECT_EQ(shown(read("31.01.2025,1,2,3,4,5\n")),
            (Lines{"1: Strom 1", "1: Nachtstrom 2", "1: Wasser 3", "1: Abwasser 4", "1: Gas 5"}));
  EXPECT_FALSE(guessColumns(readTable("31.01.2025;12\n"), "x.csv").anyMeter());
  EXPECT_EQ(guessColumns(readTable("nichts\n"), "gas.csv").date, TableColumns::kNone);
}

TEST(TableImport, TextAboveTheHeadingIsNoReading) {
  EXPECT_EQ(shown(read("Abrechnung;;\nJanuar;12,50;9\n\nDatum;Wasser;Strom neu;Strom\n"
                       "30.06.2025;503;12;45808\n")),
            (Lines{"5: Strom 45.808 neu 12", "5: Wasser 503"}));
}

TEST(TableImport, WhatCannotBeReadIsNamedWithItsLine) {
  EXPECT_EQ(shown(read("Datum;Gas;Strom;Strom neu\n31.02.2025;1;;\n;2;;\n31.03.2025;x;5;\n"
                       "30.04.2025;;;7\n31.05.2025;;-1;\n")),
            (Lines{"4: Strom 5", "2! „31.02.2025“ ist kein Datum.", "3! Das Datum fehlt.",
                   "5! Strom: Zum neuen Zähler fehlt der Endstand des alten.",
                   "6! Strom: Ein Zählerstand liegt zwischen 0 und 999.999.999.",
                   "4! „x“ ist keine Zahl."}));
}

TEST(TableImport, IntoTheBookWithEveryRefusalAndNothingTwice) {
  ReadingBook book;
  ASSERT_TRUE(book.add(Meter::Gas, {day("31.01.2025"), 100000}));
  PerMeter<Days> permitted;
  permitted.fill({day("01.12.2024"), day("31.01.2026")});
  const auto result = addTo(
      book, read("Datum;Gas\n31.01.2025;100\n28.02.2025;90\n31.03.2025;120\n01.02.2026;500\n"),
      permitted);
  EXPECT_EQ(result.alreadyThere, 1);
  EXPECT_EQ(result.added, 1);
  EXPECT_EQ(result.book.of(Meter::Gas).size(), 2U);
  ASSERT_EQ(result.problems.size(), 2U);
  EXPECT_EQ(result.problems[0].line, 3);
  EXPECT_EQ(result.problems[0].reason, "Gas: Niedriger als der Stand davor (100 am 31.01.2025).");
  EXPECT_EQ(result.problems[1].line, 5);
}

}  // namespace
