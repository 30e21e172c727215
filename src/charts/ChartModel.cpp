#include "charts/ChartModel.h"

#include <algorithm>
#include <cmath>

#include "base/GermanDate.h"
#include "base/GermanNumber.h"
#include "base/TextCodec.h"

namespace charts {
namespace {

struct SelectionRow {
  std::string_view mode;
  std::string_view title;
  std::string_view captionPrefix;
  std::string_view unit;
};

// By Selection. Only the first prefix has a single blank.
constexpr std::array<SelectionRow, kSelectionCount> kRows = {{
    {"alle", "Verbrauch Strom, Gas, Wasser und Abwasser", "Startmonat ist  ", "m³"},
    {"strom", "Verbrauch Strom", "Startmonat ist ", "kWh"},
    {"gas", "Verbrauch Gas", "Startmonat ist  ", "m³"},
    {"wasser", "Verbrauch Wasser", "Startmonat ist  ", "m³"},
    {"abwasser", "Verbrauch Abwasser", "Startmonat ist  ", "m³"},
    {"ww", "Verbrauch Wasser und Abwasser", "Startmonat ist  ", "m³"},
    {"nachtstrom", "Verbrauch Nachtstrom", "Startmonat ist  ", "kWh"},
}};

const SelectionRow& rowOf(Selection selection) {
  return kRows.at(static_cast<std::size_t>(selection));
}

std::vector<Meter> metersOf(Selection selection) {
  switch (selection) {
    case Selection::None:
      return {Meter::Day, Meter::Gas, Meter::Water, Meter::WasteWater};
    case Selection::Electricity:
      return {Meter::Day};
    case Selection::Gas:
      return {Meter::Gas};
    case Selection::Water:
      return {Meter::Water};
    case Selection::WasteWater:
      return {Meter::WasteWater};
    case Selection::BothWaters:
      return {Meter::Water, Meter::WasteWater};
    case Selection::Night:
      return {Meter::Night};
  }
  return {};
}

struct MeterLook {
  const char* name;
  const char* unit;
  Hue hue;
};

// The night tariff goes by the name of the day tariff.
constexpr PerMeter<MeterLook> kLooks = {{{{"Strom", "kWh", Hue::Electricity},
                                          {"Strom", "kWh", Hue::NightElectricity},
                                          {"Wasser", "m³", Hue::Water},
                                          {"Abwasser", "m³", Hue::WasteWater},
                                          {"Gas", "m³", Hue::Gas}}}};

// The values in the order of the given months, if every month is found among the rows; else by
// position.
MonthValues alignedValues(const MonthRows& rows, const MonthRows& order) {
  MonthValues aligned, plain;
  bool complete = true;
  for (int i = 0; i < yearbook::kMonths; ++i) {
    plain[i] = rows[i].value;
    const auto found = std::find_if(
        rows.begin(), rows.end(), [&](const MonthRow& row) { return row.month == order[i].month; });
    if (found == rows.end())
      complete = false;
    else
      aligned[i] = found->value;
  }
  return complete ? aligned : plain;
}

double sumOf(const MonthValues& values) {
  double sum = 0;
  for (const auto& value : values) sum += std::fabs(value.value_or(0));
  return sum;
}

std::string withUnit(double value, const std::string& unit) {
  const std::string text = valueText(value);
  return unit.empty() ? text : text + " " + unit;
}

}  // namespace

Selection selectionOf(std::string_view mode) {
  for (std::size_t i = 1; i < kRows.size(); ++i)
    if (kRows[i].mode == mode) return static_cast<Selection>(i);
  return Selection::None;
}

std::string openingCaption(const YearData& year, Selection selection) {
  return "Startmonat ist  " + year.meters[metersOf(selection).front()][0].month;
}

void labelAsCosts(ChartModel& model, Shown shown) {
  if (shown == Shown::Consumption) return;
  constexpr std::string_view kConsumption = "Verbrauch ";
  if (model.title.starts_with(kConsumption)) model.title.erase(0, kConsumption.size());
  model.title = "Kosten " + model.title + (shown == Shown::Net ? ", netto" : ", brutto") +
                " ohne Grundgebühr";
  model.unit = "Euro";
  model.secondUnit.clear();
  for (Series& series : model.series) {
    series.unit = model.unit;
    series.secondAxis = false;
    series.stack = 0;
  }
}

ChartModel monthlyChart(const YearData& year, Selection selection, Shown shown) {
  const SelectionRow& row = rowOf(selection);
  const std::vector<Meter> meters = metersOf(selection);
  const MonthRows& first = year.meters[meters.front()];
  ChartModel model;
  model.title = row.title;
  model.caption = std::string(row.captionPrefix) + first[0].month;
  model.unit = row.unit;
  for (int i = 0; i < yearbook::kMonths; ++i) {
    model.months[i] = first[i].month;
    model.labels[i] = shortMonth(first[i].month);
  }
  for (const Meter meter : meters) {
    const MeterLook& look = kLooks[meter];
    Series series{look.name, look.hue, alignedValues(year.rows(meter, shown), first), look.unit};
    series.secondAxis = series.unit != model.unit;
    series.stack = series.secondAxis ? 1 : 0;
    if (series.secondAxis) model.secondUnit = series.unit;
    model.series.push_back(std::move(series));
  }
  labelAsCosts(model, shown);
  return model;
}

std::string shortMonth(std::string_view month) {
  return base::fromUtf32(base::toUtf32(month).substr(0, 3));
}

ChartModel inPercent(const ChartModel& model, bool stacked) {
  ChartModel result = model;
  result.unit = "%";
  result.secondUnit.clear();
  for (std::size_t s = 0; s < model.series.size(); ++s) {
    const Series& source = model.series[s];
    const auto sharesStack = [&](const Series& one) { return one.stack == source.stack; };
    const bool ofMonth = stacked && model.secondUnit.empty() && model.series.size() > 1;
    for (int i = 0; i < yearbook::kMonths; ++i) {
      double whole = ofMonth ? 0 : sumOf(source.values);
      if (ofMonth)
        for (const Series& one : model.series)
          if (sharesStack(one)) whole += std::fabs(one.values[i].value_or(0));
      auto& value = result.series[s].values[i];
      if (value) value = whole > 0 && std::isfinite(whole) ? *value / whole * 100 : 0;
    }
    result.series[s].unit = "%";
    result.series[s].secondAxis = false;
  }
  return result;
}

namespace {

// Two decimals; small values keep two digits that count.
int decimalsOf(double magnitude) {
  if (magnitude >= 0.1 || magnitude < 1e-6) return 2;
  return 1 - static_cast<int>(std::floor(std::log10(magnitude)));
}

}  // namespace

std::string valueText(double value) {
  struct Scale {
    double from;
    const char* name;
  };
  static constexpr std::array<Scale, 4> kScales = {
      {{1e12, " Bio."}, {1e9, " Mrd."}, {1e6, " Mio."}, {0, ""}}};
  const double magnitude = std::fabs(value);
  if (!std::isfinite(value)) return "?";
  if (magnitude >= 1e16) {
    const int exponent = static_cast<int>(std::floor(std::log10(magnitude)));
    return base::formatShort(value / std::pow(10.0, exponent), 2) + "E" + std::to_string(exponent);
  }
  for (const Scale& scale : kScales)
    if (magnitude >= scale.from)
      return base::formatShort(scale.from > 0 ? value / scale.from : value, decimalsOf(magnitude),
                               true) +
             scale.name;
  return {};
}

std::string markText(const ChartModel& model, int series, int point) {
  const auto s = static_cast<std::size_t>(series), i = static_cast<std::size_t>(point);
  if (s >= model.series.size() || i >= kMonthCount) return {};
  const Series& source = model.series[s];
  std::string text = model.series.size() > 1 ? source.name + ", " : std::string();
  text += model.months[i] + ": ";
  if (!source.values[i]) return text + "kein Wert";
  text += withUnit(*source.values[i], source.unit);
  const double sum = sumOf(source.values);
  if (sum > 0 && *source.values[i] > 0 && source.unit != "%")
    text += " (" + base::formatNumber(*source.values[i] / sum * 100, 1) + " % des Jahres)";
  return text;
}

std::string describe(const ChartModel& model, std::string_view chartTypeName) {
  std::string text = model.title + ", Darstellung " + std::string(chartTypeName) + ".";
  if (!model.caption.empty()) text += " " + model.caption + ".";
  for (const Series& series : model.series) {
    text += " " + series.name + " in " + series.unit + ":";
    for (int i = 0; i < yearbook::kMonths; ++i) {
      text += i == 0 ? " " : ", ";
      text += model.months[i] + " " +
              (series.values[i] ? valueText(*series.values[i]) : std::string("kein Wert"));
    }
    text += ".";
  }
  return text;
}

}  // namespace charts
