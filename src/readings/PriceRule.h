#pragma once

#include <optional>

#include "base/Money.h"
#include "base/Result.h"
#include "yearbook/Schema.h"

namespace readings {

enum class PriceRule {
  CentPerUnit,  // electricity
  EuroPerUnit,  // water, waste water: not divided by 100
  CentPerKwh,   // gas, read in m³: times the factor
};

// The price of a month's consumption; nullopt when it is larger than an amount can be.
std::optional<base::Money> priceOf(PriceRule rule, double consumption, double unitPrice,
                                   double gasFactor);

// The error for an amount that its field cannot hold.
base::Failure amountTooLarge(const yearbook::Table& table, const yearbook::Field& field);

}  // namespace readings
