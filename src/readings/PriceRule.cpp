#include "readings/PriceRule.h"

#include <cmath>

#include "yearbook/Bill.h"

namespace readings {
namespace {

// In the unit of the price. A currency field holds 922 billion euro and a little more.
constexpr double kLargest = 9e14;

}  // namespace

std::optional<base::Money> priceOf(PriceRule rule, double consumption, double unitPrice,
                                   double gasFactor) {
  const double size =
      std::abs(consumption * unitPrice * (rule == PriceRule::CentPerKwh ? gasFactor : 1));
  if (!(size <= kLargest)) return std::nullopt;
  switch (rule) {
    case PriceRule::EuroPerUnit:
      return yearbook::priceInEuro(consumption, unitPrice);
    case PriceRule::CentPerKwh:
      return yearbook::priceOfGas(consumption, gasFactor, unitPrice);
    case PriceRule::CentPerUnit:
      break;
  }
  return yearbook::priceInCent(consumption, unitPrice);
}

base::Failure amountTooLarge(const yearbook::Table& table, const yearbook::Field& field) {
  base::Error error;
  error.code = base::ErrorCode::InvalidValue;
  error.subject = std::string(table.name) + "." + std::string(field.name);
  error.detail = "der Betrag ist zu groß";
  return base::fail(error);
}

}  // namespace readings
