#include "analysis/Charts.h"

#include <algorithm>
#include <cmath>

#include "base/GermanNumber.h"
#include "charts/ChartModel.h"

namespace analysis {
namespace {

using charts::Align;
using charts::Color;
using charts::Point;

constexpr double kBarPart = 0.62;  // of its slot
constexpr double kLabelGap = 4;

std::vector<std::string> labelsOf(const std::vector<YearFigures>& years) {
  std::vector<std::string> labels;
  labels.reserve(years.size());
  for (const YearFigures& year : years) labels.push_back(year.year->label());
  return labels;
}

std::vector<std::string> calendarLabels() {
  std::vector<std::string> labels;
  labels.reserve(base::kMonthNames.size());
  for (const auto month : base::kMonthNames) labels.push_back(charts::shortMonth(month));
  return labels;
}

struct Bars {
  std::string title, unit;
  std::vector<std::optional<double>> values;
  Color color;
  int decimals = 0;
};

// Values above bars or points: all of them or none.
void valueLabels(Sheet& sheet, const Bars& bars, int front) {
  const int count = static_cast<int>(bars.values.size());
  double widest = 0;
  for (const auto& value : bars.values)
    if (value)
      widest = std::max(widest, sheet.textWidth(base::formatNumber(*value, bars.decimals), true));
  if (count == 0 || widest + kLabelGap > sheet.plot().width / count) return;
  for (int i = 0; i < count; ++i) {
    const auto& value = bars.values[static_cast<std::size_t>(i)];
    if (value)
      sheet.text({sheet.slotCenter(i, count), *value < 0 ? sheet.y(*value) + sheet.textHeight()
                                                         : sheet.y(*value) - 2 * kLabelGap},
                 base::formatNumber(*value, bars.decimals), sheet.ink(), i == front, Align::Middle);
  }
}

// From zero to the values on both of its sides; a corrected reading can make one negative.
struct Range {
  double low = 0, high = 0;
  void take(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
};

Range rangeOf(const std::vector<std::optional<double>>& values) {
  Range range;
  for (const auto& value : values) range.take(value.value_or(0));
  // Room above the largest value for its label.
  constexpr double kHeadroom = 1.08;
  range.high *= kHeadroom;
  return range;
}

charts::Scene barChart(const Frame& frame, const std::vector<YearFigures>& years, const Bars& bars,
                       int front) {
  Sheet sheet(frame, bars.title);
  const Range range = rangeOf(bars.values);
  sheet.values(range.low, range.high, bars.unit);
  const int count = static_cast<int>(bars.values.size());
  const Color other = frame.theme.color(charts::Hue::OtherYear);
  for (int i = 0; i < count; ++i)
    if (const auto& value = bars.values[static_cast<std::size_t>(i)])
      sheet.bar(sheet.slotCenter(i, count), kBarPart * sheet.plot().width / count, *value,
                i == front ? bars.color : other);
  sheet.names(labelsOf(years), front);
  valueLabels(sheet, bars, front);
  return sheet.take();
}

// Runs of months that are known, as lines.
void monthRuns(Sheet& sheet, const PerMonth<std::optional<double>>& months, Color color,
               double width, bool dashed) {
  std::vector<Point> run;
  const auto end = [&] {
    if (run.size() > 1) sheet.line(run, color, width, dashed);
    run.clear();
  };
  for (int i = 0; i < kMonths; ++i) {
    if (months[i])
      run.push_back({sheet.slotCenter(i, kMonths), sheet.y(*months[i])});
    else
      end();
  }
  end();
}

PerMonth<std::optional<double>> calendarMonths(const Year& year, Meter meter) {
  PerMonth<std::optional<double>> months;
  for (int i = 0; i < year.months[meter]; ++i)
    months[year.calendarMonth(meter, i) - 1] = year.consumption(meter, i);
  return months;
}

// Between the least and the most of all years, month by month.
void band(Sheet& sheet, const std::vector<PerMonth<std::optional<double>>>& years, Color color) {
  std::vector<Point> above, below;
  for (int i = 0; i < kMonths; ++i) {
    std::optional<double> least, most;
    for (const auto& months : years) {
      if (!months[i]) continue;
      least = std::min(least.value_or(*months[i]), *months[i]);
      most = std::max(most.value_or(*months[i]), *months[i]);
    }
    if (!least) continue;
    above.push_back({sheet.slotCenter(i, kMonths), sheet.y(*most)});
    below.push_back({sheet.slotCenter(i, kMonths), sheet.y(*least)});
  }
  above.insert(above.end(), below.rbegin(), below.rend());
  if (above.size() > 2) sheet.canvas().scene().fill(above, color);
}

std::string meterTitle(Meter meter, const std::string& what) {
  return std::string(spokenName(meter)) + ' ' + what;
}

Point lastPoint(const Sheet& sheet, const PerMonth<std::optional<double>>& months) {
  Point last;
  for (int i = 0; i < kMonths; ++i)
    if (months[i]) last = {sheet.slotCenter(i, kMonths), sheet.y(*months[i])};
  return last;
}

}  // namespace

charts::Hue hueOf(Meter meter) {
  constexpr PerMeter<charts::Hue> kHues = {
      {{charts::Hue::Electricity, charts::Hue::NightElectricity, charts::Hue::Water,
        charts::Hue::WasteWater, charts::Hue::Gas}}};
  return kHues[meter];
}

charts::Scene yearBars(const Frame& frame, const std::vector<YearFigures>& years, Meter meter,
                       int front) {
  Bars bars{meterTitle(meter, "je Jahr"),
            std::string(factsOf(meter).unit),
            {},
            frame.theme.color(hueOf(meter))};
  for (const YearFigures& year : years) {
    const MeterFigures& figures = year.meters[meter];
    bars.values.push_back(figures.months > 0 ? std::optional(figures.consumption) : std::nullopt);
  }
  return barChart(frame, years, bars, front);
}

charts::Scene yearCosts(const Frame& frame, const std::vector<YearFigures>& years, int front) {
  Bars bars{"Alle Zähler brutto je Jahr", "Euro", {}, frame.theme.color(charts::Hue::Water)};
  for (const YearFigures& year : years) bars.values.emplace_back(year.gross.toDouble());
  return barChart(frame, years, bars, front);
}

charts::Scene unitPrices(const Frame& frame, const std::vector<YearFigures>& years, Meter meter,
                         int front) {
  const std::string unit(priceUnit(meter));
  Bars bars{meterTitle(meter, "brutto je " + unit.substr(unit.find('/') + 1)),
            unit.substr(0, unit.find('/')),
            {},
            frame.theme.color(hueOf(meter)),
            2};
  for (const YearFigures& year : years) bars.values.push_back(year.meters[meter].grossPerUnit);
  Sheet sheet(frame, bars.title);
  const Range range = rangeOf(bars.values);
  sheet.values(range.low, range.high, bars.unit);
  const int count = static_cast<int>(years.size());
  std::vector<Point> points;
  for (int i = 0; i < count; ++i)
    if (const auto& value = bars.values[static_cast<std::size_t>(i)])
      points.push_back({sheet.slotCenter(i, count), sheet.y(*value)});
  if (points.size() > 1) sheet.line(points, bars.color, 2.6);
  for (const Point& point : points) sheet.point(point, bars.color);
  sheet.names(labelsOf(years), front);
  valueLabels(sheet, bars, front);
  return sheet.take();
}

charts::Scene monthLines(const Frame& frame, const std::vector<YearFigures>& years, Meter meter,
                         int front, const std::vector<int>& chosen) {
  std::vector<PerMonth<std::optional<double>>> months;
  Range range;
  for (const YearFigures& year : years) {
    months.push_back(calendarMonths(*year.year, meter));
    for (const auto& month : months.back()) range.take(month.value_or(0));
  }
  Sheet sheet(frame, meterTitle(meter, "im Jahreslauf"), 48);
  const Color other = frame.theme.color(charts::Hue::OtherYear);
  const Color shade = charts::mix(sheet.ground(), other, 0.28);
  if (years.size() > 1)
    sheet.key({{KeyEntry::Mark::Filled, shade, "kleinster bis größter Verbrauch"}});
  sheet.values(range.low, range.high, std::string(factsOf(meter).unit));
  if (years.size() > 1) band(sheet, months, shade);
  sheet.names(calendarLabels());
  // The latest stays readable, the oldest fades halfway into the ground.
  const int count = static_cast<int>(chosen.size());
  for (int i = 0; i < count; ++i) {
    const int year = chosen[static_cast<std::size_t>(i)];
    if (year == front) continue;
    const double age = count > 1 ? static_cast<double>(count - 1 - i) / count : 0;
    monthRuns(sheet, months[static_cast<std::size_t>(year)],
              charts::mix(other, sheet.ground(), 0.5 * age), 1.8, true);
  }
  if (front >= 0) {
    const auto& strong = months[static_cast<std::size_t>(front)];
    const Color color = frame.theme.color(hueOf(meter));
    monthRuns(sheet, strong, color, 2.6, false);
    for (int i = 0; i < kMonths; ++i)
      if (strong[i]) sheet.point({sheet.slotCenter(i, kMonths), sheet.y(*strong[i])}, color);
    sheet.endLabel(lastPoint(sheet, strong), years[static_cast<std::size_t>(front)].year->label(),
                   sheet.ink(), true);
  }
  for (auto year = chosen.rbegin(); year != chosen.rend(); ++year)
    if (*year != front)
      sheet.endLabel(lastPoint(sheet, months[static_cast<std::size_t>(*year)]),
                     years[static_cast<std::size_t>(*year)].year->label(), sheet.quiet(), false);
  return sheet.take();
}

charts::Scene forecastMonths(const Frame& frame, const Forecast& forecast, Meter meter,
                             const Year* before) {
  const Color color = frame.theme.color(hueOf(meter));
  Sheet sheet(frame, std::string(spokenName(meter)));
  const auto& part = forecast.meters[meter];
  if (!part) return sheet.take();
  const Outlook& outlook = part->outlook;
  const auto reach = [&](int i) { return kEightOfTen * outlook.spread[i]; };
  const auto earlier = before ? calendarMonths(*before, meter) : PerMonth<std::optional<double>>();
  Range range;
  for (int i = 0; i < kMonths; ++i) {
    range.take(outlook.months[i]);
    if (i >= outlook.monthsRead) range.take(outlook.months[i] + reach(i));
    range.take(earlier[i].value_or(0));
  }
  std::vector<KeyEntry> key = {{KeyEntry::Mark::Filled, color, "abgelesen"},
                               {KeyEntry::Mark::Hatched, color, "erwartet, mit Spanne"}};
  if (before) key.push_back({KeyEntry::Mark::Line, sheet.ink(), before->label()});
  sheet.key(key);
  sheet.values(range.low, range.high, std::string(factsOf(meter).unit));
  const double width = kBarPart * sheet.plot().width / kMonths;
  std::vector<std::string> names;
  for (int i = 0; i < kMonths; ++i) {
    const int month = forecast.year->calendarMonth(meter, i) - 1;
    names.push_back(charts::shortMonth(base::kMonthNames[static_cast<std::size_t>(month)]));
    const double center = sheet.slotCenter(i, kMonths);
    if (i < outlook.monthsRead) {
      sheet.bar(center, width, outlook.months[i], color);
    } else {
      sheet.hatchedBar(center, width, outlook.months[i], color);
      sheet.whisker(center, width / 3, std::max(0.0, outlook.months[i] - reach(i)),
                    outlook.months[i] + reach(i));
    }
    if (!earlier[month]) continue;
    const double y = sheet.y(*earlier[month]), half = width * 0.72;
    sheet.line({{center - half, y}, {center + half, y}}, sheet.ground(), 4.8);
    sheet.line({{center - half, y}, {center + half, y}}, sheet.ink(), 2.4);
  }
  sheet.names(names);
  return sheet.take();
}

charts::Scene tariffLines(const Frame& frame, const Comparison& comparison, int chosen,
                          bool differences) {
  const double most = std::max(1000.0, comparison.basis.total() * 1.35);
  struct Line {
    std::string name;
    double atZero, atMost;
    Color color;
    bool strong, dashed;
  };
  const Color other = frame.theme.color(charts::Hue::OtherYear);
  const Color own = frame.theme.color(hueOf(meterOf(comparison.energy)));
  const Basis none = typedBasis(0, comparison.basis), end = typedBasis(most, comparison.basis);
  const auto value = [&](const Contract& contract, const Basis& basis) {
    return costOf(contract, basis) - (differences ? costOf(comparison.present, basis) : 0);
  };
  std::vector<Line> lines;
  for (std::size_t i = 0; i < comparison.offers.size(); ++i) {
    const OfferFigures& offer = comparison.offers[i];
    const bool strong = static_cast<int>(i) == chosen;
    lines.push_back({offer.offer.name, value(offer.contract, none), value(offer.contract, end),
                     strong ? frame.theme.text : other, strong, !strong});
  }
  lines.push_back({"bisheriger Vertrag", value(comparison.present, none),
                   value(comparison.present, end), own, true, false});
  Range range;
  double room = 0;
  for (const Line& line : lines) {
    range.take(line.atZero);
    range.take(line.atMost);
    room = std::max(room, frame.measure.measure(line.name, {frame.textSize, true}).width);
  }
  const char* title = differences ? "Unterschied zum bisherigen Vertrag im Folgejahr, brutto"
                                  : "Kosten im Folgejahr, brutto";
  Sheet sheet(frame, title, std::min(room + 12, frame.size.width / 3), 2);
  sheet.values(range.low, range.high, "Euro");
  sheet.numbers(most, "Verbrauch im Jahr, kWh");
  const double at = sheet.across(comparison.basis.total() / most);
  sheet.line({{at, sheet.plot().y}, {at, sheet.plot().bottom()}}, sheet.quiet(), 1, true);
  sheet.text({at - kLabelGap, sheet.plot().y + sheet.textHeight()},
             "eigener Verbrauch " + base::formatNumber(comparison.basis.total(), 0), sheet.ink(),
             false, Align::End);
  if (differences && comparison.offers.empty())
    sheet.text(sheet.plot().center(), "Noch kein Angebot eingetragen.", sheet.quiet(), false,
               Align::Middle);
  for (const Line& line : lines)
    sheet.line({{sheet.across(0), sheet.y(line.atZero)}, {sheet.across(1), sheet.y(line.atMost)}},
               line.color, line.strong ? 2.6 : 1.8, line.dashed);
  for (auto line = lines.rbegin(); line != lines.rend(); ++line)
    sheet.endLabel({sheet.across(1), sheet.y(line->atMost)}, line->name,
                   line->strong ? sheet.ink() : sheet.quiet(), line->strong);
  return sheet.take();
}

}  // namespace analysis
