#include "readingbook/BookOfYear.h"

#include <gmock/gmock.h>

#include "SampleYear.h"
#include "base/DateText.h"
#include "support/SampleYears.h"

using namespace readingbook;  // NOLINT(google-build-using-namespace)
using yearbook::Utility;

namespace {

constexpr char kBook[] = "/daten/Verbrauch2025_Ablesungen.dat";

// Every cell of the year, and the files of its meter changes.
std::vector<jet::Value> everything(const YearSession& year) {
  std::vector<jet::Value> cells;
  for (const auto* source :
       {&year.adoStrom, &year.adoWasser, &year.adoGas, &year.adoVerbrM, &year.adoZStaende})
    for (int row = 0; row < source->count(); ++row)
      for (const yearbook::Field* field : source->table().fields)
        cells.push_back(source->raw(row, *field));
  for (Meter meter : yearbook::kMeters)
    cells.push_back(year.files().readText(readings::meterChangePath(year, meter)).value_or("-"));
  return cells;
}

TableReadings tableOf(const std::string& text) {
  const auto rows = readTable(text);
  return readingsOf(rows, guessColumns(rows, "tabelle.csv"));
}

class BookOfYear : public testing::Test {
 protected:
  // 2025 as the household typed it, and again with its readings, start readings and changes gone.
  std::unique_ptr<YearSession> emptied(const std::string& name = "Verbrauch2025.kwd") {
    auto year = sample::openYear(disk, name);
    std::vector<readings::MeterEntries> none;
    none.reserve(std::size(yearbook::kMeters));
    for (Meter meter : yearbook::kMeters) none.push_back({meter, {}, {}, 0});
    EXPECT_TRUE(readings::takeOver(*year, {"leer"}, none));
    return year;
  }
  ImportReport imported(YearSession& year, const std::string& text) {
    auto report = importTable(year, tableOf(text));
    EXPECT_TRUE(report) << base::germanMessage(report.error());
    return report ? *report : ImportReport();
  }
  static double consumption(const YearSession& year, Meter meter) {
    return year.values().bill.meters[meter].consumption;
  }

  support::MemoryFileSystem disk;
};

TEST_F(BookOfYear, TheReadingsThatAreWrittenAsATableAreReadBackToTheSameYear) {
  support::MemoryFileSystem otherDisk;
  const auto typed = sample::openYear(otherDisk, "Verbrauch2025.kwd");
  const std::string table = readingsTable(*typed);
  EXPECT_THAT(table, testing::StartsWith(
                         "Datum;Strom;Strom neu;Nachtstrom;Nachtstrom neu;Wasser;Abwasser;Gas\r\n"
                         "31.12.2024;44309;;24371;;443;443;10114\r\n"));
  EXPECT_THAT(table, testing::HasSubstr("30.06.2025;45808;12;25157;4;503;503;10945\r\n"));
  const auto year = emptied();
  EXPECT_NE(everything(*year), everything(*typed));
  const ImportReport report = imported(*year, table);
  EXPECT_TRUE(report.problems.empty());
  EXPECT_EQ(everything(*year), everything(*typed));
  EXPECT_THAT(report.lines,
              testing::IsSupersetOf({"Strom:", "  Anfangsstand 31.12.2024: 44.309",
                                     "  Januar: 44.600", "  Zählerwechsel im Juni, Anfang 12"}));
  // Once more changes nothing.
  const auto again = imported(*year, table);
  EXPECT_THAT(again.lines, testing::Contains("  Januar: 44.600 (wie gespeichert)"));
  EXPECT_EQ(everything(*year), everything(*typed));
}

// Odd days in between, and the meters changed in the middle of June.
TEST_F(BookOfYear, ReadingsOfOddDaysAddUpToTheSameYear) {
  const auto year = emptied();
  const ImportReport report =
      imported(*year,
               "Datum;Strom;Strom neu;Nachtstrom;Nachtstrom neu;Wasser;Abwasser;Gas\n"
               "31.12.2024;44309;;24371;;443;443;10114\n"
               "09.02.2025;44700;;24600;;455;455;10420,5\n"
               "31.03.2025;45115;;24849;;471;471;10759\n"
               "17.06.2025;45808;12;25157;4;500;500;10940\n"
               "05.08.2025;260;;100;;517;517;10972,25\n"
               "31.12.2025;1506;;717;;562;562;11522\n");
  EXPECT_TRUE(report.problems.empty());
  EXPECT_EQ(consumption(*year, Meter::Day), 2993);
  EXPECT_EQ(consumption(*year, Meter::Night), 1499);
  EXPECT_EQ(consumption(*year, Meter::Water), 119);
  EXPECT_EQ(consumption(*year, Meter::WasteWater), 119);
  EXPECT_EQ(consumption(*year, Meter::Gas), 1408);
  EXPECT_EQ(storedMeter(*year, Meter::Day).readings[2], 45115);
  EXPECT_THAT(report.lines, testing::Contains("  Januar: 10.353 (errechnet)"));
}

TEST_F(BookOfYear, OneStepTakesTableMonthsAndBookBack) {
  const auto year = emptied();
  const auto before = everything(*year);
  imported(*year, "Datum;Gas\n31.12.2024;10114\n31.01.2025;10354\n");
  EXPECT_EQ(storedMeter(*year, Meter::Gas).startReading, 10114);
  EXPECT_EQ(consumption(*year, Meter::Gas), 240);
  EXPECT_TRUE(disk.exists(kBook));
  ASSERT_TRUE(year->undo());
  EXPECT_EQ(everything(*year), before);
  EXPECT_FALSE(disk.exists(kBook));
}

// Forty years with readings of five meters on every day.
TEST_F(BookOfYear, ALongBookCanBeChanged) {
  ReadingBook book;
  for (Meter meter : yearbook::kMeters) {
    const std::chrono::sys_days first(std::chrono::year(1985) / 1 / 1);
    for (int day = 0; day < 14610; ++day)
      ASSERT_TRUE(book.add(
          meter, {Date(first + std::chrono::days(day)), day * readingbook::Thousandths(1500)}));
  }
  const std::string text = book.text();
  ASSERT_GT(text.size(), 2U << 20);
  const auto year = emptied();
  disk.put(kBook, base::asBytes(text));
  auto read = readBook(*year);
  ASSERT_TRUE(read);
  ASSERT_TRUE(read->add(Meter::Gas, {std::chrono::year(2025) / 1 / 31, 30'000'000}));
  ASSERT_TRUE(storeBook(*year, *read, "Ablesung"));
  EXPECT_EQ(readBook(*year)->of(Meter::Gas).size(), 14611U);
  ASSERT_TRUE(year->undo());
  EXPECT_EQ(base::asText(disk.get(kBook)), text);
}

TEST_F(BookOfYear, ABookThatWouldBeTooLargeIsRefusedAndTheOldOneStays) {
  const auto year = emptied();
  disk.put(kBook, base::asBytes("Gas,31.12.2024,10114,Ablesung\r\n"));
  ReadingBook book;
  const std::chrono::sys_days first(std::chrono::year(1900) / 1 / 1);
  for (int i = 0; i < 17; ++i)
    ASSERT_TRUE(book.add(Meter::Gas,
                         {Date(first + std::chrono::days(i)), i, {}, std::string(1 << 20, 'x')}));
  const auto refused = storeBook(*year, book, "Ablesung");
  ASSERT_FALSE(refused);
  EXPECT_THAT(base::germanMessage(refused.error()), testing::HasSubstr("größer als 16 MB"));
  EXPECT_EQ(readBook(*year)->of(Meter::Gas).size(), 1U);
  const base::Bytes larger(17 << 20, 'x');
  disk.put(kBook, larger);
  EXPECT_FALSE(readBook(*year));
  EXPECT_FALSE(storeBook(*year, ReadingBook(), "Ablesung")) << "what nobody has read stays";
  EXPECT_TRUE(disk.get(kBook) == larger);
}

TEST_F(BookOfYear, AProblemKeepsTheWholeTableOut) {
  const auto year = emptied();
  const auto before = everything(*year);
  for (const char* table :
       {"Datum;Gas\n31.12.2024;10114\n31.01.2025;9000\n", "Datum;Gas\n31.12.2024;x\n",
        "Datum;Gas\n31.12.2024;1\n30.11.2024;1\n", "Name;Wert\na;1\n", "Datum;Gas\n"})
    EXPECT_FALSE(imported(*year, table).problems.empty()) << table;
  EXPECT_EQ(everything(*year), before);
  EXPECT_FALSE(disk.exists(kBook));
}

TEST_F(BookOfYear, ATableTouchesOnlyTheMonthsBetweenItsReadings) {
  const auto year = sample::openYear(disk, "Verbrauch2025.kwd");
  ASSERT_TRUE(storeBook(*year,
                        ReadingBook::fromText("Gas,31.12.2024,10114,Ablesung\r\n"
                                              "Gas,28.02.2025,10581,Ablesung\r\n"),
                        "Buch"));
  const ImportReport report = imported(*year, "Datum;Gas\n10.04.2025;10800\n");
  EXPECT_THAT(report.lines,
              testing::ElementsAre("Gas:", "  Anfangsstand 31.12.2024: 10.114 (wie gespeichert)",
                                   "  Januar: 10.354 (bleibt)", "  Februar: 10.580 (bleibt)",
                                   "  März: 10.763 (errechnet), vorher 10.759"));
  EXPECT_EQ(storedMeter(*year, Meter::Gas).readings[0], 10354);
  EXPECT_EQ(storedMeter(*year, Meter::Gas).readings[1], 10580);
  EXPECT_EQ(storedMeter(*year, Meter::Gas).readings[2], 10763);
}

TEST_F(BookOfYear, ATableDoesNotReplaceAStartReadingByOneThatIsWorkedOut) {
  const auto year = sample::openYear(disk, "Verbrauch2025.kwd");
  const auto report = imported(*year, "Datum;Gas\n15.12.2024;10000\n31.01.2025;10354\n");
  EXPECT_TRUE(report.problems.empty());
  EXPECT_EQ(storedMeter(*year, Meter::Gas).startReading, 10114);
  imported(*year, "Datum;Gas\n31.12.2024;10100\n");
  EXPECT_EQ(storedMeter(*year, Meter::Gas).startReading, 10100) << "that was read";
}

TEST_F(BookOfYear, TheCalendarYearIsThatOfTheDateThenTheNameThenTheBook) {
  const auto year = sample::openYear(disk, "Verbrauch2025.kwd");
  ASSERT_TRUE(year->storeStartDate("1.1.2023"));
  EXPECT_EQ(calendarYear(*year, {}), 2023);
  ASSERT_TRUE(year->storeStartDate(""));
  EXPECT_EQ(calendarYear(*year, {}), 2025);
  const auto fresh = sample::openYear(disk, "Verbrauch.kwd");
  EXPECT_EQ(calendarYear(*fresh, {}), std::nullopt);
  EXPECT_EQ(readingsTable(*fresh), "");
  EXPECT_EQ(calendarYear(*fresh, base::parseDate("31.01.2026")), 2026);
  EXPECT_TRUE(imported(*fresh, "Datum;Wasser\n31.01.2026;5\n").problems.empty());
  EXPECT_EQ(storedMeter(*fresh, Meter::Water).readings[0], 5);
}

TEST_F(BookOfYear, AClearedUtilityShowsItsTotalsAgain) {
  const auto year = sample::openYear(disk, "Verbrauch2025.kwd");
  ASSERT_TRUE(year->clear(Utility::Gas));
  ASSERT_TRUE(year->values().cleared[Utility::Gas]);
  imported(*year, "Datum;Gas\n31.12.2024;10114\n31.01.2025;10354\n");
  EXPECT_FALSE(year->values().cleared[Utility::Gas]);
}

}  // namespace
