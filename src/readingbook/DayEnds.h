#pragma once

#include "readingbook/ReadingBook.h"

// What a meter showed at the end of days on which nobody read it, worked out between the readings
// around them. Whole units, as the months of a year take them.
namespace readingbook {

enum class Spread {
  EvenDays,
  DegreeDays,  // heating gas: as much a day as it is cold, by the table of degree days
};
Spread spreadOf(Meter meter);

struct DayEnd {
  // What the meter shows that is there then, rounded half up; on the day of a reading the reading.
  std::int64_t meter = 0;
  // What the book's first meter would show if it had never been changed, rounded half up. Between
  // two days it grows by what was consumed, whatever was changed in between.
  std::int64_t count = 0;
  // Meter changes up to then.
  int changes = 0;
  // The readings around it; the same day when it was read.
  Date before, after;

  bool isRead() const { return before == after; }
};

// For ascending days; nothing before the first entry and after the last.
std::vector<std::optional<DayEnd>> dayEnds(std::span<const Entry> entries, Spread spread,
                                           std::span<const Date> days);

}  // namespace readingbook
