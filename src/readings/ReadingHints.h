#pragma once

#include <string_view>

#include "readings/MeterReading.h"

// What a look at the readings as they are typed tells, before they are taken over. Hints only:
// nothing is refused, nothing is stored.
namespace readings {

enum class Doubt {
  None,
  LowerThanBefore,    // than the reading before, without a meter change
  LowerThanNewMeter,  // than the new meter's start reading
  Unusual,            // more than three times the usual consumption
};

// "niedriger als der Stand davor"; "" for none.
std::string_view wordsOf(Doubt doubt);

struct ReadingHint {
  bool entered = false;
  double consumption = 0;  // that would result
  Doubt doubt = Doubt::None;
};

// The usual consumption of a month comes from the other months: their mean, or what the entered
// neighbours had, whichever is more, so that the rise of a heating season is no alarm. With fewer
// than two other months nothing is usual yet.
PerMonth<ReadingHint> readingHints(const MeterYear& year);
// nullopt as long as nobody can tell.
std::optional<double> usualConsumption(const MeterYear& year, int position);

}  // namespace readings
