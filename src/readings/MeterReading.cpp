#include "readings/MeterReading.h"

#include "base/Single.h"

namespace readings {
namespace {

using base::Result;
using yearbook::orZero;

Result<void> clearRow(RecordSource& rows, int row, const MeterVariant& meter) {
  if (auto done = rows.setNumber(row, *meter.consumption, 0); !done) return done;
  if (auto done = rows.setMoney(row, *meter.amount, Money()); !done) return done;
  if (!meter.monthAmount) return {};
  return rows.setMoney(row, *meter.monthAmount, Money());
}

// What follows from new consumptions, within the same transaction.
Result<void> followUp(YearSession& session, const MeterVariant& meter) {
  if (auto done = session.copyToChartTable(); !done) return done;
  return session.reload(meter.utility);
}

}  // namespace

PerMonth<MeterMonth> workOut(PriceRule rule, const MeterYear& year) {
  PerMonth<MeterMonth> months;
  // The reading before is carried in single precision, as it always was: from eight digits on it
  // is rounded.
  auto previous = base::toSingle(year.startReading);
  int skipped = 0;
  for (std::size_t k = 0; k < months.size(); ++k) {
    const double reading = year.readings[k];
    const bool newMeter = static_cast<int>(k) == year.change.position + 1 && reading > 0;
    if (reading == 0) {
      ++skipped;
      continue;
    }
    MeterMonth& month = months[k];
    month.entered = true;
    month.consumption = reading - (newMeter ? year.change.newStart : static_cast<double>(previous));
    month.amount = priceOf(rule, month.consumption, year.prices[k], year.gasFactor);
    month.months = 1 + skipped;
    skipped = 0;
    previous = base::toSingle(reading);
  }
  return months;
}

MeterYear meterYear(const YearSession& session, const MeterVariant& meter) {
  const RecordSource& rows = session.*meter.rows;
  MeterYear year;
  for (int k = 0; k < kMonths; ++k) {
    const auto month = static_cast<std::size_t>(k);
    year.readings[month] = orZero(rows.number(k, *meter.reading));
    year.prices[month] = orZero(rows.number(k, *meter.price));
  }
  year.startReading = orZero(session.values().*meter.startReading);
  year.gasFactor = orZero(session.values().gasFactor);
  return year;
}

Result<void> takeOver(YearSession& session, const MeterVariant& meter,
                      const PerMonth<double>& readings, const MeterChange& change) {
  RecordSource& rows = session.*meter.rows;
  return session.transact([&]() -> Result<void> {
    for (int k = 0; k < kMonths; ++k) {
      if (auto done = clearRow(rows, k, meter); !done) return done;
      const double reading = readings[static_cast<std::size_t>(k)];
      if (auto done = rows.setNumber(k, *meter.reading, reading); !done) return done;
    }
    MeterYear year = meterYear(session, meter);
    year.change = change;
    const auto months = workOut(meter.rule, year);
    for (int k = 0; k < kMonths; ++k) {
      const MeterMonth& month = months[static_cast<std::size_t>(k)];
      if (!month.entered) continue;
      if (auto done = rows.setNumber(k, *meter.consumption, month.consumption); !done) return done;
      if (!month.amount) return amountTooLarge(rows.table(), *meter.amount);
      if (auto done = rows.setMoney(k, *meter.amount, month.amount); !done) return done;
    }
    return followUp(session, meter);
  });
}

Result<void> deleteConsumptions(YearSession& session, const MeterVariant& meter) {
  return session.transact([&]() -> Result<void> {
    for (int k = 0; k < kMonths; ++k)
      if (auto done = clearRow(session.*meter.rows, k, meter); !done) return done;
    return followUp(session, meter);
  });
}

}  // namespace readings
