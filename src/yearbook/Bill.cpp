#include "yearbook/Bill.h"

#include <algorithm>

#include "yearbook/Vat.h"

namespace yearbook {
namespace {

MeterBill sumUp(const MeterInput& meter) {
  MeterBill bill;
  bill.endReading = orZero(meter.startReading);
  for (const MeterRow& month : meter.months) {
    if (orZero(month.reading) > 0) bill.endReading = *month.reading;
    bill.consumption += orZero(month.consumption);
    bill.amount += orZero(month.amount);
  }
  const Money fee = orZero(meter.baseFee);
  const double vat = orZero(meter.vat);
  if (fee > Money() && vat > 0) bill.baseFeeVat = vatOn(fee, vat);
  return bill;
}

bool isBilled(const Bill& bill, Utility utility) {
  if (utility == Utility::Gas) return true;
  const auto meters = metersOf(utility);
  return std::any_of(meters.begin(), meters.end(),
                     [&](Meter meter) { return bill.meters[meter].amount > Money(); });
}

}  // namespace

double orZero(std::optional<double> value) {
  return value.value_or(0);
}
Money orZero(std::optional<Money> value) {
  return value.value_or(Money());
}

std::optional<Money> priceOf(PriceRule rule, double consumption, double unitPrice, double factor) {
  switch (rule) {
    case PriceRule::EuroPerUnit:
      return Money::tryRoundHalfEven(consumption * unitPrice);
    case PriceRule::CentPerKwh:
      return Money::tryRoundHalfEven(consumption * factor * unitPrice / 100);
    case PriceRule::CentPerUnit:
      break;
  }
  return Money::tryRoundHalfEven(consumption * unitPrice / 100);
}

Money vatOn(Money net, double percent) {
  return Money::roundHalfEven(net.toDouble() / 100 * percent);
}

Money grossOf(Money net, double percent) {
  return Money::roundHalfEven(withVat(net.toDouble(), percent));
}

Money baseFeeUntil(Money inTheYear, int months) {
  return Money::roundHalfEven(inTheYear.toDouble() * months / kMonths);
}

Money advancesUntil(const PerMonth<std::optional<Money>>& advances, int months) {
  Money sum;
  for (int i = 0; i < months; ++i) sum += orZero(advances[i]);
  return sum;
}

Money FlatRate::amountBeyond(double consumption) const {
  const double excess = consumption - orZero(freeKwh);
  return excess > 0 ? Money::roundHalfEven(excess * orZero(dayPrice) / 100) : Money();
}

Bill billOf(const BillInput& input) {
  Bill bill;
  for (Meter meter : kMeters) bill.meters[meter] = sumUp(input.meters[meter]);
  MeterBill& day = bill.meters[Meter::Day];
  if (input.flatRate.applies()) day.amount = input.flatRate.amountBeyond(day.consumption);
  for (Meter meter : kMeters) {
    const Utility utility = utilityOf(meter);
    if (!isBilled(bill, utility)) continue;
    MeterBill& part = bill.meters[meter];
    part.vat = vatOn(part.amount, orZero(input.meters[meter].vat));
    part.gross = part.amount + part.vat;
    bill.gross[utility] += part.gross;
  }
  bill.gasKwh = bill.meters[Meter::Gas].consumption * orZero(input.gasFactor);
  return bill;
}

}  // namespace yearbook
