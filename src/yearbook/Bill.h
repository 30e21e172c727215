#pragma once

#include <optional>

#include "base/Money.h"
#include "yearbook/Meter.h"

// The bill of one year: rows and settings in, totals out. Pure functions.
//
// Empty counts as 0. Prices of electricity and gas are cent per kWh, of water euro per m³; VAT
// rates are percent. Amounts are worked out in double and rounded half to even to four decimals
// when they become Money; cents appear only on display.
namespace yearbook {

using base::Money;

double orZero(std::optional<double> value);
Money orZero(std::optional<Money> value);

// --- rules ---

// What a consumption costs at a unit price; nullopt when it is more than an amount can be. The
// factor turns m³ of gas into kWh, the other rules have no use for it.
std::optional<Money> priceOf(PriceRule rule, double consumption, double unitPrice, double factor);
Money vatOn(Money net, double percent);    // net / 100 * percent
Money grossOf(Money net, double percent);  // net / 100 * (100 + percent), rounded once

// Of a year that is under way, as of its first months: the base fee by twelfths, and the payments
// that were due until then, whatever has been entered for the months to come.
Money baseFeeUntil(Money inTheYear, int months);
Money advancesUntil(const PerMonth<std::optional<Money>>& advances, int months);

// A contract in which some kWh of the day tariff are part of the base fee. Only what goes beyond
// them is charged, at the one price of the main window.
struct FlatRate {
  bool on = false;
  std::optional<double> freeKwh;   // in the year
  std::optional<double> dayPrice;  // cent per kWh

  // The year's day amount is worked out anew. Free kWh below 0 count as consumption.
  bool applies() const { return on && orZero(freeKwh) != 0; }
  // The tables show the free kWh as a block of their own.
  bool hasBlock() const { return on && orZero(freeKwh) > 0; }
  // What the free kWh are worth, in euro.
  double freeValue() const { return orZero(freeKwh) * orZero(dayPrice) / 100; }
  // Consumption equal to the free kWh costs nothing, less does not either.
  Money amountBeyond(double consumption) const;
};

// --- the bill ---

// One row of a meter, as stored.
struct MeterRow {
  std::optional<double> reading;
  std::optional<double> consumption;
  std::optional<Money> amount;
};

struct MeterInput {
  PerMonth<MeterRow> months;
  std::optional<double> startReading;
  std::optional<double> vat;
  std::optional<Money> baseFee;
};

struct BillInput {
  PerMeter<MeterInput> meters;
  FlatRate flatRate;
  std::optional<double> gasFactor;
};

struct MeterBill {
  double endReading = 0;   // the last reading above 0, else the start reading
  double consumption = 0;  // gas in m³
  Money amount;            // net; of the day tariff after deduction of free kWh
  Money vat;
  Money gross;
  Money baseFeeVat;
};

struct Bill {
  PerMeter<MeterBill> meters;
  PerUtility<Money> gross;  // without base fees
  double gasKwh = 0;
};
// Electricity, and water with waste water, are taxed and summed up once one of their two meters
// has an amount above 0; gas always is.
Bill billOf(const BillInput& input);

}  // namespace yearbook
