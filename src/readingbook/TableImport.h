#pragma once

#include "readingbook/ReadingBook.h"

// Tables of readings from anywhere: text with separators, as spreadsheets and other programs write
// them.
namespace readingbook {

struct TableRow {
  int line = 0;  // in the file, from 1
  std::vector<std::string> cells;
};

// UTF-8 with or without byte order mark, else windows-1252; ";", tab or ",", whichever the text
// uses; values in quotes may hold separators, line ends and doubled quotes. Empty rows are left
// out.
std::vector<TableRow> readTable(std::string_view bytes);

// Which column is what; -1 = none.
struct TableColumns {
  static constexpr int kNone = -1;
  int headingLine = 0;  // rows up to this line of the file are no readings
  int date = kNone;
  PerMeter<int> readings = {{{kNone, kNone, kNone, kNone, kNone}}};
  // The first reading of a new meter, in the row of the old one's last.
  PerMeter<int> newStarts = {{{kNone, kNone, kNone, kNone, kNone}}};
  int remark = kNone;

  bool anyMeter() const;
};

// By the first row with the heading "Datum", and the meters' names ("Strom", "Nachtstrom",
// "Wasser", "Abwasser", "Gas"; a new meter "Strom neu"). Without headings the column of dates is
// found, and a single column of numbers belongs to the meter whose name the file bears, five to the
// five meters.
TableColumns guessColumns(const std::vector<TableRow>& rows, std::string_view fileName);

// "2025-03-31", "31.03.2025", "31.3.25", a time behind it does not count.
std::optional<Date> parseTableDate(std::string_view text);

struct TableEntry {
  int line = 0;
  Meter meter = Meter::Day;
  Entry entry;
};
struct TableProblem {
  int line = 0;  // 0: the table as a whole
  std::string reason;
};
struct TableReadings {
  std::vector<TableEntry> entries;  // by day
  std::vector<TableProblem> problems;
};
// An empty cell is no reading. A row without a date is refused, and so is the column in which a
// cell is no number, with the line at fault.
TableReadings readingsOf(const std::vector<TableRow>& rows, const TableColumns& columns);

struct BookImport {
  ReadingBook book;  // with all entries that could be added
  int added = 0;
  int alreadyThere = 0;  // the same reading on the same day
  std::vector<TableProblem> problems;
};
BookImport addTo(ReadingBook book, const TableReadings& readings, const PerMeter<Days>& permitted);

}  // namespace readingbook
