#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/Theme.h"
#include "charts/YearData.h"

namespace charts {

using MonthValues = std::array<std::optional<double>, kMonthCount>;

struct Series {
  std::string name;
  Hue hue = Hue::Electricity;
  MonthValues values;
  std::string unit;
  bool secondAxis = false;  // measured on the right
  int stack = 0;            // series of one stack are added up in the stacked kinds
};

// What a chart says, before anybody thinks of lines and colours.
struct ChartModel {
  std::string title;
  std::string caption;                          // line below the title
  std::string axisTitle;                        // of the months; may be empty
  std::string unit;                             // of the left axis
  std::string secondUnit;                       // of the right axis; empty = there is none
  std::array<std::string, kMonthCount> labels;  // "Jan"
  std::array<std::string, kMonthCount> months;  // "Januar"
  std::vector<Series> series;
};

// Index of the selection buttons; 0 is the button that nobody sees.
inline constexpr int kSelectionCount = 7;
enum class Selection { None, Electricity, Gas, Water, WasteWater, BothWaters, Night };

// "strom", "nachtstrom", "gas", "wasser", "abwasser", "ww"; None for "alle" and everything else.
Selection selectionOf(std::string_view mode);

// The chart of one selection of the open year. Selection::None shows all four utilities,
// electricity on an axis of its own; its months are those of the electricity, the others are put
// beside them month by month.
ChartModel monthlyChart(const YearData& year, Selection selection,
                        Shown shown = Shown::Consumption);
// Makes a chart of consumptions one of euros: title, unit, one axis. Nothing for consumptions.
void labelAsCosts(ChartModel& model, Shown shown);
// "Startmonat ist  " and the first month of what the selection shows: the line before the drawing.
std::string openingCaption(const YearData& year, Selection selection);

// The first three characters of a month's caption.
std::string shortMonth(std::string_view month);

// The same chart in percent: each value as its share of its series' year; in a stacked chart of
// several series of one unit as its share of the month. Two units are never added up, so that
// theirs are shares of the year.
ChartModel inPercent(const ChartModel& model, bool stacked);

// A value of the chart as it is written beside its mark: at most two decimals (two digits below
// 0,1), grouped; from a million on with its name ("1,25 Mio.").
std::string valueText(double value);

// "März: 268 kWh", preceded by the series' name where there are several. The share of the year is
// added where it makes sense.
std::string markText(const ChartModel& model, int series, int point);

// The chart in words for those who listen to it: kind, title, every series with its values.
std::string describe(const ChartModel& model, std::string_view chartTypeName);

}  // namespace charts
