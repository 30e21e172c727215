#include "projection/ProjectionSource.h"

#include "base/Single.h"

namespace projection {

ProjectionSource projectionSource(yearbook::YearSession& year) {
  using yearbook::Utility;
  const yearbook::FieldValues& values = year.values();
  ProjectionSource source;
  source.startDate = year.adoZStaende.text(0, yearbook::zstaende::startDate);
  if (!values.cleared[yearbook::at(Utility::Electricity)])
    source.consumption = values.electricity.day.consumption;
  source.unitPrice = values.dayPrice;
  source.vatRate = base::toSingle(values.vatElectricity.value_or(0));
  source.baseFee = values.baseFeeElectricity.value_or(base::Money());
  source.startMonth = year.monthNames(Utility::Electricity).front();
  source.storeStartDate = [&year](const std::string& date) { return year.storeStartDate(date); };
  return source;
}

}  // namespace projection
