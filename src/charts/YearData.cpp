#include "charts/YearData.h"

#include <cmath>

#include "base/Paths.h"
#include "jet/Database.h"
#include "yearbook/YearSession.h"

namespace charts {
namespace {

using yearbook::Field;
using yearbook::Utility;
namespace strom = yearbook::strom;
namespace wasser = yearbook::wasser;
namespace gas = yearbook::gas;
namespace verbrMonat = yearbook::verbrMonat;

struct Source {
  Meter meter;
  Utility utility;
  const yearbook::Table* table;
  const Field* month;
  const Field* consumption;
  const Field* chartField;
};

constexpr std::array<Source, kMeterCount> kSources = {{
    {Meter::DayElectricity, Utility::Electricity, &yearbook::kStrom, &strom::month,
     &strom::dayConsumption, &verbrMonat::day},
    {Meter::Gas, Utility::Gas, &yearbook::kGas, &gas::month, &gas::consumption, &verbrMonat::gas},
    {Meter::Water, Utility::Water, &yearbook::kWasser, &wasser::month, &wasser::consumption,
     &verbrMonat::water},
    {Meter::WasteWater, Utility::Water, &yearbook::kWasser, &wasser::month,
     &wasser::wasteConsumption, &verbrMonat::wasteWater},
    {Meter::NightElectricity, Utility::Electricity, &yearbook::kStrom, &strom::month,
     &strom::nightConsumption, &verbrMonat::night},
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
  auto records = database.openTable(source.table->name);
  if (!records) return rows;
  const auto value = records->columnIndex(source.consumption->name);
  const auto month = records->columnIndex(source.month->name);
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
