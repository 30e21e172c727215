#include "charts/YearData.h"

#include <cmath>

#include "base/Paths.h"
#include "jet/Database.h"
#include "yearbook/YearSession.h"

namespace charts {
namespace {

struct Source {
  Meter meter;
  const char* column;
  const char* table;
  const yearbook::Field* chartField;
  yearbook::Utility utility;
};

constexpr std::array<Source, kMeterCount> kSources = {{
    {Meter::DayElectricity, "VTagStrom", "Strom", &yearbook::verbrMonat::day,
     yearbook::Utility::Electricity},
    {Meter::Gas, "VGas", "Gas", &yearbook::verbrMonat::gas, yearbook::Utility::Gas},
    {Meter::Water, "VWasser", "Wasser", &yearbook::verbrMonat::water, yearbook::Utility::Water},
    {Meter::WasteWater, "VAbwasser", "Wasser", &yearbook::verbrMonat::wasteWater,
     yearbook::Utility::Water},
    {Meter::NightElectricity, "VNachtStrom", "Strom", &yearbook::verbrMonat::night,
     yearbook::Utility::Electricity},
}};

struct ToNumber {
  std::optional<double> operator()(jet::Null) const { return 0.0; }
  std::optional<double> operator()(std::int64_t value) const { return static_cast<double>(value); }
  std::optional<double> operator()(float value) const { return finite(value); }
  std::optional<double> operator()(double value) const { return finite(value); }
  std::optional<double> operator()(base::Money value) const { return value.toDouble(); }
  std::optional<double> operator()(const jet::Decimal& value) const {
    return finite(value.toDouble());
  }
  template <class Other>
  std::optional<double> operator()(const Other&) const {
    return std::nullopt;
  }
  static std::optional<double> finite(double value) {
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
  }
};

MonthRows readRows(jet::Database& database, const Source& source) {
  MonthRows rows;
  auto records = database.openTable(source.table);
  if (!records) return rows;
  const auto value = records->columnIndex(source.column);
  const auto month = records->columnIndex("Monat");
  for (std::size_t i = 0; i < rows.size() && i < records->count(); ++i) {
    const auto fields = records->row(i);
    if (!fields) continue;
    if (value) rows[i].value = std::visit(ToNumber{}, fields->at(*value));
    if (!month) continue;
    if (const auto* name = std::get_if<std::string>(&fields->at(*month))) rows[i].month = *name;
  }
  return rows;
}

}  // namespace

YearData readChartTable(const yearbook::YearSession& year) {
  YearData data;
  data.databaseName = base::fileName(year.path());
  for (const Source& source : kSources) {
    const auto months = year.monthNames(source.utility);
    for (std::size_t i = 0; i < kMonthCount; ++i)
      data.rows(source.meter)[i] = {
          months[i], year.adoVerbrM.number(static_cast<int>(i), *source.chartField).value_or(0)};
  }
  return data;
}

YearData readYear(jet::Database& database) {
  YearData data;
  data.databaseName = base::fileName(database.path());
  for (const Source& source : kSources) data.rows(source.meter) = readRows(database, source);
  return data;
}

YearData FileComparisonSource::open(const std::string& path) {
  jet::OpenOptions options;
  options.readOnly = true;
  auto database = jet::Database::open(files_, path, options);
  if (database) return readYear(*database);
  YearData data;
  data.databaseName = base::fileName(path);
  return data;
}

}  // namespace charts
