#include "readings/MeterReading.h"

#include "base/Single.h"

namespace readings {
namespace {

using base::Result;
using yearbook::orZero;

// "Zählerwechsel Gas im September", "Stand Gas Mai", "Zählerstände Gas".
std::string stepName(const YearSession& session, Meter meter, const PerMonth<double>& readings,
                     const MeterChange& change) {
  const std::string name(factsOf(meter).name);
  const auto months = session.monthNames(utilityOf(meter));
  const MeterChange stored = readMeterChange(session.files(), meterChangePath(session, meter));
  if (change != stored && change.position != MeterChange::kNone)
    return "Zählerwechsel " + name + " im " + months[change.position];
  const PerMonth<double> before = meterYear(session, meter).readings;
  int changed = 0;
  int last = 0;
  for (int k = 0; k < kMonths; ++k) {
    if (readings[k] == before[k]) continue;
    ++changed;
    last = k;
  }
  return changed == 1 ? "Stand " + name + " " + months[last] : "Zählerstände " + name;
}

Result<void> store(const YearSession& session, YearRows& rows, const MeterEntries& entries) {
  const Meter meter = entries.meter;
  const yearbook::MeterFacts& facts = factsOf(meter);
  for (int k = 0; k < kMonths; ++k)
    if (auto done = rows.of(meter).setNumber(k, *facts.reading, entries.readings[k]); !done)
      return done;
  // The readings as their column holds them.
  MeterYear year = meterYear(session, meter);
  year.change = entries.change;
  if (entries.startReading) {
    year.startReading = *entries.startReading;
    if (auto done = rows.adoZStaende.setNumber(0, *facts.startReading, entries.startReading); !done)
      return done;
  }
  const auto months = workOut(facts.rule, year);
  for (int k = 0; k < kMonths; ++k) {
    if (auto done = rows.of(meter).setNumber(k, *facts.consumption, months[k].consumption); !done)
      return done;
    if (auto done = rows.setAmount(meter, k, months[k].amount); !done) return done;
  }
  return {};
}

}  // namespace

PerMonth<WorkedMonth> workOut(PriceRule rule, const MeterYear& year) {
  PerMonth<WorkedMonth> months;
  // The reading before is carried in single precision, as it always was: from eight digits on it
  // is rounded.
  auto previous = base::toSingle(year.startReading);
  int skipped = 0;
  for (int k = 0; k < kMonths; ++k) {
    const double reading = year.readings[k];
    const bool newMeter = k == year.change.position + 1 && reading > 0;
    if (reading == 0) {
      ++skipped;
      continue;
    }
    WorkedMonth& month = months[k];
    month.entered = true;
    month.consumption = reading - (newMeter ? year.change.newStart : static_cast<double>(previous));
    month.amount = priceOf(rule, month.consumption, year.prices[k], year.gasFactor);
    month.months = 1 + skipped;
    skipped = 0;
    previous = base::toSingle(reading);
  }
  return months;
}

MeterYear meterYear(const YearSession& session, Meter meter) {
  const yearbook::MeterFacts& facts = factsOf(meter);
  const yearbook::RecordSource& rows = session.rows().of(meter);
  MeterYear year;
  for (int k = 0; k < kMonths; ++k) {
    year.readings[k] = orZero(rows.number(k, *facts.reading));
    year.prices[k] = orZero(rows.number(k, *facts.price));
  }
  year.startReading = orZero(session.values().startReadings[meter]);
  year.gasFactor = orZero(session.values().gasFactor);
  return year;
}

Result<void> takeOver(YearSession& session, Meter meter, const PerMonth<double>& readings,
                      const MeterChange& change) {
  return takeOver(session, {stepName(session, meter, readings, change), utilityOf(meter)},
                  {{meter, readings, change}});
}

Result<void> takeOver(YearSession& session, yearbook::Change step,
                      const std::vector<MeterEntries>& meters, const YearSession::Edit& more) {
  for (const MeterEntries& entries : meters)
    step.sides.push_back(meterChangeFile(session, entries.meter, entries.change));
  return session.transact(step, [&](YearRows& rows) -> Result<void> {
    for (const MeterEntries& entries : meters)
      if (auto done = store(session, rows, entries); !done) return done;
    return more ? more(rows) : Result<void>();
  });
}

std::optional<int> rowAtFault(const YearSession& session, Meter meter, const base::Error& error) {
  const std::string month = error.subject.substr(0, error.subject.find(','));
  const yearbook::Field& name = *factsOf(utilityOf(meter)).month;
  for (int k = 0; k < kMonths; ++k)
    if (!month.empty() && session.rows().of(meter).text(k, name) == month) return k;
  return std::nullopt;
}

Result<void> deleteConsumptions(YearSession& session, Meter meter) {
  yearbook::Change step{"Alle Zählerstände " + std::string(factsOf(meter).name) + " gelöscht",
                        utilityOf(meter)};
  step.sides = {meterChangeFile(session, meter, {})};
  step.mass = true;
  return session.transact(step, [&](YearRows& rows) -> Result<void> {
    for (int k = 0; k < kMonths; ++k) {
      if (auto done = rows.of(meter).setNumber(k, *factsOf(meter).consumption, 0); !done)
        return done;
      if (auto done = rows.setAmount(meter, k, Money()); !done) return done;
    }
    return {};
  });
}

}  // namespace readings
