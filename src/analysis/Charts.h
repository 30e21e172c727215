#pragma once

#include "analysis/AllYears.h"
#include "analysis/Forecast.h"
#include "analysis/Sheet.h"
#include "analysis/Tariffs.h"

// The charts of the windows that look at several years, drawn for a given room.
namespace analysis {

charts::Hue hueOf(Meter meter);

// A bar for each year; the one in front strong. front is an index, -1 for none.
charts::Scene yearBars(const Frame& frame, const std::vector<YearFigures>& years, Meter meter,
                       int front);
// All meters together: gross euro of each year.
charts::Scene yearCosts(const Frame& frame, const std::vector<YearFigures>& years, int front);
// The gross price per unit over the years.
charts::Scene unitPrices(const Frame& frame, const std::vector<YearFigures>& years, Meter meter,
                         int front);
// The calendar months of the chosen years (indices) as lines over the band of the least and most of
// all years; the year in front strong, the others paler the older they are.
charts::Scene monthLines(const Frame& frame, const std::vector<YearFigures>& years, Meter meter,
                         int front, const std::vector<int>& chosen);
// Months read, months expected with their range, and the months of the year before.
charts::Scene forecastMonths(const Frame& frame, const Forecast& forecast, Meter meter,
                             const Year* before);
// What each offer costs more or less than the present contract over the consumption, or all costs
// themselves. chosen is an index of the offers, -1 for none.
charts::Scene tariffLines(const Frame& frame, const Comparison& comparison, int chosen,
                          bool differences);

}  // namespace analysis
