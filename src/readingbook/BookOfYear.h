#pragma once

#include "readingbook/MonthsPlan.h"
#include "readingbook/TableImport.h"
#include "yearbook/YearSession.h"

// The reading book of the open year: where its months lie, what they get from it, and storing both.
namespace readingbook {

using yearbook::YearSession;

base::Result<ReadingBook> readBook(const YearSession& session);

// The calendar year of the first row: that of the start date, else of the file's name, else that of
// the book's first entry.
std::optional<int> calendarYear(const YearSession& session, std::optional<Date> firstEntry);
YearDays daysOf(const YearSession& session, Meter meter, int calendarYear);
PerMeter<Days> permittedDays(const YearSession& session, int calendarYear);

StoredMeter storedMeter(const YearSession& session, Meter meter);
MonthsPlan planMonths(const YearSession& session, const ReadingBook& book, Meter meter,
                      int calendarYear);

// Stores the book as a step of that name.
base::Result<void> storeBook(YearSession& session, const ReadingBook& book,
                             const std::string& stepName);

// What is to be taken of a meter's plan.
struct MonthsTaken {
  Meter meter = Meter::Day;
  MonthsPlan plan;
  Taken taken;
};
// Takes months over as the entry windows do, start readings and meter changes included, all as one
// step; with the book if it has changed as well.
base::Result<void> takeOverMonths(YearSession& session, const std::vector<MonthsTaken>& meters,
                                  const std::string& stepName, const ReadingBook* book = nullptr);

// The book with a table's readings, and what is wrong with them.
base::Result<BookImport> previewImport(const YearSession& session, const TableReadings& readings);

// A table's readings into book and months: everything, or nothing when there is any problem.
struct ImportReport {
  std::vector<TableProblem> problems;
  std::vector<std::string> lines;  // what has become of every month, meter by meter
};
base::Result<ImportReport> importTable(YearSession& session, const TableReadings& readings);

// The year's readings as a table that importTable() reads back ("Datum;Strom;..."): the start
// readings, then the ends of the months, decimal comma, CR LF. "" when nobody can tell which
// calendar year it is.
std::string readingsTable(const YearSession& session);

}  // namespace readingbook
