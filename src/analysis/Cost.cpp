#include "analysis/Cost.h"

namespace analysis {

bool isFirstMeter(Meter meter) {
  return yearbook::metersOf(utilityOf(meter)).front() == meter;
}

Cost costOf(const yearbook::FieldValues& values, Meter meter, Money amount) {
  const auto taxed = [&](Meter rateOf, Money net) {
    return Cost{net, net + yearbook::vatOn(net, yearbook::orZero(values.vat[rateOf]))};
  };
  Cost cost = taxed(meter, amount);
  if (isFirstMeter(meter))
    for (const Meter other : yearbook::metersOf(utilityOf(meter)))
      cost += taxed(other, yearbook::orZero(values.baseFees[other]));
  return cost;
}

double pricedUnits(const yearbook::FieldValues& values, Meter meter, double consumption) {
  const bool inKwh = factsOf(meter).rule == yearbook::PriceRule::CentPerKwh;
  return inKwh ? consumption * yearbook::orZero(values.gasFactor) : consumption;
}

}  // namespace analysis
