#pragma once

#include <optional>
#include <string_view>

#include "base/GermanDate.h"

// Where the twelve rows of a year lie in the calendar. A year keeps the names of its months only.
namespace yearbook {

// The calendar year of the first row: that of the start date, else the first four digits in a row
// in the file's name that are a year (1900 to 2099).
std::optional<int> calendarYearOf(std::string_view startDate, std::string_view fileName);

// The twelve months of a utility as days; a start month outside 1 to 12 counts as January. A
// reading stands for the end of its day.
class YearDays {
 public:
  YearDays(int calendarYear, int startMonth);

  // The last day of a month row, 0 to 11. -1 is the day before the first month, for which the
  // year's start reading stands.
  base::Date end(int position) const;
  // The first day of the month before the year, the last day of the month after it.
  base::Date earliest() const;
  base::Date latest() const;

 private:
  std::chrono::year_month first_;
};

}  // namespace yearbook
