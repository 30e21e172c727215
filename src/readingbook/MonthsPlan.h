#pragma once

#include "readingbook/DayEnds.h"
#include "readings/MeterReading.h"
#include "yearbook/CalendarYear.h"

// What the months of a year get from its reading book.
namespace readingbook {

using readings::MeterChange;
using yearbook::kMonths;
using yearbook::PerMonth;
using yearbook::YearDays;

// A meter's year as it is stored.
struct StoredMeter {
  double startReading = 0;
  PerMonth<double> readings{};  // 0 = not entered
  MeterChange change;
};

struct PlannedReading {
  double stored = 0;
  std::optional<double> fromBook;
  // The readings that it lies between.
  Date before, after;

  bool isNew() const { return fromBook && stored == 0 && *fromBook != 0; }
  bool differs() const { return fromBook && stored != *fromBook; }
  bool isRead() const { return fromBook && before == after; }
};

struct MonthsPlan {
  PlannedReading start;  // the year's start reading
  PerMonth<PlannedReading> months;
  // As it is to be stored with the months. The months after the meter change count on the new
  // meter; the month of the change has the reading that the old meter would have had at its end.
  MeterChange change;
  // The change is another than the stored one: either all months that differ are taken, or none.
  bool changeDiffers = false;
  // Why the months cannot be taken, as a sentence; else empty.
  std::string refusal;
};

// From the book's entries of a meter. What the book does not know is nowhere set.
MonthsPlan planMonths(std::span<const Entry> entries, Meter meter, const YearDays& days,
                      const StoredMeter& stored);

// Which months are taken.
struct Taken {
  bool start = false;
  PerMonth<bool> months{};
};
// What is new; that is what is offered first. With another meter change everything that differs.
Taken newOnly(const MonthsPlan& plan);
Taken allThatDiffer(const MonthsPlan& plan);

// The meter's year after that.
StoredMeter applied(const MonthsPlan& plan, const StoredMeter& stored, const Taken& taken);

}  // namespace readingbook
