#pragma once

#include <vector>

#include "readings/MeterChange.h"

// Twelve readings of a meter in, consumption and price of every month out.
namespace readings {

using base::Money;
using yearbook::kMonths;
using yearbook::PriceRule;

struct MeterYear {
  PerMonth<double> readings{};  // at the end of each month; 0 = not entered
  PerMonth<double> prices{};    // each month's own unit price
  double startReading = 0;
  double gasFactor = 0;
  MeterChange change;
};

// What follows for one month.
struct WorkedMonth {
  bool entered = false;  // else consumption and amount are 0
  double consumption = 0;
  std::optional<Money> amount = Money();  // nullopt: larger than an amount can be
  int months = 1;  // that the consumption covers: itself and those left at 0 before it
};

// Each entered reading minus the one entered before it, the first one minus the start reading, and
// the one directly after a meter change minus the new meter's start reading. A month left at 0 is
// skipped; a lower reading gives a negative consumption. Gas with a factor of 0 costs nothing.
PerMonth<WorkedMonth> workOut(PriceRule rule, const MeterYear& year);

// The stored year of a meter, with another change or other readings put in by the caller.
MeterYear meterYear(const YearSession& session, Meter meter);

// Stores the readings, works out the year and stores consumptions and amounts, and the change for
// the next time: all of it or nothing. InvalidValue when a value is larger than its field.
base::Result<void> takeOver(YearSession& session, Meter meter, const PerMonth<double>& readings,
                            const MeterChange& change);

// The row of the month that an error of the take over names.
std::optional<int> rowAtFault(const YearSession& session, Meter meter, const base::Error& error);

// The same for several meters as one step of the caller's name, with whatever more belongs to it.
struct MeterEntries {
  Meter meter = Meter::Day;
  PerMonth<double> readings{};
  MeterChange change;
  std::optional<double> startReading = {};  // a new one for the year
};
base::Result<void> takeOver(YearSession& session, yearbook::Change step,
                            const std::vector<MeterEntries>& meters,
                            const YearSession::Edit& more = {});

// Sets consumptions and amounts to 0 and forgets the change. The stored readings stay until the
// next take over.
base::Result<void> deleteConsumptions(YearSession& session, Meter meter);

}  // namespace readings
