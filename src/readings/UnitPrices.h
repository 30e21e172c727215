#pragma once

#include "yearbook/YearSession.h"

// One new unit price for chosen months of a utility, which are re-priced at once.
namespace readings {

using yearbook::Meter;
using yearbook::PerMonth;
using yearbook::YearRows;
using yearbook::YearSession;

using MonthTicks = PerMonth<bool>;

// The months' stored unit prices.
PerMonth<double> storedPrices(const YearSession& session, Meter meter);
// The months without a price, so that a new year is priced as a whole.
MonthTicks unpriced(const PerMonth<double>& prices);
// What the months would have: the new price where ticked, else the stored one.
PerMonth<double> previewPrices(const PerMonth<double>& stored, const MonthTicks& ticks,
                               std::optional<double> newPrice);

// Stores the new price of the ticked months and their amounts: one transaction. Without a price
// nothing is written. Without a gas factor gas counts as if it were read in kWh.
base::Result<void> storePrices(YearSession& session, Meter meter, const MonthTicks& ticks,
                               std::optional<double> newPrice);

}  // namespace readings
