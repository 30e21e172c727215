#pragma once

#include <chrono>
#include <optional>
#include <vector>

#include "yearbook/Meter.h"

// What the rest of a meter's year will bring, from its months so far, the household's own earlier
// years and a table of how such a consumption usually lies in the year. Numbers only.
namespace analysis {

using yearbook::kMonths;
using yearbook::Meter;
using yearbook::PerMonth;

// Twelve months from `first` on.
struct Course {
  std::chrono::year_month first{};
  PerMonth<double> months{};

  int calendarMonth(int position) const;  // 1 to 12
  double total() const;
};

// The usual parts of the meter's year in these twelve months, 1 together: degree days for gas, the
// load profile for electricity, even days for water.
PerMonth<double> usualShares(Meter meter, std::chrono::year_month first);

// How much is believed. Each weight is a part of 1.
struct Weights {
  // Own years count as n / (n + ownYears) in the season, the table for the rest.
  double ownYears;
  // The months read count as part / (part + soFar) in the level of the year, the earlier years for
  // the rest; part is what usually has been consumed by then.
  double soFar;
  // Of the earlier years' levels each counts so much less than the one after it.
  double fading;
  // Usual deviations, as a part of what is expected: of a single month, and of a year's level.
  double monthSpread, levelSpread;
};
const Weights& weightsOf(Meter meter);

struct Outlook {
  int monthsRead = 0;
  PerMonth<double> months{};  // as read, then as expected
  PerMonth<double> spread{};  // standard deviation of each expected month, 0 for those read
  double year = 0;
  double low = 0, high = 0;  // eight years of ten lie between these
  double ownSeason = 0;      // weight of the household's own years in the season
  double soFar = 0;          // weight of the months read in the level
};

// How many standard deviations on either side hold eight of ten.
inline constexpr double kEightOfTen = 1.28;

// nullopt when neither months nor earlier years say anything. The earlier years are complete, the
// latest one last; months of `current` behind monthsRead are not looked at.
std::optional<Outlook> outlookOf(Meter meter, const Course& current, int monthsRead,
                                 const std::vector<Course>& earlier);

}  // namespace analysis
