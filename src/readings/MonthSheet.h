#pragma once

#include <string>

#include "readings/ReadingHints.h"

// One month of a meter by itself: the reading at its end, and a meter change in it, typed as the
// household knows it.
namespace readings {

struct MonthEntry {
  double reading = 0;  // 0 = nothing typed
  bool changed = false;
  // Of a change in this month: the old meter's last reading, the new one's first.
  double oldEnd = 0;
  double newStart = 0;
  bool operator==(const MonthEntry&) const = default;
};

// The last reading before a month: the month of it, or -1 for the year's start reading.
struct ReadingBefore {
  int position = -1;
  double reading = 0;
};
ReadingBefore readingBefore(const MeterYear& year, int position);

// The month as it is typed. A change that is stored for the end of the month before counts as one
// of this month, in which the new meter is read for the first time.
MonthEntry entryOf(const MeterYear& year, int position);

struct MonthOutcome {
  // The year with the month put in, to be taken over.
  PerMonth<double> readings{};
  MeterChange change;
  double consumption = 0;
  double oldPart = 0;  // of a change: what the old meter counted in the month, and the new one
  double newPart = 0;
  std::optional<Money> amount;  // net
  Doubt doubt = Doubt::None;
  // What would be stored for the month instead of the typed reading: the reading that the old meter
  // would have had at its end.
  std::optional<double> virtualReading;
  // Why it cannot be stored, as a sentence; else empty.
  std::string problem;
};
MonthOutcome putIn(PriceRule rule, const MeterYear& year, int position, const MonthEntry& entry);

}  // namespace readings
