#include "charts/YearData.h"

#include "base/Paths.h"
#include "jet/Database.h"
#include "yearbook/YearSession.h"

namespace charts {
namespace {

using yearbook::MeterFacts;

// An empty field counts as 0, whatever column it stands in.
std::optional<double> valueOf(const jet::Value& stored) {
  return std::holds_alternative<jet::Null>(stored) ? std::optional(0.0)
                                                   : yearbook::numberOf(stored);
}

MonthRows readRows(jet::Database& database, const MeterFacts& meter, const yearbook::Field& field) {
  const yearbook::UtilityFacts& utility = factsOf(meter.utility);
  MonthRows rows;
  auto records = database.openTable(utility.table->name);
  if (!records) return rows;
  const auto value = records->columnIndex(field.name);
  const auto month = records->columnIndex(utility.month->name);
  for (int i = 0; i < kMonthCount && static_cast<std::size_t>(i) < records->count(); ++i) {
    const auto fields = records->row(static_cast<std::size_t>(i));
    if (!fields) continue;
    if (value) rows[i].value = valueOf(fields->at(*value));
    if (!month) continue;
    if (const auto* name = std::get_if<std::string>(&fields->at(*month))) rows[i].month = *name;
  }
  return rows;
}

double readVat(jet::Database& database, const MeterFacts& meter) {
  auto records = database.openTable(yearbook::kZStaende.name);
  if (!records || records->count() == 0) return 0;
  const auto column = records->columnIndex(meter.vat->name);
  const auto fields = records->row(0);
  if (!column || !fields) return 0;
  return yearbook::numberOf(fields->at(*column)).value_or(0);
}

// The amounts and rates of the open year; its months are those of the consumptions.
void readCosts(const yearbook::YearSession& year, YearData& data) {
  for (Meter meter : yearbook::kMeters) {
    const MeterFacts& facts = factsOf(meter);
    data.vat[meter] = yearbook::orZero(year.values().vat[meter]);
    for (int i = 0; i < kMonthCount; ++i)
      data.net[meter][i] = {data.meters[meter][i].month,
                            valueOf(year.rows().of(meter).raw(i, *facts.amount))};
  }
}

}  // namespace

MonthRows YearData::rows(Meter meter, Shown shown) const {
  if (shown == Shown::Consumption) return meters[meter];
  MonthRows rows = net[meter];
  if (shown == Shown::Gross)
    for (MonthRow& row : rows)
      if (row.value)
        row.value =
            yearbook::grossOf(base::Money::roundHalfEven(*row.value), vat[meter]).toDouble();
  return rows;
}

YearData readChartTable(const yearbook::YearSession& year) {
  YearData data;
  data.databaseName = base::fileName(year.path());
  for (Meter meter : yearbook::kMeters) {
    const MeterFacts& facts = factsOf(meter);
    const auto months = year.monthNames(facts.utility);
    for (int i = 0; i < kMonthCount; ++i)
      data.meters[meter][i] = {months[i],
                               yearbook::orZero(year.adoVerbrM.number(i, *facts.chartCopy))};
  }
  readCosts(year, data);
  return data;
}

YearData readYear(const yearbook::YearSession& year) {
  YearData data;
  data.databaseName = base::fileName(year.path());
  for (Meter meter : yearbook::kMeters) {
    const MeterFacts& facts = factsOf(meter);
    const yearbook::RecordSource& rows = year.rows().of(meter);
    for (int i = 0; i < kMonthCount; ++i)
      data.meters[meter][i] = {rows.text(i, *factsOf(facts.utility).month),
                               valueOf(rows.raw(i, *facts.consumption))};
  }
  readCosts(year, data);
  return data;
}

YearData readYearFile(base::FileSystem& files, const std::string& path) {
  YearData data;
  data.databaseName = base::fileName(path);
  jet::OpenOptions options;
  options.readOnly = true;
  auto database = jet::Database::open(files, path, options);
  if (!database) return data;
  for (Meter meter : yearbook::kMeters) {
    const MeterFacts& facts = factsOf(meter);
    data.meters[meter] = readRows(*database, facts, *facts.consumption);
    data.net[meter] = readRows(*database, facts, *facts.amount);
    data.vat[meter] = readVat(*database, facts);
  }
  return data;
}

}  // namespace charts
