#include "projection/ProjectionSource.h"

#include "base/Single.h"

namespace projection {

ProjectionSource projectionSource(yearbook::YearSession& year) {
  using yearbook::Meter;
  using yearbook::orZero;
  using yearbook::Utility;
  const yearbook::FieldValues& values = year.values();
  ProjectionSource source;
  source.startDate = year.adoZStaende.text(0, yearbook::zstaende::startDate);
  if (!values.cleared[Utility::Electricity])
    source.consumption = values.bill.meters[Meter::Day].consumption;
  source.unitPrice = values.prices[Meter::Day];
  source.vatRate = base::toSingle(orZero(values.vat[Meter::Day]));
  source.baseFee = orZero(values.baseFees[Meter::Day]);
  source.startMonth = year.monthNames(Utility::Electricity).front();
  source.storeStartDate = [&year](const std::string& date) { return year.storeStartDate(date); };
  return source;
}

}  // namespace projection
