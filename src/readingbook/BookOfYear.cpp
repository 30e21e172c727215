#include "readingbook/BookOfYear.h"

#include <set>

namespace readingbook {

using base::Result;
using yearbook::Utility;

Result<ReadingBook> readBook(const YearSession& session) {
  return readBook(session.files(), bookPath(session.path()));
}

std::optional<int> calendarYear(const YearSession& session, std::optional<Date> firstEntry) {
  if (const auto year = yearbook::calendarYearOf(session.values().startDate, session.path()))
    return year;
  if (!firstEntry) return std::nullopt;
  return static_cast<int>(firstEntry->year());
}

YearDays daysOf(const YearSession& session, Meter meter, int calendarYear) {
  return {calendarYear, session.startMonth(utilityOf(meter))};
}

PerMeter<Days> permittedDays(const YearSession& session, int calendarYear) {
  PerMeter<Days> permitted;
  for (Meter meter : yearbook::kMeters) {
    const YearDays days = daysOf(session, meter, calendarYear);
    permitted[meter] = {days.earliest(), days.latest()};
  }
  return permitted;
}

StoredMeter storedMeter(const YearSession& session, Meter meter) {
  const readings::MeterYear year = readings::meterYear(session, meter);
  return {year.startReading, year.readings,
          readings::readMeterChange(session.files(), readings::meterChangePath(session, meter))};
}

MonthsPlan planMonths(const YearSession& session, const ReadingBook& book, Meter meter,
                      int calendarYear) {
  return planMonths(book.of(meter), meter, daysOf(session, meter, calendarYear),
                    storedMeter(session, meter));
}

Result<void> storeBook(YearSession& session, const ReadingBook& book, const std::string& stepName) {
  return takeOverMonths(session, {}, stepName, &book);
}

Result<void> takeOverMonths(YearSession& session, const std::vector<MonthsTaken>& meters,
                            const std::string& stepName, const ReadingBook* book) {
  yearbook::Change step{stepName};
  if (book) step.sides = {{bookPath(session.path()), book->text()}};
  std::vector<readings::MeterEntries> entries;
  for (const MonthsTaken& each : meters) {
    const StoredMeter after = applied(each.plan, storedMeter(session, each.meter), each.taken);
    readings::MeterEntries& entry = entries.emplace_back();
    entry.meter = each.meter;
    entry.readings = after.readings;
    entry.change = after.change;
    if (each.taken.start) entry.startReading = after.startReading;
  }
  return readings::takeOver(session, std::move(step), entries);
}

}  // namespace readingbook
