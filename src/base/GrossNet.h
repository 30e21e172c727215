#pragma once

#include <optional>

// Bills show their figures with VAT first, the year keeps them without.
namespace base {

// What a fee on the bill is for and what the year keeps it for: {12, 1} makes a year's fee of a
// month's, {1, 12} a month's of a year's. A unit price is the same in both.
struct FeeShare {
  int times = 1;
  int parts = 1;
};

// The net figure that a gross one stands for, with four decimals like every price and amount;
// worked out in whole numbers and rounded once, half away from zero. nullopt where that cannot be
// told: without a VAT rate (0 is one), at -100 % and below, beyond 30 million.
std::optional<double> netOf(double gross, std::optional<double> vatPercent, FeeShare share = {});

}  // namespace base
