#pragma once

#include "projection/Projection.h"
#include "yearbook/YearSession.h"

namespace projection {

// What the main window shows when the projection is opened; the start date as stored. The dates
// that are typed and the tick come from the projection's window.
ProjectionInput projectionInput(const yearbook::YearSession& year);

// When the day tariff was read last, as far as the year tells: the end of the last month with a
// reading, today at the latest. nullopt without a reading or where the year's months have no place
// in the calendar.
std::optional<base::Date> lastReadingDay(const yearbook::YearSession& year, base::Date today);

}  // namespace projection
