#pragma once

#include <string>

#include "yearbook/Meter.h"

// Months of a reading year: position 0 is the utility's start month.
namespace yearbook {

using MonthNames = PerMonth<std::string>;

// Names of the twelve positions for a start month 1 to 12; any other start month counts as January,
// the captions that the windows are designed with.
MonthNames rotatedMonthNames(int startMonth);

// Calendar month 1 to 12 of a position.
int calendarMonth(int startMonth, int position);

}  // namespace yearbook
