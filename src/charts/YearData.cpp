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

MonthRows readRows(jet::Database& database, const MeterFacts& meter) {
  const yearbook::UtilityFacts& utility = factsOf(meter.utility);
  MonthRows rows;
  auto records = database.openTable(utility.table->name);
  if (!records) return rows;
  const auto value = records->columnIndex(meter.consumption->name);
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

}  // namespace

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
  return data;
}

YearData readYearFile(base::FileSystem& files, const std::string& path) {
  YearData data;
  data.databaseName = base::fileName(path);
  jet::OpenOptions options;
  options.readOnly = true;
  auto database = jet::Database::open(files, path, options);
  if (!database) return data;
  for (Meter meter : yearbook::kMeters) data.meters[meter] = readRows(*database, factsOf(meter));
  return data;
}

}  // namespace charts
