#include "analysis/Forecast.h"

#include <algorithm>

#include "analysis/Cost.h"

namespace analysis {
namespace {

constexpr int kLeastDistance = 300;  // days; a year that begins later is no earlier one

Course courseOf(const Year& year, Meter meter) {
  Course course{year.monthAt(meter, 0), {}};
  for (int i = 0; i < kMonths; ++i) course.months[i] = year.consumption(meter, i);
  return course;
}

struct Earlier {
  std::vector<Course> courses;
  std::vector<std::string> labels;
};

Earlier earlierYears(const Year& year, const YearFolder& folder, Meter meter) {
  Earlier earlier;
  for (const Year& other : folder.years) {
    if (base::daysBetween(other.start, year.start) < kLeastDistance) continue;
    if (!other.isComplete(meter) || courseOf(other, meter).total() <= 0) continue;
    earlier.courses.push_back(courseOf(other, meter));
    earlier.labels.push_back(other.label());
  }
  return earlier;
}

bool hasOtherMeter(const Year& year, Meter first) {
  for (const Meter meter : yearbook::metersOf(utilityOf(first)))
    if (year.months[meter] > 0) return true;
  return false;
}

// The last value above 0 up to a month.
template <class T>
T lastEntered(const PerMonth<std::optional<T>>& values, int position) {
  for (int i = position; i >= 0; --i)
    if (values[i] && *values[i] > T()) return *values[i];
  return T();
}

// Net of the year, with the months to come `scale` times as expected.
Money amountOf(const Year& year, Meter meter, const Outlook& outlook, double scale) {
  yearbook::BillInput input;
  yearbook::MeterInput& rows = input.meters[meter];
  const yearbook::FieldValues& values = year.values;
  for (int i = 0; i < kMonths; ++i) {
    rows.months[i] = year.rows[meter][i];
    if (i < outlook.monthsRead) continue;
    const double consumption = outlook.months[i] * scale;
    rows.months[i] = {
        std::nullopt, consumption,
        yearbook::priceOf(factsOf(meter).rule, consumption, lastEntered(year.prices[meter], i),
                          yearbook::orZero(values.gasFactor))};
  }
  input.flatRate = {values.flatRate, values.freeKwh, values.prices[Meter::Day]};
  return yearbook::billOf(input).meters[meter].amount;
}

MeterForecast meterForecast(const Year& year, Meter meter, const Outlook& outlook) {
  MeterForecast forecast;
  forecast.outlook = outlook;
  double soFar = 0;
  for (int i = 0; i < outlook.monthsRead; ++i) soFar += outlook.months[i];
  const double rest = outlook.year - soFar;
  const auto costAt = [&](double end) {
    const double scale = rest > 0 ? (end - soFar) / rest : 0;
    return costOf(year.values, meter, amountOf(year, meter, outlook, scale));
  };
  const Cost expected = costAt(outlook.year), low = costAt(outlook.low),
             high = costAt(outlook.high);
  forecast.net = expected.net;
  forecast.gross = expected.gross;
  forecast.netLow = low.net;
  forecast.grossLow = low.gross;
  forecast.netHigh = high.net;
  forecast.grossHigh = high.gross;
  return forecast;
}

// Payments of the months read count as entered.
Money advanceAt(const PerMonth<std::optional<Money>>& advances, int position, int monthsRead) {
  return position < monthsRead ? yearbook::orZero(advances[position])
                               : lastEntered(advances, position);
}

std::optional<UtilityForecast> utilityForecast(const Forecast& all, Utility utility) {
  UtilityForecast forecast;
  int read = 0;
  bool known = false;
  for (const Meter meter : yearbook::metersOf(utility)) {
    const auto& part = all.meters[meter];
    if (!part) continue;
    known = true;
    read = std::max(read, part->outlook.monthsRead);
    forecast.gross += part->gross;
    forecast.grossLow += part->grossLow;
    forecast.grossHigh += part->grossHigh;
  }
  if (!known) return std::nullopt;
  const auto& advances = all.year->values.advances[utility];
  Money paid;
  for (int i = 0; i < kMonths; ++i) {
    const Money advance = advanceAt(advances, i, read);
    forecast.advances += advance;
    if (i < read) paid += advance;
  }
  forecast.balance = forecast.gross - forecast.advances;
  forecast.balanceLow = forecast.grossLow - forecast.advances;
  forecast.balanceHigh = forecast.grossHigh - forecast.advances;
  if (read == kMonths) return forecast;
  const auto perMonth = [&](Money gross) {
    return Money::roundHalfEven(std::max(0.0, (gross - paid).toDouble()) / (kMonths - read));
  };
  forecast.payment = perMonth(forecast.gross);
  forecast.paymentLow = perMonth(forecast.grossLow);
  forecast.paymentHigh = perMonth(forecast.grossHigh);
  const Meter first = yearbook::metersOf(utility).front();
  forecast.from =
      base::kMonthNames[static_cast<std::size_t>(all.year->calendarMonth(first, read) - 1)];
  return forecast;
}

}  // namespace

Forecast forecastOf(const Year& year, const YearFolder& folder, int monthsRead) {
  Forecast forecast;
  forecast.year = &year;
  for (const Meter meter : kMeters) {
    const int read = monthsRead > 0 ? std::min(monthsRead, year.months[meter]) : year.months[meter];
    const Earlier earlier = earlierYears(year, folder, meter);
    auto outlook = outlookOf(meter, courseOf(year, meter), read, earlier.courses);
    if (outlook && outlook->year <= 0) outlook.reset();
    // The utility's base fees and payments go with its first meter, used or not.
    if (!outlook && isFirstMeter(meter) && hasOtherMeter(year, meter)) outlook = Outlook{read};
    if (!outlook) continue;
    forecast.meters[meter] = meterForecast(year, meter, *outlook);
    forecast.meters[meter]->ownYears = earlier.labels;
    forecast.net += forecast.meters[meter]->net;
    if (read <= forecast.monthsRead) continue;
    forecast.monthsRead = read;
    forecast.lastMonth =
        base::kMonthNames[static_cast<std::size_t>(year.calendarMonth(meter, read - 1) - 1)];
  }
  for (const Utility utility : yearbook::kUtilities) {
    forecast.utilities[utility] = utilityForecast(forecast, utility);
    if (!forecast.utilities[utility]) continue;
    forecast.gross += forecast.utilities[utility]->gross;
    forecast.balance += forecast.utilities[utility]->balance;
  }
  return forecast;
}

}  // namespace analysis
