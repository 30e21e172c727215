#pragma once

#include <optional>

#include "charts/ChartModel.h"

namespace charts {

// The five utilities that two years can be compared in; index of the selection buttons.
inline constexpr int kFirstComparison = 1;
inline constexpr int kLastComparison = 5;

// The values laid out from January to December by the month name of each row. A name that is no
// month places nothing; of two rows with one name the later counts.
MonthValues byCalendarMonth(const MonthRows& rows);

// The open year first, then the other one if there is one. index is 1 to 5: electricity, gas,
// water, waste water, night electricity.
ChartModel comparisonChart(const YearData& openYear, const std::optional<YearData>& otherYear,
                           int index, Shown shown = Shown::Consumption);

}  // namespace charts
