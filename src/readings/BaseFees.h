#pragma once

#include <optional>
#include <string>

#include "yearbook/YearSession.h"

// The twelve monthly base fees of a utility. The year keeps their sum, a side file the months; it
// holds them by position. Euro, without VAT.
namespace readings {

using yearbook::Meter;
using yearbook::YearSession;

using MonthlyFees = yearbook::PerMonth<double>;

// Beside the year database, named after it. The night tariff has no base fee.
std::string baseFeePath(const YearSession& session, Meter meter);

// A month whose number is missing or cannot be read is 0, all are without the file.
MonthlyFees readBaseFees(base::FileSystem& files, const std::string& path);
// What the file holds then. Amounts of 0 and less are written as 0.
std::string baseFeeLine(const MonthlyFees& fees);

// The sum of the amounts above 0; nullopt when it is larger than an amount can be.
std::optional<base::Money> yearFee(const MonthlyFees& fees);

// Stores the sum as the year's base fee together with the months.
base::Result<void> storeYearFee(YearSession& session, Meter meter, const MonthlyFees& fees);

}  // namespace readings
