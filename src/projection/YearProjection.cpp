#include "projection/YearProjection.h"

#include <algorithm>

#include "base/Single.h"
#include "yearbook/CalendarYear.h"

namespace projection {

ProjectionInput projectionInput(const yearbook::YearSession& year) {
  using yearbook::Meter;
  using yearbook::Utility;
  const yearbook::FieldValues& values = year.values();
  ProjectionInput input;
  input.startDate = year.adoZStaende.text(0, yearbook::zstaende::startDate);
  if (!values.cleared[Utility::Electricity])
    input.consumption = values.bill.meters[Meter::Day].consumption;
  input.unitPrice = values.prices[Meter::Day];
  input.vatRate = base::toSingle(yearbook::orZero(values.vat[Meter::Day]));
  input.baseFee = yearbook::orZero(values.baseFees[Meter::Day]);
  input.startMonth = year.monthNames(Utility::Electricity).front();
  return input;
}

std::optional<base::Date> lastReadingDay(const yearbook::YearSession& year, base::Date today) {
  using yearbook::Meter;
  int last = yearbook::kMonths - 1;
  const auto months = year.rows().months(Meter::Day);
  while (last >= 0 && yearbook::orZero(months[last].reading) <= 0) --last;
  const auto calendarYear = yearbook::calendarYearOf(year.values().startDate, year.path());
  if (last < 0 || !calendarYear) return std::nullopt;
  const yearbook::YearDays days(*calendarYear, year.startMonth(yearbook::Utility::Electricity));
  return std::min(days.end(last), today);
}

}  // namespace projection
