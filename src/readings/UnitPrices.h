#pragma once

#include <array>

#include "readings/Variants.h"

// One new unit price for chosen months of a utility, which are re-priced at once.
namespace readings {

using MonthTicks = std::array<bool, yearbook::kMonths>;

// The months' stored unit prices.
yearbook::PerMonth<double> storedPrices(const YearSession& session, const PriceVariant& variant);
// The months without a price, so that a new year is priced as a whole.
MonthTicks unpriced(const yearbook::PerMonth<double>& prices);
// What the months would have: the new price where ticked, else the stored one.
yearbook::PerMonth<double> previewPrices(const yearbook::PerMonth<double>& stored,
                                         const MonthTicks& ticks, std::optional<double> newPrice);

// A month's amount at a unit price. Without a gas factor gas counts as if it were read in kWh.
std::optional<base::Money> repriced(PriceRule rule, double consumption, double unitPrice,
                                    double gasFactor);

// Stores the new price of the ticked months, their amounts and the summary: one transaction.
// Without a price nothing is written.
base::Result<void> storePrices(YearSession& session, const PriceVariant& variant,
                               const MonthTicks& ticks, std::optional<double> newPrice);

}  // namespace readings
