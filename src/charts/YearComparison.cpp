#include "charts/YearComparison.h"

#include "base/GermanDate.h"
#include "base/Paths.h"

namespace charts {
namespace {

struct ComparisonRow {
  Meter meter;
  const char* prefix;
  const char* title;
  const char* unit;
  Hue hue;
};

// By index - 1. The night tariff goes by the name of the day tariff.
constexpr std::array<ComparisonRow, kLastComparison> kComparisons = {{
    {Meter::Day, "Strom / ", "Verbrauch Strom", "kWh", Hue::Electricity},
    {Meter::Gas, "Gas / ", "Verbrauch Gas", "m³", Hue::Gas},
    {Meter::Water, "Wasser / ", "Verbrauch Wasser", "m³", Hue::Water},
    {Meter::WasteWater, "Abwasser / ", "Verbrauch Abwasser", "m³", Hue::WasteWater},
    {Meter::Night, "Strom / ", "Verbrauch Nachtstrom", "kWh", Hue::NightElectricity},
}};

Series yearSeries(const YearData& year, const ComparisonRow& row, Hue hue, Shown shown) {
  return {row.prefix + base::baseName(year.databaseName), hue,
          byCalendarMonth(year.rows(row.meter, shown)), row.unit};
}

}  // namespace

MonthValues byCalendarMonth(const MonthRows& rows) {
  MonthValues values;
  for (const MonthRow& row : rows)
    if (const int month = base::monthNumber(row.month); month > 0)
      values[static_cast<std::size_t>(month - 1)] = row.value;
  return values;
}

ChartModel comparisonChart(const YearData& openYear, const std::optional<YearData>& otherYear,
                           int index, Shown shown) {
  const ComparisonRow& row = kComparisons.at(static_cast<std::size_t>(index - kFirstComparison));
  ChartModel model;
  model.title = row.title;
  model.axisTitle = "Monat Januar bis Dezember";
  model.unit = row.unit;
  for (std::size_t i = 0; i < kMonthCount; ++i) {
    model.months[i] = base::kMonthNames[i];
    model.labels[i] = shortMonth(base::kMonthNames[i]);
  }
  model.series.push_back(yearSeries(openYear, row, row.hue, shown));
  if (otherYear) model.series.push_back(yearSeries(*otherYear, row, Hue::OtherYear, shown));
  labelAsCosts(model, shown);
  return model;
}

}  // namespace charts
