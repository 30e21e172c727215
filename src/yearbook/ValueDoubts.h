#pragma once

#include <span>
#include <string>
#include <vector>

#include "yearbook/YearRows.h"

// Prices, fees and payments that look wrong: a point taken for a comma, euro typed for cents, a
// sign too many. Hints only: the value is taken all the same.
namespace yearbook {

// "" for nothing odd, else what is odd about it in a few words. others are the year's other values
// of the same kind; those of 0 do not count. 0 itself is never odd.
//
// A price is odd below 0, outside of what its unit is ever charged at, and beyond three times (or
// below a third of) what the others are at. An amount is odd below 0, above 5.000 Euro and beyond
// three times the others' middle one.
std::string priceDoubt(Meter meter, double price, std::span<const double> others);
std::string amountDoubt(double euro, std::span<const double> others);

// The months' stored unit prices.
PerMonth<double> pricesOf(const YearRows& rows, Meter meter);
// The values of the other eleven months.
std::vector<double> othersThan(int position, const PerMonth<double>& values);

}  // namespace yearbook
