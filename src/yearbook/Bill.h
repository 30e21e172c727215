#pragma once

#include <array>
#include <optional>

#include "base/Money.h"
#include "yearbook/Schema.h"

// The bill of one year: rows and settings in, totals out. Pure functions.
//
// Empty counts as 0. Prices of electricity and gas are cent per kWh, of water euro per m³; VAT
// rates are percent. Amounts are worked out in double and rounded half to even to four decimals
// when they become Money; cents appear only on display.
namespace yearbook {

using base::Money;
template <class T>
using PerMonth = std::array<T, kMonths>;

double orZero(std::optional<double> value);
Money orZero(std::optional<Money> value);

// --- price rules ---
Money priceInCent(double consumption, double centPerUnit);  // electricity
Money priceInEuro(double consumption, double euroPerUnit);  // water, waste water
Money priceOfGas(double cubicMetres, double factor, double centPerKwh);
Money vatOn(Money net, double percent);  // net / 100 * percent

// --- one meter over twelve months ---
struct MeterMonth {
  std::optional<double> reading;
  std::optional<double> consumption;
  std::optional<Money> amount;
};

struct MeterTotals {
  double endReading = 0;  // the last reading above 0, else the start reading
  double consumption = 0;
  Money amount;
};
MeterTotals sumMeter(const PerMonth<MeterMonth>& months, std::optional<double> startReading);

// --- electricity ---
struct ElectricityInput {
  PerMonth<MeterMonth> day;
  PerMonth<MeterMonth> night;
  std::optional<double> startDay;
  std::optional<double> startNight;
  std::optional<double> vat;
  std::optional<double> dayPrice;  // cent per kWh, for consumption beyond the free kWh
  std::optional<double> freeKwh;
  bool flatRate = false;
};

struct ElectricityTotals {
  MeterTotals day;    // amount: after deduction of free kWh in flat-rate mode
  MeterTotals night;  // no free kWh here
  Money dayVat, nightVat;
  Money dayGross, nightGross;
  Money gross;
  PerMonth<Money> monthAmounts;  // day + night, as stored in PGesammt
};
ElectricityTotals summarizeElectricity(const ElectricityInput& input);

// --- water and waste water ---
struct WaterInput {
  PerMonth<MeterMonth> water;
  PerMonth<MeterMonth> wasteWater;
  std::optional<double> startWater;
  std::optional<double> startWasteWater;
  std::optional<double> vatWater;
  std::optional<double> vatWasteWater;
  std::optional<Money> baseFeeWater;
  std::optional<Money> baseFeeWasteWater;
};

struct WaterTotals {
  MeterTotals water, wasteWater;
  Money waterVat, wasteWaterVat;
  Money waterGross, wasteWaterGross;
  Money gross;
  Money baseFeeWaterVat, baseFeeWasteWaterVat;
  PerMonth<Money> monthAmounts;  // water + waste water, as stored in PGesammtW
};
WaterTotals summarizeWater(const WaterInput& input);

// --- gas ---
struct GasInput {
  PerMonth<MeterMonth> gas;
  std::optional<double> start;
  std::optional<double> factor;
  std::optional<double> vat;
};

struct GasTotals {
  MeterTotals gas;  // consumption in m³
  double kwh = 0;
  Money vat;
  Money gross;
};
GasTotals summarizeGas(const GasInput& input);

}  // namespace yearbook
