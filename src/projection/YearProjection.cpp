#include "projection/YearProjection.h"

#include "base/Single.h"

namespace projection {

ProjectionInput projectionInput(const yearbook::YearSession& year) {
  using yearbook::Meter;
  using yearbook::Utility;
  const yearbook::FieldValues& values = year.values();
  ProjectionInput input;
  input.startDate = year.adoZStaende.text(0, yearbook::zstaende::startDate);
  if (!values.cleared[Utility::Electricity])
    input.consumption = values.bill.meters[Meter::Day].consumption;
  input.unitPrice = values.prices[Meter::Day];
  input.vatRate = base::toSingle(yearbook::orZero(values.vat[Meter::Day]));
  input.baseFee = yearbook::orZero(values.baseFees[Meter::Day]);
  input.startMonth = year.monthNames(Utility::Electricity).front();
  return input;
}

}  // namespace projection
