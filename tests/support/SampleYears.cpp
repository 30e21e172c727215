#include "support/SampleYears.h"

#include "base/GermanNumber.h"

namespace sample {
namespace {

using base::Money;
using reports::Meter;

constexpr std::size_t kMonths = 12;
using Months = std::array<double, kMonths>;

struct YearFigures {
  const char* fileName;
  int year;
  std::array<Months, reports::kMeterCount> consumption;  // gas in m³
  std::array<Months, reports::kMeterCount> price;
  double gasFactor;
  std::array<double, reports::kMeterCount> monthlyFee;
  std::array<double, 3> monthlyAdvance;
};

constexpr Months all(double value) {
  Months months{};
  for (double& month : months) month = value;
  return months;
}
constexpr Months split(double first, std::size_t count, double then) {
  Months months = all(then);
  for (std::size_t i = 0; i < count; ++i) months[i] = first;
  return months;
}

const YearFigures k2024 = {
    "Verbrauch2024.kwd",
    2024,
    {{{299, 263, 268, 247, 237, 228, 219, 214, 240, 261, 284, 313},
      {183, 158, 146, 122, 105, 95, 92, 91, 104, 126, 152, 179},
      {10, 10, 9, 11, 10, 12, 12, 11, 11, 9, 10, 10},
      {10, 10, 9, 11, 10, 12, 12, 11, 11, 9, 10, 10},
      {237, 174, 157, 108, 48, 29, 24, 21, 50, 104, 179, 219}}},
    {split(30.40, 6, 29.60), split(25.10, 6, 24.40), all(2.10), all(2.86), split(8.95, 9, 9.20)},
    10.483,
    {12.90, 0, 8.50, 0, 10.80},
    {150, 63, 130}};

const YearFigures k2025 = {
    "Verbrauch2025.kwd",
    2025,
    {{{291, 255, 260, 239, 231, 223, 226, 198, 234, 255, 276, 305},
      {180, 157, 141, 115, 101, 92, 89, 85, 99, 122, 147, 171},
      {10, 9, 9, 10, 11, 11, 12, 9, 10, 9, 10, 9},
      {10, 9, 9, 10, 11, 11, 12, 9, 10, 9, 10, 9},
      {240, 226, 179, 96, 62, 28, 24, 20, 44, 108, 177, 204}}},
    {split(29.60, 3, 28.90), split(24.40, 3, 23.90), all(2.25), all(3.05), split(9.45, 6, 9.25)},
    10.523,
    {13.50, 0, 8.90, 0, 11.20},
    {136, 66, 142}};

constexpr std::array<double, reports::kMeterCount> kVat = {19, 19, 7, 0, 19};

Money amountOf(const YearFigures& year, Meter meter, std::size_t month) {
  const auto m = static_cast<std::size_t>(meter);
  const double product = year.consumption[m][month] * year.price[m][month];
  if (meter == Meter::Gas) return Money::roundHalfEven(product * year.gasFactor / 100);
  const bool cents = meter == Meter::Day || meter == Meter::Night;
  return Money::roundHalfEven(cents ? product / 100 : product);
}

Money sumOf(const YearFigures& year, Meter meter) {
  Money sum;
  for (std::size_t month = 0; month < kMonths; ++month) sum += amountOf(year, meter, month);
  return sum;
}

reports::EnteredNumber entered(double value) {
  return {base::formatShort(value), value};
}

reports::OverviewInput overviewOf(const YearFigures& year) {
  reports::OverviewInput in;
  in.yearFileName = year.fileName;
  in.currentYear = 2026;
  in.currentMonth = 11;
  for (std::size_t i = 0; i < kMonths; ++i) {
    const std::string month(base::kMonthNames[i]);
    in.electricity[i] = {month, amountOf(year, Meter::Day, i) + amountOf(year, Meter::Night, i)};
    in.water[i] = {month, amountOf(year, Meter::Water, i) + amountOf(year, Meter::WasteWater, i)};
    in.gas[i] = {month, amountOf(year, Meter::Gas, i)};
  }
  in.dayAmount = sumOf(year, Meter::Day);
  in.nightAmount = sumOf(year, Meter::Night);
  in.waterAmount = sumOf(year, Meter::Water);
  in.wasteWaterAmount = sumOf(year, Meter::WasteWater);
  in.gasAmount = sumOf(year, Meter::Gas);
  const auto fee = [&](Meter meter) {
    return Money::roundHalfEven(year.monthlyFee[static_cast<std::size_t>(meter)] * 12);
  };
  in.baseFeeElectricity = fee(Meter::Day);
  in.baseFeeWater = fee(Meter::Water);
  in.baseFeeWasteWater = fee(Meter::WasteWater);
  in.baseFeeGas = fee(Meter::Gas);
  in.vatElectricity = entered(19);
  in.vatWater = entered(7);
  in.vatWasteWater = entered(0);
  in.vatGas = entered(19);
  in.advanceElectricity = Money::roundHalfEven(year.monthlyAdvance[0] * 12);
  in.advanceWater = Money::roundHalfEven(year.monthlyAdvance[1] * 12);
  in.advanceGas = Money::roundHalfEven(year.monthlyAdvance[2] * 12);
  in.freeKwh = entered(0);
  in.dayPrice = year.price[0].back();
  in.monthsReadElectricity = in.monthsReadWater = in.monthsReadGas = 12;
  return in;
}

reports::DetailInput detailOf(const YearFigures& year) {
  reports::DetailInput in;
  using namespace std::chrono;
  in.today = 2026y / November / 14;
  in.dayPrice = year.price[0].back();
  for (std::size_t m = 0; m < reports::kMeterCount; ++m) {
    reports::DetailMeter& meter = in.meters[m];
    for (std::size_t i = 0; i < kMonths; ++i)
      meter.months[i] = {std::string(base::kMonthNames[i]), year.consumption[m][i],
                         year.price[m][i], amountOf(year, static_cast<Meter>(m), i)};
    meter.vatPercent = kVat[m];
    meter.baseFee = Money::roundHalfEven(year.monthlyFee[m] * 12);
  }
  return in;
}

}  // namespace

reports::OverviewInput overview2024() {
  return overviewOf(k2024);
}
reports::OverviewInput overview2025() {
  return overviewOf(k2025);
}

reports::OverviewInput overviewFresh() {
  reports::OverviewInput in;
  in.yearFileName = "Verbrauch.kwd";
  in.currentYear = 2026;
  in.currentMonth = 11;
  for (auto* rows : {&in.electricity, &in.water, &in.gas})
    for (std::size_t i = 0; i < kMonths; ++i) (*rows)[i].month = base::kMonthNames[i];
  // The summaries have run over the empty rows: they leave zeros in the totals and in the months
  // of electricity and water, and nothing in the fields that nobody has filled yet.
  for (auto* rows : {&in.electricity, &in.water})
    for (auto& row : *rows) row.amount = Money();
  in.dayAmount = in.nightAmount = in.waterAmount = in.wasteWaterAmount = in.gasAmount = Money();
  in.advanceElectricity = in.advanceWater = in.advanceGas = Money();
  return in;
}

reports::OverviewInput overviewFlatRate() {
  reports::OverviewInput in = overview2025();
  in.flatRate = true;
  in.freeKwh = entered(1500);
  // 2.993 kWh less 1.500 at 28,90 cent.
  in.dayAmount = Money::roundHalfEven(431.477);
  return in;
}

reports::DetailInput detail2024() {
  return detailOf(k2024);
}
reports::DetailInput detail2025() {
  return detailOf(k2025);
}

reports::DetailInput detailFresh() {
  reports::DetailInput in = detailOf(k2025);
  for (auto& meter : in.meters) {
    meter.vatPercent.reset();
    meter.baseFee.reset();
    for (auto& month : meter.months) month = {month.month, {}, {}, {}};
  }
  return in;
}

}  // namespace sample
