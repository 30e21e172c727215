#pragma once

#include <chrono>

#include "base/GermanDate.h"
#include "yearbook/Meter.h"

// How a year's consumption lies in it where a household's own years do not say so. Pure.
namespace yearbook {

// Degree days of VDI 2067, in per mille of a year's heating, from January. The three summer months
// are rounded in the table: it sums up to 999,9.
inline constexpr PerMonth<double> kDegreeDays = {
    {{170, 150, 130, 80, 40, 13.3, 13.3, 13.3, 30, 80, 120, 160}}};

constexpr int daysInMonth(std::chrono::year year, std::chrono::month month) {
  return static_cast<int>(static_cast<unsigned>((year / month / std::chrono::last).day()));
}

// The day's part of its month, which is spread evenly over its days; 29 in February of a leap year.
constexpr double degreeDaysOn(base::Date day) {
  return kDegreeDays[static_cast<int>(static_cast<unsigned>(day.month())) - 1] /
         daysInMonth(day.year(), day.month());
}

// Per mille from the end of one day to the end of another; 0 when it is no later.
inline double degreeDaysBetween(base::Date after, base::Date upTo) {
  double sum = 0;
  const std::chrono::sys_days end{upTo};
  for (std::chrono::sys_days day{after}; day < end;)
    sum += degreeDaysOn(base::Date(day += std::chrono::days(1)));
  return sum;
}

// The standard load profile H0 of households: how much more or less than an even day is used on
// that day of the year, 1 to 366.
constexpr double h0DayFactor(int dayOfYear) {
  const double t = dayOfYear;
  return 1.24 + t * (2.10e-3 + t * (-7.02e-5 + t * (3.20e-7 + t * -3.92e-10)));
}

}  // namespace yearbook
