#include "yearbook/YearRows.h"

#include <algorithm>

namespace yearbook {

using base::Failure;
using base::Result;

Result<YearRows> YearRows::open(jet::Database& database) {
  std::vector<RecordSource> sources;
  for (const Table* table : allTables()) {
    auto source = RecordSource::open(database, *table);
    if (!source) return Failure(source.error());
    sources.push_back(std::move(*source));
  }
  return YearRows{std::move(sources[0]), std::move(sources[1]), std::move(sources[2]),
                  std::move(sources[3]), std::move(sources[4])};
}

Result<void> YearRows::refresh() {
  for (RecordSource* source : {&adoStrom, &adoWasser, &adoGas, &adoVerbrM, &adoZStaende})
    if (auto done = source->refresh(); !done) return done;
  return {};
}

RecordSource& YearRows::of(Utility utility) {
  return utility == Utility::Electricity ? adoStrom
         : utility == Utility::Water     ? adoWasser
                                         : adoGas;
}

const RecordSource& YearRows::of(Utility utility) const {
  return const_cast<YearRows*>(this)->of(utility);
}

PerMonth<MeterRow> YearRows::months(Meter meter) const {
  const MeterFacts& facts = factsOf(meter);
  const RecordSource& source = of(meter);
  PerMonth<MeterRow> months;
  for (int i = 0; i < kMonths; ++i)
    months[i] = {source.number(i, *facts.reading), source.number(i, *facts.consumption),
                 source.money(i, *facts.amount)};
  return months;
}

RecordSource& YearRows::of(const Field& field) {
  for (RecordSource* source : {&adoStrom, &adoWasser, &adoGas, &adoVerbrM}) {
    const auto fields = source->table().fields;
    if (std::find(fields.begin(), fields.end(), &field) != fields.end()) return *source;
  }
  return adoZStaende;
}

std::vector<CellChange> YearRows::takeWritten() {
  std::vector<CellChange> written;
  for (RecordSource* source : {&adoStrom, &adoWasser, &adoGas, &adoVerbrM, &adoZStaende}) {
    const std::vector<CellChange> changes = source->takeWritten();
    written.insert(written.end(), changes.begin(), changes.end());
  }
  return written;
}

Result<void> YearRows::setAmount(Meter meter, int row, std::optional<Money> amount) {
  RecordSource& source = of(meter);
  if (amount) return source.setMoney(row, *factsOf(meter).amount, amount);
  base::Error error;
  error.code = base::ErrorCode::InvalidValue;
  error.subject = source.text(row, *factsOf(utilityOf(meter)).month);
  error.detail = "der Betrag ist zu groß";
  return base::fail(error);
}

Result<void> YearRows::price(Meter meter, int row, double factor) {
  const MeterFacts& facts = factsOf(meter);
  const RecordSource& source = of(meter);
  return setAmount(meter, row,
                   priceOf(facts.rule, orZero(source.number(row, *facts.consumption)),
                           orZero(source.number(row, *facts.price)), factor));
}

Result<void> followMonthAmounts(YearRows& rows, Utility utility, Follow how) {
  if (!hasMonthSum(utility)) return {};
  RecordSource& source = rows.of(utility);
  PerMonth<Money> amounts;
  for (Meter meter : metersOf(utility))
    for (int i = 0; i < kMonths; ++i) amounts[i] += orZero(source.money(i, *factsOf(meter).amount));
  const Field& field = *factsOf(utility).monthAmount;
  for (int i = 0; i < kMonths; ++i) {
    if (how == Follow::ShownOnly)
      source.keep(i, field, amounts[i]);
    else if (auto done = source.setMoney(i, field, amounts[i]); !done)
      return done;
  }
  return {};
}

Result<void> followChartTable(YearRows& rows, Meter meter, Follow how) {
  const MeterFacts& facts = factsOf(meter);
  const RecordSource& source = rows.of(meter);
  for (int i = 0; i < kMonths; ++i) {
    if (how == Follow::ShownOnly)
      rows.adoVerbrM.keep(i, *facts.chartCopy, source.raw(i, *facts.consumption));
    else if (auto done = rows.adoVerbrM.setNumber(i, *facts.chartCopy,
                                                  source.number(i, *facts.consumption));
             !done)
      return done;
  }
  return {};
}

}  // namespace yearbook
