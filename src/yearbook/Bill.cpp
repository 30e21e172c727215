#include "yearbook/Bill.h"

namespace yearbook {
namespace {

PerMonth<Money> addAmounts(const PerMonth<MeterMonth>& a, const PerMonth<MeterMonth>& b) {
  PerMonth<Money> sums;
  for (std::size_t i = 0; i < sums.size(); ++i) sums[i] = orZero(a[i].amount) + orZero(b[i].amount);
  return sums;
}

// In flat-rate mode the free kWh are part of the base fee: only the excess is charged, at the one
// price of the main window. Consumption equal to the free kWh costs nothing.
Money flatRateAmount(double consumption, double freeKwh, double centPerKwh) {
  const double excess = consumption - freeKwh;
  return excess > 0 ? priceInCent(excess, centPerKwh) : Money();
}

}  // namespace

double orZero(std::optional<double> value) {
  return value.value_or(0);
}
Money orZero(std::optional<Money> value) {
  return value.value_or(Money());
}

Money priceInCent(double consumption, double centPerUnit) {
  return Money::roundHalfEven(consumption * centPerUnit / 100);
}

Money priceInEuro(double consumption, double euroPerUnit) {
  return Money::roundHalfEven(consumption * euroPerUnit);
}

Money priceOfGas(double cubicMetres, double factor, double centPerKwh) {
  return Money::roundHalfEven(cubicMetres * factor * centPerKwh / 100);
}

Money vatOn(Money net, double percent) {
  return Money::roundHalfEven(net.toDouble() / 100 * percent);
}

MeterTotals sumMeter(const PerMonth<MeterMonth>& months, std::optional<double> startReading) {
  MeterTotals totals;
  totals.endReading = orZero(startReading);
  for (const MeterMonth& month : months) {
    if (orZero(month.reading) > 0) totals.endReading = *month.reading;
    totals.consumption += orZero(month.consumption);
    totals.amount += orZero(month.amount);
  }
  return totals;
}

ElectricityTotals summarizeElectricity(const ElectricityInput& input) {
  ElectricityTotals totals;
  totals.day = sumMeter(input.day, input.startDay);
  totals.night = sumMeter(input.night, input.startNight);
  const double freeKwh = orZero(input.freeKwh);
  if (input.flatRate && freeKwh != 0)
    totals.day.amount = flatRateAmount(totals.day.consumption, freeKwh, orZero(input.dayPrice));
  if (totals.day.amount > Money() || totals.night.amount > Money()) {
    totals.dayVat = vatOn(totals.day.amount, orZero(input.vat));
    totals.nightVat = vatOn(totals.night.amount, orZero(input.vat));
    totals.dayGross = totals.day.amount + totals.dayVat;
    totals.nightGross = totals.night.amount + totals.nightVat;
    totals.gross = totals.dayGross + totals.nightGross;
  }
  totals.monthAmounts = addAmounts(input.day, input.night);
  return totals;
}

WaterTotals summarizeWater(const WaterInput& input) {
  WaterTotals totals;
  totals.water = sumMeter(input.water, input.startWater);
  totals.wasteWater = sumMeter(input.wasteWater, input.startWasteWater);
  const double vatWater = orZero(input.vatWater);
  const double vatWasteWater = orZero(input.vatWasteWater);
  const Money feeWater = orZero(input.baseFeeWater);
  const Money feeWasteWater = orZero(input.baseFeeWasteWater);
  if (feeWater > Money() && vatWater > 0) totals.baseFeeWaterVat = vatOn(feeWater, vatWater);
  if (feeWasteWater > Money() && vatWasteWater > 0)
    totals.baseFeeWasteWaterVat = vatOn(feeWasteWater, vatWasteWater);
  if (totals.water.amount > Money() || totals.wasteWater.amount > Money()) {
    totals.waterVat = vatOn(totals.water.amount, vatWater);
    totals.wasteWaterVat = vatOn(totals.wasteWater.amount, vatWasteWater);
    totals.waterGross = totals.water.amount + totals.waterVat;
    totals.wasteWaterGross = totals.wasteWater.amount + totals.wasteWaterVat;
    totals.gross = totals.waterGross + totals.wasteWaterGross;
  }
  totals.monthAmounts = addAmounts(input.water, input.wasteWater);
  return totals;
}

GasTotals summarizeGas(const GasInput& input) {
  GasTotals totals;
  totals.gas = sumMeter(input.gas, input.start);
  totals.kwh = totals.gas.consumption * orZero(input.factor);
  totals.vat = vatOn(totals.gas.amount, orZero(input.vat));
  totals.gross = totals.gas.amount + totals.vat;
  return totals;
}

}  // namespace yearbook
