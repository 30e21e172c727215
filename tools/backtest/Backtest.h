#pragma once

#include <array>
#include <string>

#include "MadeHouseholds.h"

// The forecast and three plain ways beside it, told the end of each month, held against the year as
// it came out.
namespace made {

// Ours first.
enum class Way { Forecast, EvenDays, LastYear, Table };
inline constexpr std::array kWays = {Way::Forecast, Way::EvenDays, Way::LastYear, Way::Table};

// Mean error in percent of the year's consumption, by way, over all households and all their years
// but the first, which has none before it.
struct MeterErrors {
  std::array<analysis::PerMonth<double>, kWays.size()> byMonth{};  // at the end of month 1 to 12
  double covered = 0;  // part of the years that ended within the forecast's range, over 11 months

  double at(Way way, int month) const { return byMonth[static_cast<std::size_t>(way)][month]; }
  double mean(Way way) const;  // of the twelve months
};

yearbook::PerMeter<MeterErrors> backtest(const std::vector<Household>& households);

// The table for the manual, in Markdown.
std::string asTable(const yearbook::PerMeter<MeterErrors>& errors);

}  // namespace made
